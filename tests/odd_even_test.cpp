// Odd/even pairs in the dialog: joining and splitting in both forms and all sizes, what a refused,
// cancelled or failed command leaves, and saving after a load from a pair.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "imagefiles/intel_hex_writer.h"
#include "imagefiles/odd_even.h"
#include "platform/failure.h"
#include "support.h"

namespace {

const std::vector<std::pair<const char*, std::size_t>> sizes = {{"64", 8192},     {"128", 16384},
                                                                {"256", 32768},   {"512", 65536},
                                                                {"1024", 131072}, {"2048", 262144}};

class OddEvenPairs : public ProgramTest {
 protected:
  ~OddEvenPairs() override { oddeven.unload(); }

  void startWithCar() {
    startWithMap(smallMap());
    writeText("error.log", "");
  }
  // Opens the dialog and chooses by hand.
  void open(int size, bool hex) {
    pick("odd_even_file");
    oddeven.List1.userSelect(size);
    (hex ? oddeven.Option2 : oddeven.Option1).userSelect();
  }
  void load(const std::string& odd, const std::string& even) {
    desk.openAnswers = {path(odd), path(even)};
    oddeven.Command1.userClick();
  }
  void save(const std::string& odd, const std::string& even) {
    desk.saveAnswers = {path(odd), path(even)};
    oddeven.Command2.userClick();
  }
  void expectClosed() {
    EXPECT_FALSE(oddeven.loaded());
    EXPECT_TRUE(form1().enabled());
    EXPECT_EQ(form1().Label13.caption(), "");
    EXPECT_FALSE(desk.busy);
  }
  // Every other byte of `image` from `first` on, then as many FF.
  static Bytes halfFile(const Bytes& image, std::size_t first) {
    Bytes half;
    for (std::size_t i = first; i < image.size(); i += 2) half.push_back(image[i]);
    half.resize(image.size(), 0xFF);
    return half;
  }
  static Bytes textBytes(const Bytes& image) {
    const std::string text = intelHexText(image);
    return {text.begin(), text.end()};
  }
};

TEST_F(OddEvenPairs, WhatIsSplitIsJoinedInEverySizeAndForm) {
  startWithCar();
  for (int i = 0; i < std::ssize(sizes); ++i) {
    const auto& [kbit, bytes] = sizes[static_cast<std::size_t>(i)];
    const Bytes image = patternImage(bytes, 5);
    for (const bool hex : {false, true}) {
      SCOPED_TRACE(kbit + std::string(hex ? " Intel HEX" : " binary"));
      editorState.imageSize = 0;
      loadImage(image);
      open(i, hex);
      std::filesystem::remove(path("odd"));
      std::filesystem::remove(path("even"));
      save("odd", "even");
      expectClosed();
      const Bytes odd = halfFile(image, 0);
      EXPECT_TRUE(readBytes("odd") == (hex ? textBytes(odd) : odd));
      EXPECT_TRUE(readBytes("even") == (hex ? textBytes(halfFile(image, 1)) : halfFile(image, 1)));
      editorState.imageSize = 0;
      open(i, hex);
      load("odd", "even");
      expectClosed();
      EXPECT_TRUE(editorState.image == image && editorState.savedImage == image);
      EXPECT_EQ(editorState.splitRomKbit, kbit);
      EXPECT_EQ(editorState.splitFormat, hex ? "IntelHEX" : "BINARY");
    }
  }
  EXPECT_TRUE(desk.boxes.empty());
  EXPECT_NE(readText("zelkova.ini").find("\r\n2048\r\nIntelHEX\r\n"), std::string::npos);
}

TEST_F(OddEvenPairs, TheOddFileHoldsTheFirstByteAndTheEvenFileNamesTheImage) {
  startWithCar();
  editorState.dialogPath = path("before.bin");
  editorState.romFolder = folder;
  Bytes odd(4096), even(5000);
  for (std::size_t k = 0; k < 4; ++k) {
    odd[k] = static_cast<std::uint8_t>(0x11 * k);
    even[k] = static_cast<std::uint8_t>(0x11 * (k + 4));
  }
  writeBytes("odd.bin", odd);
  writeBytes("even.bin", even);
  open(0, false);
  load("odd.bin", "even.bin");
  const Bytes head(editorState.image.begin(), editorState.image.begin() + 8);
  EXPECT_EQ(head, (Bytes{0x00, 0x44, 0x11, 0x55, 0x22, 0x66, 0x33, 0x77}));
  EXPECT_EQ(editorState.imageSize, 8192);
  EXPECT_EQ(form1().caption(), "even.bin - ZELKOVA");
  EXPECT_EQ(form1().Label20.caption(), "File size =  8192 Bytes");
  ASSERT_EQ(desk.openDialogs.size(), 2U);
  EXPECT_EQ(desk.openDialogs[0].title, "Load ODD BIN Image");
  EXPECT_EQ(desk.openDialogs[0].fileName, path("before.bin"));
  EXPECT_EQ(desk.openDialogs[0].folder, folder);
  EXPECT_EQ(desk.openDialogs[1].title, "Load EVEN BIN Image");
  EXPECT_EQ(desk.openDialogs[1].fileName, path("odd.bin"));
}

struct LoadCase {
  const char* what;
  bool hex;
  Bytes odd;
  Bytes even;
  bool loads;
};

Bytes ascii(const std::string& text) { return {text.begin(), text.end()}; }

TEST_F(OddEvenPairs, ShortHexFilesAreFilledWithZerosAndShortRawFilesAreRefused) {
  const Bytes full(4096, 1);
  const Bytes tooMany = textBytes(Bytes(200002, 1));
  const std::vector<LoadCase> cases = {
      {"exact halves", false, full, full, true},
      {"a short odd file", false, Bytes(4095, 1), full, false},
      {"a short even file", false, full, Bytes(4095, 1), false},
      {"an empty file", false, full, {}, false},
      {"few records", true, ascii(":0100000007F8\r\n"), ascii(":0300000001020300\r\n"), true},
      {"no records", true, ascii(":00000001FF\r\n"), ascii("no line end"), true},
      {"an empty hex file", true, {}, ascii(":0100000007F8\r\n"), false},
      {"more than 200001 bytes", true, tooMany, tooMany, false},
      {"a bad first address", true, ascii(":0180000007F8\r\n"), ascii(":00000001FF\r\n"), false},
  };
  startWithCar();
  for (const LoadCase& row : cases) {
    SCOPED_TRACE(row.what);
    editorState.imageSize = 0;
    loadImage(patternImage(2048));
    desk.boxes.clear();
    writeBytes("odd", row.odd);
    writeBytes("even", row.even);
    open(0, row.hex);
    load("odd", "even");
    expectClosed();
    if (row.loads) {
      EXPECT_EQ(editorState.imageSize, 8192);
      EXPECT_TRUE(desk.boxes.empty());
    } else {
      EXPECT_EQ(lastBox(), "*ERROR = [9]　Ill. DATA? even");
      EXPECT_EQ(editorState.imageSize, 0);
      EXPECT_TRUE(editorState.image.empty() && editorState.savedImage.empty());
      EXPECT_EQ(editorState.imagePath, path("image.bin"));
    }
  }
  EXPECT_NE(readText("error.log").find(" BIN読み込み  9 "), std::string::npos);
}

TEST_F(OddEvenPairs, RecordsGoToTheirHalvesAndTheRestIsZero) {
  startWithCar();
  writeBytes("odd", ascii(":010000000700\r\n"));
  writeBytes("even", ascii(":030000000102030000\r\n"));
  open(0, true);
  load("odd", "even");
  Bytes expected(8192);
  expected[0] = 7;
  expected[1] = 1;
  expected[3] = 2;
  expected[5] = 3;
  EXPECT_EQ(editorState.image, expected);
}

TEST_F(OddEvenPairs, TheDialogOpensWithTheLastChoiceAndItsLanguage) {
  startWithCar();
  pick("odd_even_file");
  EXPECT_EQ(oddeven.caption(), "Odd/Even File");
  EXPECT_EQ(oddeven.Label2.caption(),
            "Odd files are chosen at first. Next, even files are chosen.");
  EXPECT_EQ(oddeven.Command2.caption(), "Save ODD/EVEN Files");
  EXPECT_EQ(oddeven.List1.text(), "256");
  EXPECT_TRUE(oddeven.Option1.selected());
  EXPECT_TRUE(oddeven.topmost() && oddeven.centredOn() == &form1());
  EXPECT_FALSE(form1().enabled());
  oddeven.userClose();
  expectClosed();
  editorState.english = 0;
  editorState.splitRomKbit = "96";
  editorState.splitFormat = "binary";
  pick("odd_even_file");
  EXPECT_EQ(oddeven.caption(), "偶数/奇数ファイル");
  EXPECT_EQ(oddeven.Command1.caption(), "読み込み");
  EXPECT_EQ(oddeven.List1.index(), -1);
  EXPECT_EQ(oddeven.formats.selected(), nullptr);
}

TEST_F(OddEvenPairs, AMissingChoiceIsAskedForAndTheDialogStays) {
  startWithCar();
  loadImage(patternImage(8192));
  editorState.splitRomKbit = "";
  editorState.splitFormat = "";
  pick("odd_even_file");
  for (Button* button : {&oddeven.Command1, &oddeven.Command2}) {
    oddeven.List1.setIndex(-1);
    button->userClick();
    EXPECT_EQ(lastBox(), "Select ROM Size");
    EXPECT_EQ(desk.boxes.back().title, "Information");
    oddeven.List1.userSelect(0);
    button->userClick();
    EXPECT_EQ(lastBox(), "Select File Format(Binary or IntelHEX)");
    EXPECT_TRUE(oddeven.loaded() && oddeven.topmost());
  }
  EXPECT_TRUE(desk.openDialogs.size() == 1 && desk.saveDialogs.empty());
  EXPECT_EQ(editorState.imageSize, 8192);
}

TEST_F(OddEvenPairs, RefusalsCloseTheDialog) {
  start();
  pick("odd_even_file");
  oddeven.Command1.userClick();
  EXPECT_EQ(lastBox(), "機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。");
  expectClosed();
  pick("odd_even_file");
  oddeven.Command2.userClick();
  EXPECT_EQ(lastBox(), "データが読み込まれていないのに保存しようとしました。");
  expectClosed();
}

TEST_F(OddEvenPairs, NoBoxStandsBehindTheDialog) {
  startWithCar();
  loadImage(patternImage(8192));
  editorState.image[0] ^= 1;
  writeText("odd", "old");
  bool covered = false;
  desk.whileAsking = [&] { covered = covered || oddeven.topmost(); };
  desk.boxAnswers = {BoxAnswer::no, BoxAnswer::cancel};
  open(0, false);
  oddeven.Command1.userClick();
  expectClosed();
  EXPECT_FALSE(covered);
  desk.whileAsking = {};
  open(0, false);
  save("odd", "even");
  expectClosed();
  EXPECT_EQ(readBytes("odd"), ascii("old"));
  EXPECT_FALSE(std::filesystem::exists(path("even")));
}

TEST_F(OddEvenPairs, CancelledFileDialogsChangeNothing) {
  startWithCar();
  loadImage(patternImage(8192));
  writeBytes("odd", Bytes(4096));
  const std::vector<std::pair<Button*, std::vector<std::string>>> cases = {
      {&oddeven.Command1, {""}},
      {&oddeven.Command1, {path("odd"), ""}},
      {&oddeven.Command2, {""}},
      {&oddeven.Command2, {path("new"), ""}}};
  for (const auto& [button, answers] : cases) {
    open(1, true);
    desk.openAnswers = {answers.begin(), answers.end()};
    desk.saveAnswers = desk.openAnswers;
    button->userClick();
    expectClosed();
    EXPECT_EQ(editorState.image, patternImage(8192));
    EXPECT_EQ(editorState.imageSize, 8192);
    EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(patternImage(8192)[0x100]));
    EXPECT_EQ(editorState.splitFormat, "BINARY");
    desk.openAnswers.clear();
    desk.saveAnswers.clear();
  }
  EXPECT_TRUE(desk.boxes.empty());
  EXPECT_EQ(readText("error.log"), "");
}

