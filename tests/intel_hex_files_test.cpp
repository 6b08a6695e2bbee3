// Loading and saving Intel HEX by the menu, and saving in the form that the image's name tells.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "imagefiles/intel_hex_writer.h"
#include "platform/failure.h"
#include "support.h"

namespace {

class IntelHexFiles : public ProgramTest {
 protected:
  void writeHex(const std::string& name, const Bytes& image) { writeIntelHex(path(name), image); }
  void loadHex(const std::string& name) {
    desk.openAnswers.push_back(path(name));
    pick("LOAD_IntelHEX_FILE");
  }
  void saveHex(const std::string& name) {
    desk.saveAnswers.push_back(path(name));
    pick("ANY_NAME_SAVE_IntelHEX");
  }
  std::string hexOf(const Bytes& image) { return intelHexText(image); }
  std::string contentOf(const std::string& name) {
    const Bytes bytes = readBytes(name);
    return {bytes.begin(), bytes.end()};
  }
  void expectIdle() {
    EXPECT_EQ(form1().Label13.caption(), "");
    EXPECT_EQ(form1().ProgressBar1.value(), 0);
    EXPECT_FALSE(desk.busy);
  }
};

TEST_F(IntelHexFiles, ALoadedImageIsShownAndCountsAsSaved) {
  startWithMap(smallMap());
  editorState.dialogPath = path("before.bin");
  editorState.romFolder = folder;
  const Bytes image = patternImage(32768);
  writeHex("car.hex", image);
  loadHex("car.hex");
  EXPECT_EQ(editorState.image, image);
  EXPECT_EQ(editorState.savedImage, image);
  EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(image[0x100]));
  EXPECT_EQ(form1().Label20.caption(), "File size =  32768 Bytes");
  EXPECT_EQ(form1().caption(), "car.hex - ZELKOVA");
  EXPECT_EQ(editorState.imagePath, path("car.hex"));
  EXPECT_FALSE(form1().mnuRecentFile[0]->visible());
  expectIdle();
  const FileDialog& dialog = desk.openDialogs.back();
  EXPECT_EQ(dialog.filter, "HEX Image (*.hex)|*.hex");
  EXPECT_EQ(dialog.title, "Load IntelHEX Image");
  EXPECT_EQ(dialog.folder, folder);
  EXPECT_EQ(dialog.fileName, path("before.hex"));
}

TEST_F(IntelHexFiles, AFailedLoadLeavesNothingLoadedAndIsTold) {
  const std::vector<std::pair<std::string, int>> cases = {
      {"", badSubscript}, {":0100000041\n", badSubscript}, {":01FFFF0041\r\n", badSubscript}};
  startWithMap(smallMap());
  writeText("error.log", "");
  for (const auto& [text, number] : cases) {
    loadImage(patternImage(4096));
    writeText("bad.hex", text);
    loadHex("bad.hex");
    EXPECT_EQ(lastBox(), "*ERROR = [" + std::to_string(number) + "]　Ill. DATA? bad.hex") << text;
    EXPECT_TRUE(editorState.image.empty() && editorState.savedImage.empty());
    EXPECT_EQ(editorState.imageSize, 0);
    EXPECT_EQ(editorState.imagePath, path("image.bin"));
    EXPECT_EQ(form1().Grid1.text(1, 1), "");
    expectIdle();
  }
  loadHex("missing.hex");
  EXPECT_EQ(lastBox(), "*ERROR = [53]　Ill. DATA? missing.hex");
  EXPECT_NE(readText("error.log").find(" IntelHEX読み込み  53 File not found\r\n"),
            std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(path("missing.hex")));
}

TEST_F(IntelHexFiles, ARefusedOrCancelledLoadChangesNothing) {
  start();
  pick("LOAD_IntelHEX_FILE");
  EXPECT_EQ(lastBox(), "機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。");
  editorState.english = 1;
  pick("LOAD_IntelHEX_FILE");
  EXPECT_EQ(lastBox(),
            "An address file reads and been crowded, it aren't possible to read ROM data and be "
            "crowded.");
  EXPECT_EQ(desk.boxes.back().title, "Error");
  EXPECT_TRUE(desk.openDialogs.empty());

  editorState.addressMap.typeUnit = "SMALL";
  loadImage(patternImage(4096));
  writeText("error.log", "");
  desk.openAnswers.push_back("");
  pick("LOAD_IntelHEX_FILE");
  EXPECT_EQ(desk.boxes.size(), 2U);
  EXPECT_EQ(editorState.image, patternImage(4096));
  EXPECT_EQ(readText("error.log"), "");
}

