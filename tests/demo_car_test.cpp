// The demo car as a newcomer meets it: the delivered settings start without a question, both
// address maps fit the image, and nothing changes that nobody edited.
#include <algorithm>
#include <filesystem>
#include <tuple>

#include "core/map_display.h"
#include "core/settings_file.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

class DemoCarTest : public ProgramTest {
 protected:
  DemoCarTest() {
    const fs::path made = DEMO_FOLDER;
    fs::copy(made, path("demo"));
    fs::copy(made / "vqmap", path("vqmap"));
    fs::copy(made / "zelkova.ini", path("zelkova.ini"));
    start();
  }
  // Address, end and scale of what the car has, in the order of the kinds.
  static std::vector<std::tuple<int, int, double>> places() {
    std::vector<std::tuple<int, int, double>> all;
    const auto add = [&all](const auto& entry) {
      if (!entry.present()) return;
      all.emplace_back(entry.address, entry.address + entry.bytes, entry.scale);
    };
    std::ranges::for_each(editorState.addressMap.maps, add);
    std::ranges::for_each(editorState.addressMap.params, add);
    return all;
  }
};

TEST_F(DemoCarTest, StartsInEnglishAndWritesItsSettingsAndEveryMapUnchanged) {
  EXPECT_EQ(form1().Label1.caption(), "Demo car 2.0 turbo (made up)");
  EXPECT_EQ(editorState.graphRatioY, 2);
  const Bytes delivered = readBytes("zelkova.ini");
  fs::remove(path("zelkova.ini"));
  writeSettings();
  EXPECT_EQ(readBytes("zelkova.ini"), delivered);
  pickFile("load_bin_file", "demo/demo.bin");
  EXPECT_EQ(told(), "");
  int drawn = 0;
  for (const MapKind& kind : mapKinds()) {
    EXPECT_TRUE(gridOf(kind).visible()) << kind.keyword;
    drawn += editorState.addressMap.map(kind.id).present();
  }
  EXPECT_EQ(drawn, 18);
  EXPECT_EQ(form1().Text4.text() + ' ' + form1().Text6.text(), "6500 180");
  EXPECT_EQ(form1().RPM_FUEL.text(15, 0), "8000");
  EXPECT_EQ(saveImage("again.bin"), readBytes("demo/demo.bin"));
}

TEST_F(DemoCarTest, BothLanguagesNameTheSamePlacesThatDontOverlap) {
  auto english = places();
  EXPECT_EQ(form1().Frame8.caption(), "Boost target, shown doubled");
  pickFile("load_map_addr", "demo/demo_ja.adr");
  EXPECT_EQ(told(), "");
  EXPECT_EQ(form1().Label1.caption(), "デモカー 2.0 ターボ (架空)");
  EXPECT_EQ(form1().Frame8.caption(), "目標過給圧, 2倍表示");
  EXPECT_EQ(english, places());
  std::ranges::sort(english);
  for (std::size_t i = 1; i < english.size(); ++i) {
    EXPECT_LE(std::get<1>(english[i - 1]), std::get<0>(english[i])) << std::get<0>(english[i]);
  }
  EXPECT_LE(std::get<1>(english.back()), 32768);
}

TEST_F(DemoCarTest, ScalesAndAirflowTablesRise) {
  const Bytes image = readBytes("demo/demo.bin");
  for (const MapId id : {TP_SCALE_FUEL, TP_SCALE_FIRE, RPM_SCALE_FUEL, RPM_SCALE_FIRE}) {
    const auto begin = image.begin() + editorState.addressMap.map(id).address;
    EXPECT_EQ(std::adjacent_find(begin, begin + 16, std::greater_equal<>()), begin + 16) << id;
  }
  for (const std::string name :
       {"z32", "hcr32", "bnr32", "ecr33", "y32", "s13", "ps13", "s14", "s15"}) {
    const Bytes table = readBytes("vqmap/" + name + "_vq_map.bin");
    ASSERT_EQ(table.size(), name == "s13" ? 104U : 128U) << name;
    for (std::size_t i = 2; i < table.size(); i += 2) {
      EXPECT_LT(table[i - 2] * 256 + table[i - 1], table[i] * 256 + table[i + 1]) << name << i;
    }
  }
}

}  // namespace