TEST_F(OddEvenPairs, ASaveLeavesNamesAndTheGuardAsTheyWere) {
  startWithCar();
  loadImage(patternImage(16384));
  editorState.dialogPath = path("dialog.bin");
  form1().Grid1.setText(1, 1, "77");
  open(0, true);
  save("odd", "even");
  Bytes head = patternImage(16384);
  head.resize(8192);
  head[0x100] = 77;
  EXPECT_EQ(readBytes("odd"), textBytes(halfFile(head, 0)));
  EXPECT_NE(readText("zelkova.ini").find("\r\n64\r\nIntelHEX\r\n"), std::string::npos);
  EXPECT_EQ(editorState.imageSize, 8192);
  EXPECT_EQ(editorState.savedImage, patternImage(16384));
  EXPECT_EQ(editorState.imagePath, path("image.bin"));
  EXPECT_EQ(editorState.dialogPath, path("dialog.bin"));
  EXPECT_FALSE(form1().mnuRecentFile[0]->visible());
  ASSERT_EQ(desk.saveDialogs.size(), 2U);
  EXPECT_EQ(desk.saveDialogs[0].fileName, path("image.hex"));
  EXPECT_EQ(desk.saveDialogs[0].title, "Save ODD IntelHEX Image");
  EXPECT_EQ(desk.saveDialogs[1].title, "Save EVEN IntelHEX Image");
  EXPECT_EQ(desk.saveDialogs[1].filter, "IntelHEX Image (*.hex)|*.hex");
}

