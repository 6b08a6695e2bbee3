// Odd/even pairs in the dialog: joining and splitting in both forms and all sizes, what a refused,
// cancelled or failed command leaves, and saving after a load from a pair.
#include "imagefiles/odd_even.h"

#include <filesystem>
#include <optional>

#include "imagefiles/intel_hex_writer.h"
#include "support.h"

namespace {

Bytes ascii(const std::string& text) { return {text.begin(), text.end()}; }

// What a save writes: every other byte of `image` from `first` on, then as many FF.
Bytes halfFile(const Bytes& image, std::size_t first, bool hex) {
  Bytes half(image.size(), 0xFF);
  for (std::size_t i = first; i < image.size(); i += 2) half[i / 2] = image[i];
  return hex ? ascii(intelHexText(half)) : half;
}

const std::string mayOverwrite =
    "\r\nThe file exists already.Do you preserve it with overwrite coming?";

class OddEvenPairs : public ProgramTest {
 protected:
  OddEvenPairs() {
    startWithMap(smallMap());
    writeText("error.log", "");
  }
  ~OddEvenPairs() override { oddeven.unload(); }

  // Opens the dialog, chooses, presses a button and answers two file dialogs, "" by Cancel. Nothing
  // of the command stays.
  void press(Button& button, int size, bool hex, const std::string& odd, const std::string& even) {
    pick("odd_even_file");
    oddeven.List1.userSelect(size);
    (hex ? oddeven.Option2 : oddeven.Option1).userSelect();
    const auto answer = [this](const std::string& name) { return name.empty() ? "" : path(name); };
    desk.openAnswers = desk.saveAnswers = {answer(odd), answer(even)};
    button.userClick();
    desk.openAnswers.clear();
    desk.saveAnswers.clear();
    EXPECT_TRUE(!oddeven.loaded() && form1().enabled() && !desk.busy);
    EXPECT_EQ(form1().Label13.caption(), "");
  }
  Button& load = oddeven.Command1;
  Button& save = oddeven.Command2;
};

TEST_F(OddEvenPairs, WhatIsSplitIsJoinedInEverySizeAndForm) {
  for (int size = 0; size < 6; ++size) {
    const Bytes image = patternImage(std::size_t{8192} << size, 5);
    for (const bool hex : {false, true}) {
      const std::string setting =
          std::to_string(64 << size) + (hex ? "\r\nIntelHEX" : "\r\nBINARY");
      SCOPED_TRACE(setting);
      const std::string odd = "odd" + std::to_string(2 * size + hex), even = odd + "even";
      editorState.imageSize = 0;
      loadImage(image);
      press(save, size, hex, odd, even);
      EXPECT_TRUE(readBytes(odd) == halfFile(image, 0, hex));
      EXPECT_TRUE(readBytes(even) == halfFile(image, 1, hex));
      EXPECT_NE(readText("zelkova.ini").find("\r\n" + setting + "\r\n"), std::string::npos);
      writeText("zelkova.ini", "");
      editorState.imageSize = 0;
      press(load, size, hex, odd, even);
      EXPECT_TRUE(editorState.image == image && editorState.savedImage == image);
      EXPECT_NE(readText("zelkova.ini").find("\r\n" + setting + "\r\n"), std::string::npos);
    }
  }
  EXPECT_EQ(told(), "");
  std::filesystem::remove(path("zelkova.ini"));
  std::filesystem::create_directory(path("zelkova.ini"));
  press(load, 0, false, "odd0", "odd0even");
  EXPECT_EQ(told(), "*ERROR = [75]");
  EXPECT_EQ(editorState.imageSize, 8192) << "settings that can't be written cost no pair";
}

TEST_F(OddEvenPairs, ShortHexFilesAreFilledWithZerosAndShortRawFilesAreRefused) {
  struct Row {
    const char* what;
    bool hex;
    Bytes odd, even;
    std::optional<Bytes> image;  // nothing: refused
  };
  const Row table[] = {
      {"a long even file", false, Bytes(4096), Bytes(5000), Bytes{}},
      {"a short odd file", false, Bytes(4095, 1), Bytes(4096, 1), {}},
      {"a short even file", false, Bytes(4096, 1), Bytes(4095, 1), {}},
      {"hex", true, ascii(":0100000007\r\n"), ascii(":03000000010203\r\n"),
       Bytes{7, 1, 0, 2, 0, 3}},
      {"no records", true, ascii(":00000001FF\r\n"), ascii("no line end"), Bytes{}},
      {"an empty file", true, {}, ascii(":0100000007F8\r\n"), {}},
      {"200002 bytes", true, ascii(":0100000007\r\n"), ascii(intelHexText(Bytes(200002))), {}}};
  for (const auto& [what, hex, odd, even, image] : table) {
    SCOPED_TRACE(what);
    editorState.imageSize = 0;
    loadImage(patternImage(2048));
    writeBytes("odd", odd);
    writeBytes("even", even);
    press(load, 0, hex, "odd", "even");
    Bytes expected = image.value_or(Bytes{});
    if (image) expected.resize(8192);
    EXPECT_TRUE(editorState.image == expected && editorState.savedImage == expected);
    EXPECT_EQ(editorState.imageSize, std::ssize(expected));
    EXPECT_EQ(editorState.imagePath, path(image ? "even" : "image.bin"));
    EXPECT_EQ(told(), image ? "" : "*ERROR = [9]　Ill. DATA? even");
  }
  EXPECT_NE(readText("error.log").find(" BIN読み込み  9 "), std::string::npos);
  loadImage(patternImage(2048));
  press(load, 0, true, "odd", "gone");
  EXPECT_EQ(told(), "*ERROR = [53]　Ill. DATA? gone");
  EXPECT_TRUE(editorState.image.empty() && editorState.imageSize == 0);
}

TEST_F(OddEvenPairs, TheDialogOpensWithTheLastChoiceAndAsksForAMissingOne) {
  loadImage(patternImage(8192));
  pick("odd_even_file");
  EXPECT_EQ(oddeven.caption() + "|" + oddeven.Label2.caption(),
            "Odd/Even File|Odd files are chosen at first. Next, even files are chosen.");
  EXPECT_TRUE(oddeven.List1.text() == "256" && oddeven.Option1.selected());
  EXPECT_TRUE(oddeven.centredOn() == &form1() && !form1().enabled());
  oddeven.userClose();
  EXPECT_TRUE(!oddeven.loaded() && form1().enabled());
  editorState.english = 0;
  editorState.splitRomKbit = "96";
  editorState.splitFormat = "binary";
  pick("odd_even_file");
  EXPECT_EQ(oddeven.caption() + oddeven.Command1.caption(), "偶数/奇数ファイル読み込み");
  for (Button* button : {&load, &save}) {
    button->userClick();
    oddeven.List1.userSelect(0);
    button->userClick();
    oddeven.List1.setIndex(-1);
    EXPECT_EQ(told(), "Select ROM Size|Select File Format(Binary or IntelHEX)");
    EXPECT_TRUE(oddeven.loaded() && oddeven.topmost());
  }
}

TEST_F(OddEvenPairs, RefusalsDeclinesAndCancelsChangeNothingAndNoBoxStandsBehindTheDialog) {
  writeBytes("odd", Bytes(4096));
  writeText("old", "old");
  desk.whileAsking = [] { EXPECT_FALSE(oddeven.topmost()); };
  press(save, 0, false, "new", "even");
  useMap("no model");
  press(load, 0, false, "odd", "odd");
  useMap(smallMap());
  loadImage(patternImage(8192));
  editorState.image[0] ^= 1;
  desk.boxAnswers = {BoxAnswer::no, BoxAnswer::yes, BoxAnswer::yes, BoxAnswer::cancel};
  press(load, 0, false, "odd", "odd");
  desk.whileAsking = {};
  EXPECT_EQ(told(),
            "Data did to preserve it been crowded as reading.|"
            "An address file reads and been crowded, it aren't possible to read ROM data and be "
            "crowded.|It is crowded as reading, though it aren't preserved for data ?");
  press(load, 1, true, "", "");
  press(load, 1, true, "odd", "");
  press(save, 1, true, "", "");
  press(save, 1, true, "new", "");
  told();
  press(save, 1, false, "new", "old");
  EXPECT_EQ(told(), "old" + mayOverwrite);
  EXPECT_FALSE(std::filesystem::exists(path("new")));
  EXPECT_EQ(form1().caption() + editorState.splitFormat, "image.bin - ZELKOVABINARY");
  EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(editorState.image.at(0x100)));
  EXPECT_EQ(readText("error.log"), "");
}

