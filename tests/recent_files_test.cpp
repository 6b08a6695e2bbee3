// Recent files: which saves enter the list, its order in store and menu, clearing it, and loading
// from it.
#include "imagefiles/recent_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "imagefiles/intel_hex_writer.h"
#include "imagefiles/recent_loading.h"
#include "platform/failure.h"
#include "support.h"

namespace {

class RecentFiles : public ProgramTest {
 protected:
  using Names = std::vector<std::string>;

  void startWithCar() {
    startWithMap(smallMap());
    writeText("error.log", "");
  }
  Names shown() {
    Names names;
    for (const MenuItem* item : form1().mnuRecentFile) {
      if (item->visible()) names.push_back(item->caption());
    }
    return names;
  }
  Names stored() {
    Names names;
    for (const auto& [key, value] : desk.storedSection("Recent Files")) names.push_back(value);
    return names;
  }
  // Puts `file` at the top of the list and picks it.
  void pickEntry(const std::string& file) {
    addRecentFile(file);
    form1().mnuRecentFile[0]->userPick();
  }
};

TEST_F(RecentFiles, NineSavedFilesAreListedNewestFirst) {
  startWithCar();
  EXPECT_EQ(shown(), Names{});
  Names expected;
  loadImage(patternImage(4096));
  EXPECT_EQ(shown(), Names{});
  for (int i = 1; i <= 10; ++i) {
    const std::string name = "save" + std::to_string(i) + ".bin";
    saveImage(name);
    expected.insert(expected.begin(), path(name));
    if (expected.size() > 9) expected.pop_back();
    EXPECT_EQ(shown(), expected);
    EXPECT_EQ(stored(), expected);
  }
  EXPECT_EQ(desk.store["Recent Files"]["RecentFile1"], path("save10.bin"));
  desk.boxAnswers = {BoxAnswer::ok, BoxAnswer::ok};
  saveImage("save5.bin");
  EXPECT_EQ(shown(), expected);
  pick("update_bin_file");
  EXPECT_EQ(shown(), expected);
  saveImage("save1.bin");
  EXPECT_EQ(shown().front(), path("save1.bin"));
  EXPECT_EQ(shown().size(), 9U);
}

TEST_F(RecentFiles, TheStoreIsShownAtStart) {
  const std::string longest(4096, 'x');
  desk.store["Recent Files"] = {{"RecentFile1", "C:\\a & b.bin"}, {"RecentFile2", longest}};
  startWithCar();
  EXPECT_EQ(shown(), (Names{"C:\\a & b.bin", longest}));
}

TEST_F(RecentFiles, AClearedListIsGoneAtOnceAndItsFilesCountAsKnown) {
  startWithCar();
  clearRecentFiles();
  addRecentFile("one.bin");
  clearRecentFiles();
  EXPECT_EQ(shown(), Names{});
  EXPECT_FALSE(desk.store.contains("Recent Files"));
  addRecentFile("one.bin");
  EXPECT_EQ(shown(), Names{});
  addRecentFile("ONE.bin");
  EXPECT_EQ(shown(), Names{"ONE.bin"});
}

TEST_F(RecentFiles, AStoreThatCannotBeWrittenHarmsNoSave) {
  startWithCar();
  desk.storeWorks = false;
  loadImage(patternImage(4096));
  EXPECT_EQ(saveImage("saved.bin"), patternImage(4096));
  EXPECT_TRUE(desk.boxes.empty());
  EXPECT_EQ(shown(), Names{});
}

TEST_F(RecentFiles, AFailedSaveUnderANameIsNotListedButAFailedUpdateIs) {
  startWithCar();
  loadImage(patternImage(4096));
  desk.saveAnswers.push_back(path("missing/saved.bin"));
  pick("write_bin_file");
  EXPECT_EQ(shown(), Names{});
  std::filesystem::remove(path("image.bin"));
  std::filesystem::create_directory(path("image.bin"));
  desk.boxes.clear();
  pick("update_bin_file");
  EXPECT_EQ(shown(), Names{path("image.bin")});
  EXPECT_TRUE(desk.boxes.empty());
  EXPECT_NE(readText("error.log").find(" 上書き  75 "), std::string::npos);
}

TEST_F(RecentFiles, AnEntryLoadsByItsExtension) {
  startWithCar();
  const Bytes image = patternImage(4096, 3);
  writeBytes("raw.Bin", image);
  writeIntelHex(path("text.HEX"), image);
  for (const char* name : {"raw.Bin", "text.HEX"}) {
    editorState.imageSize = 0;
    pickEntry(path(name));
    EXPECT_EQ(editorState.image, image) << name;
    EXPECT_EQ(editorState.savedImage, image);
    EXPECT_EQ(editorState.imagePath, path(name));
    EXPECT_EQ(form1().caption(), name + std::string(" - ZELKOVA"));
    EXPECT_EQ(form1().Label20.caption(), "File size =  4096 Bytes");
    EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(image[0x100]));
    EXPECT_EQ(form1().ProgressBar1.value(), 0);
    EXPECT_FALSE(desk.busy);
  }
  EXPECT_EQ(shown(), (Names{path("text.HEX"), path("raw.Bin")}));
  editorState.image[0] ^= 1;
  desk.boxAnswers = {BoxAnswer::no};
  form1().mnuRecentFile[1]->userPick();
  EXPECT_EQ(editorState.imagePath, path("text.HEX"));
}

