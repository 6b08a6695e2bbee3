// The demo car as a newcomer meets it: the delivered settings start without a question, both
// address maps fit the image, and nothing changes that nobody edited.
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "core/map_display.h"
#include "core/rom_image.h"
#include "core/settings_file.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

class DemoCarTest : public ProgramTest {
 protected:
  DemoCarTest() {
    const fs::path made = DEMO_FOLDER;
    fs::create_directory(path("demo"));
    fs::copy(made / "vqmap", path("vqmap"));
    fs::copy(made / "zelkova.ini", path("zelkova.ini"));
    for (const char* name : {"demo_en.adr", "demo_ja.adr", "demo.bin"}) {
      fs::copy(made / name, path("demo") + "/" + name);
    }
  }
  void loadDemo() {
    desk.openAnswers.push_back(path("demo/demo.bin"));
    pick("load_bin_file");
  }
  void chooseMap(const std::string& name) {
    desk.openAnswers.push_back(path("demo/" + name));
    pick("load_map_addr");
  }
};

TEST_F(DemoCarTest, StartsInEnglishWithItsAddressMap) {
  start();
  EXPECT_TRUE(desk.boxes.empty()) << lastBox();
  EXPECT_EQ(form1().Label1.caption(), "Demo car 2.0 turbo (made up)");
  EXPECT_EQ(editorState.english, 1);
  EXPECT_EQ(editorState.graphRatioY, 2);
}

TEST_F(DemoCarTest, DeliveredSettingsAreWrittenAgainByteForByte) {
  const Bytes delivered = readBytes("zelkova.ini");
  start();
  fs::remove(path("zelkova.ini"));
  writeSettings();
  EXPECT_EQ(readBytes("zelkova.ini"), delivered);
}

TEST_F(DemoCarTest, EveryMapDrawsAndIsWrittenBackUnchanged) {
  start();
  loadDemo();
  EXPECT_TRUE(desk.boxes.empty()) << lastBox();
  EXPECT_TRUE(isRomLoaded());
  int drawn = 0;
  for (const MapKind& kind : mapKinds()) {
    if (!editorState.addressMap.map(kind.id).present()) continue;
    EXPECT_TRUE(gridOf(kind).visible()) << kind.keyword;
    ++drawn;
  }
  EXPECT_EQ(drawn, 18);
  EXPECT_EQ(form1().Text4.text(), "6500");
  EXPECT_EQ(form1().Text6.text(), "180");
  EXPECT_EQ(form1().RPM_FUEL.text(15, 0), "8000");
  EXPECT_EQ(saveImage("again.bin"), readBytes("demo/demo.bin"));
}

TEST_F(DemoCarTest, EntriesDontOverlapAndLieInTheImage) {
  start();
  std::vector<std::pair<int, int>> stretches;
  for (const MapEntry& map : editorState.addressMap.maps) {
    if (map.present()) stretches.emplace_back(map.address, map.address + map.bytes);
  }
  for (const ParamEntry& param : editorState.addressMap.params) {
    if (param.present()) stretches.emplace_back(param.address, param.address + param.bytes);
  }
  std::ranges::sort(stretches);
  for (std::size_t i = 1; i < stretches.size(); ++i) {
    EXPECT_LE(stretches[i - 1].second, stretches[i].first) << std::hex << stretches[i].first;
  }
  EXPECT_LE(stretches.back().second, 32768);
}

TEST_F(DemoCarTest, BothLanguagesNameTheSamePlaces) {
  start();
  const AddressMap english = editorState.addressMap;
  EXPECT_EQ(form1().Frame8.caption(), "Boost target, shown doubled");
  chooseMap("demo_ja.adr");
  EXPECT_TRUE(desk.boxes.empty()) << lastBox();
  EXPECT_EQ(form1().Label1.caption(), "デモカー 2.0 ターボ (架空)");
  EXPECT_EQ(form1().Frame8.caption(), "目標過給圧, 2倍表示");
  for (std::size_t i = 0; i < english.maps.size(); ++i) {
    const MapEntry &a = english.maps[i], &b = editorState.addressMap.maps[i];
    EXPECT_TRUE(a.address == b.address && a.bytes == b.bytes && a.scale == b.scale) << i;
  }
  for (std::size_t i = 0; i < english.params.size(); ++i) {
    const ParamEntry &a = english.params[i], &b = editorState.addressMap.params[i];
    EXPECT_TRUE(a.address == b.address && a.bytes == b.bytes && a.scale == b.scale) << i;
  }
}

// Neighbouring cells differ little, apart from the edge of the feedback bits.
TEST_F(DemoCarTest, MapsAreSmoothAndScalesRise) {
  const Bytes image = readBytes("demo/demo.bin");
  start();
  for (const MapId id : {HIGH_FUEL, HIGH_FIRE, REG_FUEL, REG_FIRE}) {
    const MapEntry& map = editorState.addressMap.map(id);
    const int bits = id == REG_FUEL ? 192 : 128;
    const auto value = [&](int row, int column) {
      const int byte = image.at(static_cast<std::size_t>(map.address + row * map.columns + column));
      return byte >= 125 ? byte - bits : byte;
    };
    for (int row = 1; row < map.rows; ++row) {
      for (int column = 1; column < map.columns; ++column) {
        EXPECT_LE(std::abs(value(row, column) - value(row, column - 1)), 12) << id << ' ' << row;
        EXPECT_LE(std::abs(value(row, column) - value(row - 1, column)), 12) << id << ' ' << row;
      }
    }
  }
  for (const MapId id : {TP_SCALE_FUEL, TP_SCALE_FIRE, RPM_SCALE_FUEL, RPM_SCALE_FIRE}) {
    const auto begin = image.begin() + editorState.addressMap.map(id).address;
    EXPECT_EQ(std::adjacent_find(begin, begin + 16, std::greater_equal<>()), begin + 16) << id;
  }
}

TEST_F(DemoCarTest, AirflowTablesHaveTheirLengthsAndRise) {
  const std::pair<const char*, std::size_t> tables[] = {
      {"z32", 128}, {"hcr32", 128}, {"bnr32", 128}, {"ecr33", 128}, {"y32", 128},
      {"s13", 104}, {"ps13", 128},  {"s14", 128},   {"s15", 128},
  };
  for (const auto& [name, length] : tables) {
    const Bytes table = readBytes("vqmap/" + std::string(name) + "_vq_map.bin");
    ASSERT_EQ(table.size(), length) << name;
    int before = -1;
    for (std::size_t i = 0; i < length; i += 2) {
      const int word = table[i] * 256 + table[i + 1];
      EXPECT_LT(before, word) << name << ' ' << i;
      before = word;
    }
  }
}

}  // namespace
