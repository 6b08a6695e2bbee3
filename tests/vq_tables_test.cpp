// The nine airflow commands: which bytes land where, the boxes, and the files that the tables come
// from.
#include "imagefiles/vq_tables.h"

#include <filesystem>

#include "support.h"

namespace {

constexpr int mapAddress = 0x200;
using VqTables = ProgramTest;

TEST_F(VqTables, EachCommandPutsTheEndOfItsTableIntoTheMapUnlessTheMapIsLonger) {
  struct Row {
    std::string command;
    int tableBytes, mapBytes, imageBytes;
    std::size_t fileBytes;  // 0: no file
  };
  const Row table[] = {
      {"use_z32_vq", 128, 128, 4096, 200},   {"use_hcr32_vq", 128, 128, 4096, 200},
      {"use_bnr32_vq", 128, 128, 4096, 200}, {"user_ecr33_vq", 128, 128, 4096, 200},
      {"use_y32_vq", 128, 128, 4096, 200},   {"use_s13_vq", 104, 104, 4096, 200},
      {"use_ps13_vq", 128, 128, 4096, 200},  {"use_s14_vq", 128, 128, 4096, 200},
      {"use_s15_vq", 128, 128, 4096, 200},   {"use_z32_vq", 128, 120, 4096, 200},
      {"use_z32_vq", 128, 0, 4096, 200},     {"use_z32_vq", 128, 130, 4096, 200},
      {"use_s13_vq", 104, 105, 4096, 200},   {"use_z32_vq", 128, 128, 528, 200},
      {"use_s14_vq", 128, 128, 4096, 5},     {"use_s15_vq", 128, 128, 4096, 0}};
  std::filesystem::create_directory(path("vqmap"));
  for (const Row& row : table) {
    SCOPED_TRACE(row.command + " " + std::to_string(row.mapBytes));
    Bytes engine = patternImage(row.fileBytes, static_cast<std::uint32_t>(&row - table));
    const std::string file = "vqmap/" + row.command.substr(row.command.find('_') + 1) + "_map.bin";
    writeBytes(file, engine);
    if (engine.empty()) std::filesystem::remove(path(file));
    engine.resize(200);
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
    if (skipped < 0) {
      EXPECT_TRUE(told().starts_with("They can convert it, as there are VQMAP 128 size"));
    } else {
      EXPECT_EQ(told(), skipped > 0 ? cut : beyond);
    }
    const std::string word = std::to_string(expected[mapAddress] * 256 + expected[mapAddress + 1]);
    EXPECT_TRUE(row.mapBytes == 0 || form1().Grid5.text(1, 1) == word);
    EXPECT_EQ(form1().Grid5.text(1, 0), row.mapBytes == 0 ? "" : "0200") << "no header either";
  }
  editorState.image.assign(4096, 0);
  pick("use_z32_vq");
  EXPECT_EQ(told(), "ROM DATA reads and been crowded, VQMAP conversion aren't possible.");
  EXPECT_EQ(editorState.image, Bytes(4096));
}

}  // namespace