TEST_F(IntelHexFiles, TheGuardAsksBeforeALoad) {
  startWithMap(smallMap());
  loadImage(patternImage(4096));
  editorState.image[0] ^= 1;
  desk.boxAnswers = {BoxAnswer::no};
  pick("LOAD_IntelHEX_FILE");
  EXPECT_TRUE(desk.openDialogs.size() == 1);
  EXPECT_EQ(editorState.imageSize, 4096);
}

TEST_F(IntelHexFiles, ASaveWritesTheEditedImageAndNamesIt) {
  startWithMap(smallMap());
  pick("ANY_NAME_SAVE_IntelHEX");
  EXPECT_EQ(lastBox(), "Data did to preserve it been crowded as reading.");
  Bytes image = patternImage(65536);
  loadImage(image);
  form1().Grid1.setText(1, 1, "77");
  image[0x100] = 77;
  saveHex("car.hex");
  expectIdle();
  EXPECT_EQ(contentOf("car.hex"), hexOf(image));
  EXPECT_EQ(editorState.savedImage, image);
  EXPECT_EQ(form1().caption(), "car.hex - ZELKOVA");
  EXPECT_EQ(form1().mnuRecentFile[0]->caption(), path("car.hex"));
  const FileDialog& dialog = desk.saveDialogs.back();
  EXPECT_EQ(dialog.filter, "IntelHEX Image (*.hex)|*.hex");
  EXPECT_EQ(dialog.title, "Save IntelHEX Image");
  EXPECT_EQ(dialog.fileName, path("image.hex"));
}

TEST_F(IntelHexFiles, AnExistingFileIsOverwrittenOnlyAfterAsking) {
  startWithMap(smallMap());
  loadImage(patternImage(4096));
  writeText("car.hex", "old");
  desk.boxAnswers = {BoxAnswer::cancel, BoxAnswer::ok};
  saveHex("car.hex");
  EXPECT_EQ(contentOf("car.hex"), "old");
  EXPECT_EQ(desk.boxes.back().title, "A file exists already.");
  EXPECT_EQ(lastBox(),
            "car.hex\r\nThe file exists already.Do you preserve it with overwrite coming?");
  EXPECT_EQ(editorState.imagePath, path("image.bin"));
  saveHex("car.hex");
  EXPECT_EQ(contentOf("car.hex"), hexOf(patternImage(4096)));
}

TEST_F(IntelHexFiles, AFailedSaveIsToldAndKeepsTheName) {
  startWithMap(smallMap());
  writeText("error.log", "");
  loadImage(patternImage(4096));
  saveHex("missing/car.hex");
  EXPECT_EQ(lastBox(), "*ERROR = [76]");
  EXPECT_NE(readText("error.log").find(" IntelHEX別名保存  76 "), std::string::npos);
  EXPECT_EQ(editorState.imagePath, path("image.bin"));
  EXPECT_FALSE(form1().mnuRecentFile[0]->visible());
  expectIdle();
}

TEST_F(IntelHexFiles, SavingFollowsTheNameOfTheImage) {
  startWithMap(smallMap());
  Bytes image = patternImage(4096);
  writeHex("car.hex", image);
  loadHex("car.hex");
  form1().Grid1.setText(1, 1, "77");
  image[0x100] = 77;
  pick("update_bin_file");
  EXPECT_EQ(contentOf("car.hex"), hexOf(image));
  EXPECT_EQ(editorState.savedImage, image);
  EXPECT_EQ(form1().mnuRecentFile[0]->caption(), path("car.hex"));
  loadImage(image, "raw.Hex");
  pick("update_bin_file");
  EXPECT_EQ(contentOf("raw.Hex"), hexOf(image));
  loadImage(image, "other.bin");
  pick("update_bin_file");
  EXPECT_EQ(readBytes("other.bin"), image);
}

}  // namespace