TEST_F(OddEvenPairs, ASaveLeavesAllNamesAndALoadTakesOneWhoseFileIsNotSimplyOverwritten) {
  const Bytes image = patternImage(16384);
  loadImage(image);
  editorState.dialogPath = path("dialog.bin");
  desk.openDialogs.clear();
  form1().Grid1.setText(1, 1, "77");
  press(save, 0, true, "odd.hex", "even.hex");
  Bytes head(image.begin(), image.begin() + 8192);
  head[0x100] = 77;
  EXPECT_EQ(readBytes("odd.hex"), halfFile(head, 0, true));
  EXPECT_EQ(editorState.imageSize, 8192);
  EXPECT_EQ(editorState.savedImage, image);
  EXPECT_EQ(editorState.imagePath + editorState.dialogPath, path("image.bin") + path("dialog.bin"));
  desk.boxAnswers = {BoxAnswer::yes, BoxAnswer::cancel, BoxAnswer::ok};
  press(load, 0, true, "odd.hex", "even.hex");
  EXPECT_EQ(form1().caption() + form1().Label20.caption(),
            "even.hex - ZELKOVAFile size =  8192 Bytes");
  std::string asked;
  for (const auto& dialogs : {desk.saveDialogs, desk.openDialogs}) {
    for (const FileDialog& d : dialogs) asked += d.title + d.fileName.substr(folder.size()) + "|";
  }
  EXPECT_EQ(asked,
            "Save ODD IntelHEX Image/image.hex|Save EVEN IntelHEX Image/image.hex|"
            "Load ODD IntelHEX Image/dialog.bin|Load EVEN IntelHEX Image/odd.hex|");
  EXPECT_EQ(desk.openDialogs.back().filter, "IntelHEX Image (*.hex)|*.hex");
  told();
  pick("update_bin_file");
  EXPECT_EQ(readBytes("even.hex"), halfFile(head, 1, true));
  EXPECT_FALSE(form1().mnuRecentFile[0]->visible());
  for (int i = 0; i < 2; ++i) {
    pick("update_bin_file");
    EXPECT_EQ(readBytes("even.hex"), ascii(intelHexText(head)));
  }
  EXPECT_EQ(told(), "even.hex" + mayOverwrite + "|even.hex" + mayOverwrite);
}

TEST_F(OddEvenPairs, AFailedSaveLeavesBothOldFilesAndNothingLoaded) {
  std::filesystem::create_directory(path("folder"));
  writeText("odd", "old");
  for (const auto& [size, even, failure] :
       {std::tuple(0, "folder", "|*ERROR = [75]"), std::tuple(1, "new", "|*ERROR = [9]")}) {
    loadImage(patternImage(8192));
    desk.boxAnswers = {BoxAnswer::ok};
    press(save, size, false, "odd", even);
    EXPECT_EQ(told(), "odd" + mayOverwrite + failure);
    EXPECT_EQ(readText("odd"), "old");
    EXPECT_EQ(editorState.imageSize, 0);
  }
  EXPECT_FALSE(std::filesystem::exists(path("new")));
  EXPECT_NE(readText("error.log").find(" BIN別名保存  9 "), std::string::npos);
}

}  // namespace
