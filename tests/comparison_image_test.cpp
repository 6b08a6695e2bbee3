// The comparison image: what it loads from, when it counts as loaded, and that it leaves the
// working image alone.
#include "imagefiles/intel_hex_writer.h"
#include "support.h"

namespace {

class ComparisonImage : public ProgramTest {
 protected:
  ComparisonImage() { startWithMap(smallMap()); }
};

TEST_F(ComparisonImage, LoadsFromBothFormsAndCountsByItsBytes) {
  constexpr int refused = -1;
  struct Row {
    const char* command;
    std::size_t size, set;  // the place of a 9 among zeros
    int loaded;
  };
  const Row table[] = {{"comp_bin", 10, 0, 1},           {"comp_bin", 0, 0, refused},
                       {"comp_intelHex", 65, 0, 0},      {"comp_intelHex", 65, 1, 9},
                       {"comp_intelHex", 65, 64, 9},     {"comp_intelHex", 70, 65, 0},
                       {"comp_intelHex", 64, 1, refused}};
  for (const Row& row : table) {
    SCOPED_TRACE(row.command + std::to_string(row.size) + " " + std::to_string(row.set));
    Bytes image(row.size);
    if (row.size > 0) image.at(row.set) = 9;
    writeBytes("compare", image);
    if (row.command == std::string("comp_intelHex")) writeIntelHex(path("compare"), image);
    editorState.compareLoaded = 5;
    pickFile(row.command, "compare");
    EXPECT_EQ(told(), row.loaded == refused ? "*ERROR = [9]　Ill. DATA? compare" : "");
    EXPECT_EQ(editorState.compareLoaded, row.loaded == refused ? 0 : row.loaded);
    EXPECT_TRUE(row.loaded == refused || editorState.compareImage == image);
    EXPECT_EQ(form1().Label13.caption(), "");
  }
  EXPECT_EQ(desk.openDialogs.front().title + desk.openDialogs.front().filter,
            "Load BIN Image For comparisonBin Image (*.bin)|*.bin");
  EXPECT_EQ(desk.openDialogs.back().title + desk.openDialogs.back().filter,
            "Load IntelHEX Image For comparisonHEX Image (*.hex)|*.hex");
}

TEST_F(ComparisonImage, LeavesTheWorkingImageAloneAndOutlivesIt) {
  loadImage(patternImage(4096));
  editorState.image[0] ^= 1;
  const EditorState before = editorState;
  writeBytes("compare.bin", patternImage(128, 7));
  pickFile("comp_bin", "compare.bin");
  EXPECT_EQ(editorState.image, before.image);
  EXPECT_EQ(editorState.imagePath + editorState.dialogPath + editorState.dialogTitle,
            before.imagePath + before.dialogPath + before.dialogTitle);
  EXPECT_EQ(told(), "") << "no guard";
  desk.boxAnswers = {BoxAnswer::yes};
  loadImage(patternImage(2048), "next.bin");
  EXPECT_EQ(editorState.compareImage, patternImage(128, 7));
  EXPECT_EQ(editorState.compareLoaded, 1);
  EXPECT_EQ(form1().Label35.caption(), "COMP. compare.bin");
}

TEST_F(ComparisonImage, RefusalsAndCancelsKeepTheFormerOneAndAFailureEndsItsUse) {
  writeBytes("compare.bin", patternImage(128));
  writeText("error.log", "");
  for (const auto& [command, location] : {std::pair("comp_intelHex", " Comp IntelHEX読み込み  53 "),
                                          std::pair("comp_bin", " COMP BIN読み込み  53 ")}) {
    pickFile("comp_bin", "compare.bin");
    desk.openAnswers = {""};
    pick(command);
    useMap("no model");
    pick(command);
    EXPECT_TRUE(told().starts_with("An address file reads and been crowded"));
    EXPECT_EQ(editorState.compareLoaded, 1);
    EXPECT_EQ(editorState.compareImage, patternImage(128));
    useMap(smallMap());
    pickFile(command, "missing");
    EXPECT_EQ(told(), "*ERROR = [53]　Ill. DATA? missing");
    EXPECT_EQ(editorState.compareLoaded, 0);
    EXPECT_EQ(readText("error.log").find(location), 14U);
  }
}

}  // namespace
