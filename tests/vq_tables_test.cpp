// The nine airflow commands: which bytes land where, the boxes, and the files that the tables come
// from.
#include "imagefiles/vq_tables.h"

#include <filesystem>

#include "support.h"

namespace {

constexpr int mapAddress = 0x200;
const std::string tooLong =
    "They can convert it, as there are VQMAP 128 size, of a reading crowdeded ROM DATA more than "
    "byte.";

class VqTables : public ProgramTest {
 protected:
  VqTables() { std::filesystem::create_directory(path("vqmap")); }
};

TEST_F(VqTables, EachCommandPutsTheEndOfItsTableIntoTheMapUnlessTheMapIsLonger) {
  struct Row {
    const char *command, *file;
    int tableBytes, mapBytes;
    int imageBytes = 4096;
  };
  const Row table[] = {{"use_z32_vq", "z32", 128, 128},     {"use_hcr32_vq", "hcr32", 128, 128},
                       {"use_bnr32_vq", "bnr32", 128, 128}, {"user_ecr33_vq", "ecr33", 128, 128},
                       {"use_y32_vq", "y32", 128, 128},     {"use_s13_vq", "s13", 104, 104},
                       {"use_ps13_vq", "ps13", 128, 128},   {"use_s14_vq", "s14", 128, 128},
                       {"use_s15_vq", "s15", 128, 128},     {"use_z32_vq", "z32", 128, 120},
                       {"use_z32_vq", "z32", 128, 0},       {"use_z32_vq", "z32", 128, 130},
                       {"use_s13_vq", "s13", 104, 105},     {"use_z32_vq", "z32", 128, 128, 0x210}};
  for (const Row& row : table) {
    SCOPED_TRACE(row.command + std::string(" ") + std::to_string(row.mapBytes));
    const Bytes engine = patternImage(200, static_cast<std::uint32_t>(&row - table));
    writeBytes("vqmap/" + std::string(row.file) + "_vq_map.bin", engine);
    startAnewWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("VQ_MAP", "&H200", 64, 1, row.mapBytes));
    Bytes expected = patternImage(static_cast<std::size_t>(row.imageBytes));
    loadImage(expected);
    told();
    pick(row.command);
    EXPECT_EQ(editorState.savedImage, expected);
    const int skipped = row.tableBytes - row.mapBytes;
    for (int k = 0; k < row.mapBytes && skipped >= 0 && mapAddress + k < row.imageBytes; ++k) {
      expected.at(mapAddress + k) = engine.at(skipped + k);
    }
    EXPECT_EQ(editorState.image, expected);
    const std::string cut = "I stuffed  " + std::to_string(skipped) +
                            " byte of a head and glued and attached it from behind.";
    const std::string beyond = row.imageBytes < 4096 ? "ERROR (Function:MAP_DRAW)" : "";
    EXPECT_EQ(told(), skipped < 0 ? tooLong : skipped > 0 ? cut : beyond);
    const std::string word = std::to_string(expected[mapAddress] * 256 + expected[mapAddress + 1]);
    EXPECT_TRUE(row.mapBytes == 0 || form1().Grid5.text(1, 1) == word);
    EXPECT_EQ(form1().ProgressBar1.value(), 0);
  }
}

TEST_F(VqTables, MissingAndShortFilesLeaveZerosAndAnImageOfZerosIsRefused) {
  writeBytes("vqmap/z32_vq_map.bin", Bytes(5, 7));
  std::filesystem::create_directory(path("vqmap/s15_vq_map.bin"));
  startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("VQ_MAP", "&H200", 64, 1, 128));
  Bytes expected = patternImage(4096);
  loadImage(expected);
  std::fill_n(expected.begin() + mapAddress, 128, std::uint8_t{0});
  for (const char* missing : {"use_s15_vq", "use_y32_vq"}) {
    pick(missing);
    EXPECT_EQ(editorState.image, expected) << missing;
  }
  pick("use_z32_vq");
  std::fill_n(expected.begin() + mapAddress, 5, std::uint8_t{7});
  EXPECT_EQ(editorState.image, expected);
  EXPECT_EQ(told(), "");
  editorState.image.assign(4096, 0);
  pick("use_z32_vq");
  editorState.english = 0;
  pick("use_s15_vq");
  EXPECT_EQ(told(),
            "ROM DATA reads and been crowded, VQMAP conversion aren't possible.|"
            "ROM DATAが読み込まれていないのに、VQMAP変換はできません。");
  EXPECT_EQ(editorState.image, Bytes(4096));
}

}  // namespace