TEST_F(RecentFiles, RefusalsChangeNothing) {
  start();
  addRecentFile("car.rom");
  form1().mnuRecentFile[0]->userPick();
  EXPECT_EQ(lastBox(), "機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。");
  editorState.addressMap.typeUnit = "SMALL";
  loadImage(patternImage(4096));
  editorState.image[0] ^= 1;
  form1().mnuRecentFile[0]->userPick();
  EXPECT_EQ(lastBox(), "その拡張子は判断できません。\r\n");
  EXPECT_EQ(desk.boxes.back().title, "Detected error.This error is not fatal.");
  editorState.english = 1;
  form1().mnuRecentFile[0]->userPick();
  EXPECT_EQ(lastBox(), "The extension child can judge it.");
  EXPECT_EQ(desk.boxes.back().title, "Error");
  EXPECT_EQ(desk.boxes.back().icon, BoxIcon::none);
  EXPECT_EQ(editorState.imageSize, 4096);
}

struct FailureCase {
  const char* file;
  int english;
  std::vector<std::string> boxes;
};

TEST_F(RecentFiles, AFailedLoadIsToldByItsNumber) {
  const std::vector<FailureCase> cases = {
      {"gone.bin",
       1,
       {"A file don't exist.  Are transported whether a file were deleted or not.gone.bin"}},
      {"gone.hex",
       0,
       {"ファイルが存在しません。\r\nファイルが削除されたか、移動されています。\r\ngone.hex"}},
      {"empty.hex",
       1,
       {"There is a possibility that an address file differs from.  Please be crowded as reading "
        "of data, after reading again a correct adr file.",
        "*ERROR = [9]　Ill. DATA? empty.hex"}},
      {"empty.bin",
       0,
       {"アドレスファイルが違う可能性があります。\r\n正しいadrファイルを読み直し後に、データの読み"
        "込みを行って下さい。",
        "*ERROR = [9]　Ill. DATA? empty.bin"}},
      {"folder.bin", 1, {"*ERROR = [75]　Ill. DATA? folder.bin"}},
  };
  startWithCar();
  writeBytes("empty.hex", {});
  writeBytes("empty.bin", {});
  std::filesystem::create_directory(path("folder.bin"));
  for (const FailureCase& row : cases) {
    SCOPED_TRACE(row.file);
    editorState.english = 1;
    loadImage(patternImage(4096));
    editorState.english = row.english;
    desk.boxes.clear();
    pickEntry(path(row.file));
    std::vector<std::string> texts;
    for (const MessageBox& box : desk.boxes) texts.push_back(box.text);
    EXPECT_EQ(texts, row.boxes);
    EXPECT_EQ(editorState.imageSize, 0);
    EXPECT_TRUE(editorState.image.empty());
    EXPECT_EQ(editorState.imagePath, path("image.bin"));
    EXPECT_EQ(form1().Label13.caption(), "");
    EXPECT_EQ(shown().front(), path(row.file));
  }
  EXPECT_FALSE(std::filesystem::exists(path("gone.bin")));
  EXPECT_NE(readText("error.log").find(" Recent File読み込み  53 "), std::string::npos);
}

TEST_F(RecentFiles, AFailedLoadLeavesTheBarWhereItStood) {
  startWithCar();
  writeBytes("tooMuch.hex", [] {
    const std::string text = intelHexText(Bytes(150000));
    return Bytes(text.begin(), text.end());
  }());
  pickEntry(path("tooMuch.hex"));
  EXPECT_EQ(form1().ProgressBar1.value(), 100);
}

}  // namespace
