// The comparison image: what it loads from, when it counts as loaded, and that it leaves the
// working image alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "imagefiles/intel_hex_writer.h"
#include "platform/failure.h"
#include "support.h"

namespace {

class ComparisonImage : public ProgramTest {
 protected:
  void load(const std::string& command, const std::string& name) {
    desk.openAnswers.push_back(name.empty() ? "" : path(name));
    pick(command);
  }
};

struct LoadCase {
  const char* command;
  const char* what;
  Bytes image;
  int compareLoaded;
  int failure;  // 0: none
};

Bytes tail(std::size_t size, std::size_t place) {
  Bytes bytes(size);
  if (place < size) bytes[place] = 9;
  return bytes;
}

TEST_F(ComparisonImage, LoadsFromBothFormsAndCountsByItsBytes) {
  const std::vector<LoadCase> cases = {
      {"comp_bin", "any bytes", patternImage(300), 1, 0},
      {"comp_bin", "zeros", Bytes(10), 1, 0},
      {"comp_bin", "an empty file", {}, 0, badSubscript},
      {"comp_intelHex", "byte 0 is not counted", tail(65, 0), 0, 0},
      {"comp_intelHex", "byte 1 is counted", tail(65, 1), 9, 0},
      {"comp_intelHex", "byte 64 is counted", tail(70, 64), 9, 0},
      {"comp_intelHex", "byte 65 is not", tail(70, 65), 0, 0},
      {"comp_intelHex", "64 bytes are too few", tail(64, 1), 0, badSubscript},
      {"comp_intelHex", "all bytes set", Bytes(65, 255), 64 * 255, 0},
  };
  startWithMap(smallMap());
  for (const LoadCase& row : cases) {
    SCOPED_TRACE(row.what);
    const bool hex = row.command == std::string("comp_intelHex");
    const std::string name = hex ? "compare.hex" : "compare.bin";
    if (hex) {
      writeIntelHex(path(name), row.image);
    } else {
      writeBytes(name, row.image);
    }
    desk.boxes.clear();
    editorState.compareLoaded = 5;
    load(row.command, name);
    EXPECT_EQ(editorState.compareLoaded, row.compareLoaded);
    EXPECT_EQ(lastBox(), row.failure == 0 ? "" : "*ERROR = [9]　Ill. DATA? " + name);
    if (row.failure == 0) {
      EXPECT_EQ(editorState.compareImage, row.image);
    }
    EXPECT_EQ(form1().Label13.caption(), "");
  }
  EXPECT_EQ(desk.openDialogs.front().title, "Load BIN Image For comparison");
  EXPECT_EQ(desk.openDialogs.front().filter, "Bin Image (*.bin)|*.bin");
  EXPECT_EQ(desk.openDialogs.back().title, "Load IntelHEX Image For comparison");
  EXPECT_EQ(desk.openDialogs.back().filter, "HEX Image (*.hex)|*.hex");
  EXPECT_EQ(desk.openDialogs.back().fileName, "");
}

TEST_F(ComparisonImage, LeavesTheWorkingImageAlone) {
  startWithMap(smallMap());
  loadImage(patternImage(4096));
  editorState.image[0] ^= 1;
  const EditorState before = editorState;
  writeBytes("compare.bin", patternImage(128, 7));
  load("comp_bin", "compare.bin");
  EXPECT_EQ(editorState.image, before.image);
  EXPECT_EQ(editorState.imagePath, before.imagePath);
  EXPECT_EQ(editorState.dialogPath, before.dialogPath);
  EXPECT_EQ(editorState.dialogTitle, before.dialogTitle);
  EXPECT_EQ(form1().Label35.caption(), "COMP. compare.bin");
  EXPECT_EQ(form1().caption(), "image.bin - ZELKOVA");
  desk.boxAnswers = {BoxAnswer::yes};
  loadImage(patternImage(2048), "next.bin");
  EXPECT_EQ(editorState.compareImage, patternImage(128, 7));
  EXPECT_EQ(editorState.compareLoaded, 1);
  EXPECT_EQ(form1().Label35.caption(), "COMP. compare.bin");
}

TEST_F(ComparisonImage, CancellingKeepsTheFormerOneAndAFailureEndsItsUse) {
  startWithMap(smallMap());
  writeText("error.log", "");
  writeBytes("compare.bin", patternImage(128));
  load("comp_bin", "compare.bin");
  load("comp_intelHex", "");
  EXPECT_EQ(editorState.compareLoaded, 1);
  EXPECT_EQ(editorState.compareTitle, "compare.bin");
  EXPECT_EQ(editorState.compareImage, patternImage(128));
  load("comp_intelHex", "missing.hex");
  EXPECT_EQ(lastBox(), "*ERROR = [53]　Ill. DATA? missing.hex");
  EXPECT_EQ(editorState.compareLoaded, 0);
  EXPECT_EQ(form1().Label35.caption(), "COMP. compare.bin");
  EXPECT_NE(readText("error.log").find(" Comp IntelHEX読み込み  53 "), std::string::npos);
  load("comp_bin", "missing.bin");
  EXPECT_NE(readText("error.log").find(" COMP BIN読み込み  53 "), std::string::npos);
}

TEST_F(ComparisonImage, NeedsAnAddressMap) {
  start();
  pick("comp_bin");
  pick("comp_intelHex");
  EXPECT_EQ(desk.boxes.size(), 2U);
  EXPECT_TRUE(desk.openDialogs.empty());
  EXPECT_EQ(lastBox(), "機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。");
}

}  // namespace
