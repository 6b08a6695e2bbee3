// The demo car as a newcomer meets it: the delivered settings start without a question, both
// address maps fit the image, and nothing changes that nobody edited.
#include <algorithm>
#include <filesystem>

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
};

TEST_F(DemoCarTest, StartsInEnglishAndWritesItsSettingsAndEveryMapUnchanged) {
  EXPECT_EQ(form1().Label1.caption(), "Demo car 2.0 turbo (made up)");
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
  EXPECT_EQ(saveImage("again.bin"), readBytes("demo/demo.bin"));
}

TEST_F(DemoCarTest, BothLanguagesNameTheSamePlacesThatDontOverlap) {
  std::vector<std::pair<int, int>> places[2];
  for (auto& all : places) {
    const auto add = [&all](const auto& entry) {
      if (entry.present()) all.emplace_back(entry.address, entry.address + entry.bytes);
    };
    std::ranges::for_each(editorState.addressMap.maps, add);
    std::ranges::for_each(editorState.addressMap.params, add);
    pickFile("load_map_addr", "demo/demo_ja.adr");
  }
  EXPECT_EQ(form1().Label1.caption() + told(), "デモカー 2.0 ターボ (架空)");
  EXPECT_EQ(places[0], places[1]);
  std::ranges::sort(places[0]);
  for (std::size_t i = 1; i < places[0].size(); ++i) {
    EXPECT_LE(places[0][i - 1].second, places[0][i].first);
  }
  EXPECT_LE(places[0].back().second, 32768);
}

}  // namespace
