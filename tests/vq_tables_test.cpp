// The nine airflow commands: which bytes land where, the boxes, and the files that the tables come
// from.
#include "imagefiles/vq_tables.h"

#include <filesystem>

#include "support.h"

namespace {

constexpr int mapAddress = 0x200;
using VqTables = ProgramTest;

TEST_F(VqTables, EachCommandPutsTheEndOfItsTableIntoTheMapUnlessTheMapIsLonger) {
  // Bytes of the table, the map, the image and the table's file; 0: no file.
  const std::tuple<std::string, int, int, int, std::size_t> table[] = {
      {"use_z32_vq", 128, 128, 4096, 200},   {"use_hcr32_vq", 128, 128, 4096, 200},
      {"use_bnr32_vq", 128, 128, 4096, 200}, {"user_ecr33_vq", 128, 128, 4096, 200},
      {"use_y32_vq", 128, 128, 4096, 200},   {"use_s13_vq", 104, 104, 4096, 200},
      {"use_ps13_vq", 128, 128, 4096, 200},  {"use_s14_vq", 128, 128, 4096, 200},
      {"use_s15_vq", 128, 128, 4096, 200},   {"use_z32_vq", 128, 120, 4096, 200},
      {"use_z32_vq", 128, 0, 4096, 200},     {"use_z32_vq", 128, 130, 4096, 200},
      {"use_s13_vq", 104, 105, 4096, 200},   {"use_z32_vq", 128, 128, 528, 200},
      {"use_s14_vq", 128, 128, 4096, 5},     {"use_s15_vq", 128, 128, 4096, 0}};
  std::filesystem::create_directory(path("vqmap"));
  std::uint32_t seed = 0;
  for (const auto& [command, tableBytes, mapBytes, imageBytes, fileBytes] : table) {
    SCOPED_TRACE(command + " " + std::to_string(mapBytes));
    Bytes engine = patternImage(fileBytes, seed++);
    const std::string file = "vqmap/" + command.substr(command.find('_') + 1) + "_map.bin";
    writeBytes(file, engine);
    if (engine.empty()) std::filesystem::remove(path(file));
    engine.resize(200);
    startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("VQ_MAP", "&H200", 64, 1, mapBytes));
    Bytes expected = patternImage(static_cast<std::size_t>(imageBytes));
    loadImage(expected);
    told();
    pick(command);
    EXPECT_EQ(editorState.savedImage, expected);
    const int skipped = tableBytes - mapBytes;
    for (int k = 0; k < mapBytes && skipped >= 0 && mapAddress + k < imageBytes; ++k) {
      expected.at(mapAddress + k) = engine.at(skipped + k);
    }
    EXPECT_EQ(editorState.image, expected);
    const std::string cut = "I stuffed  " + std::to_string(skipped) +
                            " byte of a head and glued and attached it from behind.";
    const std::string beyond = imageBytes < 4096 ? "ERROR (Function:MAP_DRAW)" : "";
    if (skipped < 0) {
      EXPECT_TRUE(told().starts_with("They can convert it, as there are VQMAP 128 size"));
    } else {
      EXPECT_EQ(told(), skipped > 0 ? cut : beyond);
    }
    const std::string word = std::to_string(expected[mapAddress] * 256 + expected[mapAddress + 1]);
    EXPECT_TRUE(mapBytes == 0 || form1().Grid5.text(1, 1) == word);
    EXPECT_EQ(form1().Grid5.text(1, 0), mapBytes == 0 ? "" : "0200") << "no header either";
  }
  editorState.image.assign(4096, 0);
  pick("use_z32_vq");
  EXPECT_EQ(told(), "ROM DATA reads and been crowded, VQMAP conversion aren't possible.");
  EXPECT_EQ(editorState.image, Bytes(4096));
}

}  // namespace
