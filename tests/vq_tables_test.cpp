// The nine airflow commands: which bytes land where, the boxes, and the files that the tables come
// from.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "imagefiles/vq_tables.h"
#include "support.h"

namespace {

struct Engine {
  const char* command;
  const char* file;
  const char* caption;
  std::size_t bytes;
};

const std::vector<Engine> engines = {
    {"use_z32_vq", "z32_vq_map.bin", "Z32 - VG30DETT", 128},
    {"use_hcr32_vq", "hcr32_vq_map.bin", "HCR32 - RB20DET", 128},
    {"use_bnr32_vq", "bnr32_vq_map.bin", "BNR32 - RB26DETT", 128},
    {"user_ecr33_vq", "ecr33_vq_map.bin", "ECR33 - RB25DET", 128},
    {"use_y32_vq", "y32_vq_map.bin", "Y32 - VG30DET", 128},
    {"use_s13_vq", "s13_vq_map.bin", "S13 - CA18DET", 104},
    {"use_ps13_vq", "ps13_vq_map.bin", "PS13 - SR20DET", 128},
    {"use_s14_vq", "s14_vq_map.bin", "S14 - SR20DET", 128},
    {"use_s15_vq", "s15_vq_map.bin", "S15 - SR20DET", 128},
};

constexpr int mapAddress = 0x200;

class VqTables : public ProgramTest {
 protected:
  // Files of 200 bytes, longer than any table, each with bytes of its own.
  void writeTables() {
    std::filesystem::create_directory(path("vqmap"));
    for (std::size_t i = 0; i < engines.size(); ++i) {
      writeBytes(std::string("vqmap/") + engines[i].file, tableFile(i));
    }
  }
  static Bytes tableFile(std::size_t engine) {
    return patternImage(200, static_cast<std::uint32_t>(engine) + 10);
  }
  void startWithAirflowMap(int bytes) {
    startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("VQ_MAP", "&H200", bytes / 2, 1, bytes));
  }
  Bytes mapBytes(std::size_t count) {
    const auto first = editorState.image.begin() + mapAddress;
    return {first, first + static_cast<std::ptrdiff_t>(count)};
  }
};

TEST_F(VqTables, EachCommandPutsItsOwnTableIntoAMapOfItsSize) {
  writeTables();
  startWithAirflowMap(128);
  for (std::size_t i = 0; i < engines.size(); ++i) {
    const Engine& engine = engines[i];
    SCOPED_TRACE(engine.command);
    editorState.addressMap.map(VQ_MAP).bytes = static_cast<int>(engine.bytes);
    const Bytes before = patternImage(4096);
    loadImage(before);
    pick(engine.command);
    Bytes expected = tableFile(i);
    expected.resize(engine.bytes);
    EXPECT_EQ(mapBytes(engine.bytes), expected);
    EXPECT_EQ(form1().Grid5.text(1, 1), std::to_string(expected[0] * 256 + expected[1]));
    EXPECT_EQ(form1().menuBar.find(engine.command)->caption(), engine.caption);
    EXPECT_TRUE(desk.boxes.empty());
    EXPECT_EQ(form1().ProgressBar1.value(), 0);
    EXPECT_EQ(editorState.savedImage, before);
    EXPECT_EQ(editorState.image[mapAddress + engine.bytes], before[mapAddress + engine.bytes]);
    editorState.image = before;
    form1().Grid5.setRedraw(true);
    editorState.imageSize = 0;
  }
}

struct SizeCase {
  const char* command;
  int mapBytes;
  std::size_t skipped;  // entries left out at the table's head
  const char* title;
  const char* text;
};

TEST_F(VqTables, AShorterMapTakesTheEndAndALongerOneIsRefused) {
  const char* const refused =
      "They can convert it, as there are VQMAP 128 size, of a reading crowdeded ROM DATA more than "
      "byte.";
  const std::vector<SizeCase> cases = {
      {"use_z32_vq", 120, 8, "I cut and stuff it",
       "I stuffed  8 byte of a head and glued and attached it from behind."},
      {"use_z32_vq", 104, 24, "I cut and stuff it",
       "I stuffed  24 byte of a head and glued and attached it from behind."},
      {"use_z32_vq", 0, 128, "I cut and stuff it",
       "I stuffed  128 byte of a head and glued and attached it from behind."},
      {"use_s13_vq", 105, 0, "Conversion error", refused},
      {"use_s13_vq", 120, 0, "Conversion error", refused},
      {"use_z32_vq", 130, 0, "Conversion error", refused},
  };
  writeTables();
  startWithAirflowMap(128);
  for (const SizeCase& row : cases) {
    SCOPED_TRACE(std::string(row.command) + std::to_string(row.mapBytes));
    editorState.imageSize = 0;
    loadImage(patternImage(4096));
    editorState.addressMap.map(VQ_MAP).bytes = row.mapBytes;
    desk.boxes.clear();
    pick(row.command);
    ASSERT_FALSE(desk.boxes.empty());
    EXPECT_EQ(desk.boxes.front().text, row.text);
    EXPECT_EQ(desk.boxes.front().title, row.title);
    Bytes expected = patternImage(4096);
    if (row.title == std::string("I cut and stuff it")) {
      const Bytes table = tableFile(0);
      std::copy(table.begin() + static_cast<std::ptrdiff_t>(row.skipped), table.begin() + 128,
                expected.begin() + mapAddress);
    }
    EXPECT_EQ(editorState.image, expected);
  }
}

TEST_F(VqTables, AMapPastTheImageTakesWhatLiesInsideAndTheRedrawTells) {
  writeTables();
  startWithAirflowMap(128);
  loadImage(patternImage(0x210));
  desk.boxes.clear();
  pick("use_z32_vq");
  const Bytes table = tableFile(0);
  EXPECT_EQ(mapBytes(16), Bytes(table.begin(), table.begin() + 16));
  EXPECT_EQ(editorState.image.size(), 0x210U);
  EXPECT_EQ(lastBox(), "ERROR (Function:MAP_DRAW)");
}

TEST_F(VqTables, NeedAnImageThatIsNotAllZero) {
  startWithAirflowMap(128);
  loadImage(Bytes(4096));
  pick("use_z32_vq");
  EXPECT_EQ(lastBox(), "ROM DATA reads and been crowded, VQMAP conversion aren't possible.");
  editorState.english = 0;
  pick("use_s15_vq");
  EXPECT_EQ(lastBox(), "ROM DATAが読み込まれていないのに、VQMAP変換はできません。");
}

TEST_F(VqTables, MissingAndShortFilesLeaveZeros) {
  std::filesystem::create_directory(path("vqmap"));
  writeBytes("vqmap/z32_vq_map.bin", Bytes(5, 7));
  std::filesystem::create_directory(path("vqmap/s15_vq_map.bin"));
  startWithAirflowMap(128);
  EXPECT_TRUE(desk.boxes.empty());
  loadImage(patternImage(4096));
  pick("use_z32_vq");
  Bytes expected(128);
  std::fill_n(expected.begin(), 5, std::uint8_t{7});
  EXPECT_EQ(mapBytes(128), expected);
  for (const char* missing : {"use_s15_vq", "use_y32_vq"}) {
    pick(missing);
    EXPECT_EQ(mapBytes(128), Bytes(128)) << missing;
  }
}

}  // namespace