TEST_F(OddEvenPairs, AFailedSaveLeavesBothOldFiles) {
  startWithCar();
  writeText("odd", "old odd");
  std::filesystem::create_directory(path("even"));
  const std::size_t files = static_cast<std::size_t>(std::distance(
      std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
  loadImage(patternImage(8192));
  desk.boxAnswers = {BoxAnswer::ok};
  open(0, false);
  save("odd", "even");
  EXPECT_EQ(lastBox(), "*ERROR = [75]");
  EXPECT_EQ(readBytes("odd"), ascii("old odd"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder),
                          std::filesystem::directory_iterator()),
            static_cast<std::ptrdiff_t>(files + 1));
  EXPECT_EQ(editorState.imageSize, 0);
  expectClosed();
  loadImage(patternImage(8192));
  open(1, false);
  save("new odd", "new even");
  EXPECT_EQ(lastBox(), "*ERROR = [9]");
  EXPECT_FALSE(std::filesystem::exists(path("new odd")));
  EXPECT_NE(readText("error.log").find(" BIN別名保存  9 "), std::string::npos);
}

TEST_F(OddEvenPairs, SavingTheWholeOverOneHalfIsAskedFirst) {
  startWithCar();
  writeBytes("odd.bin", Bytes(4096, 1));
  writeBytes("even.bin", Bytes(4096, 2));
  open(0, false);
  load("odd.bin", "even.bin");
  desk.boxAnswers = {BoxAnswer::cancel, BoxAnswer::ok};
  pick("update_bin_file");
  EXPECT_EQ(lastBox(),
            "even.bin\r\nThe file exists already.Do you preserve it with overwrite coming?");
  EXPECT_EQ(readBytes("even.bin"), Bytes(4096, 2));
  EXPECT_FALSE(form1().mnuRecentFile[0]->visible());
  pick("update_bin_file");
  EXPECT_EQ(readBytes("even.bin"), editorState.image);
  pick("update_bin_file");
  EXPECT_EQ(desk.boxes.size(), 2U);
}

}  // namespace
