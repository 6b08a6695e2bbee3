// The comparison image: what it loads from, when it counts as loaded, and that it leaves the
// working image alone.
#include "imagefiles/intel_hex_file.h"
#include "support.h"

namespace {

using ComparisonImage = ProgramTest;

TEST_F(ComparisonImage, LoadsFromBothFormsBesideTheWorkingImageAndCountsByItsBytes) {
  loadSmallCar();
  editorState.image[0] ^= 1;
  const Bytes edited = editorState.image;
  constexpr int refused = -1;
  // The command, the size, the place of a 9 among zeros, and what counts as loaded.
  const std::tuple<std::string, std::size_t, std::size_t, int> table[] = {
      {"comp_bin", 10, 0, 1},       {"comp_bin", 0, 0, refused},       {"comp_intelHex", 65, 0, 0},
      {"comp_intelHex", 70, 65, 0}, {"comp_intelHex", 64, 1, refused}, {"comp_intelHex", 65, 1, 9},
      {"comp_intelHex", 65, 64, 9}};
  for (const auto& [command, size, set, loaded] : table) {
    SCOPED_TRACE(command + std::to_string(size) + " " + std::to_string(set));
    Bytes image(size);
    if (size > 0) image.at(set) = 9;
    writeBytes("compare", image);
    if (command == "comp_intelHex") writeIntelHex(path("compare"), image);
    editorState.compareLoaded = 5;
    pickFile(command, "compare");
    EXPECT_EQ(told(), loaded == refused ? "*ERROR = [9]　Ill. DATA? compare" : "");
    EXPECT_EQ(editorState.compareLoaded, loaded == refused ? 0 : loaded);
    EXPECT_TRUE(loaded == refused || editorState.compareImage == image);
  }
  EXPECT_TRUE(editorState.image == edited && editorState.imagePath == path("image.bin"));
  desk.openAnswers = {""};
  pick("comp_bin");
  desk.boxAnswers = {BoxAnswer::yes};
  loadImage(patternImage(2048), "next.bin");
  EXPECT_TRUE(editorState.compareLoaded == 9 && editorState.compareImage.at(64) == 9);
}

}  // namespace
