// Recent files: which saves enter the list, its order in store and menu, clearing it, and loading
// from it.
#include "imagefiles/recent_files.h"

#include <filesystem>

#include "imagefiles/intel_hex_writer.h"
#include "support.h"

namespace {

using Names = std::vector<std::string>;

class RecentFiles : public ProgramTest {
 protected:
  RecentFiles() {
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
  // Puts a file at the top of the list and picks it.
  void pickEntry(const std::string& name) {
    addRecentFile(path(name));
    form1().mnuRecentFile[0]->userPick();
  }
};

TEST_F(RecentFiles, NineSavedFilesAreListedNewestFirstAndKept) {
  loadImage(patternImage(4096));
  desk.storeWorks = false;
  EXPECT_EQ(saveImage("saved.bin"), patternImage(4096)) << "the store harms no save";
  desk.storeWorks = true;
  Names expected;
  EXPECT_EQ(shown(), expected);
  const auto save = [&](const std::string& name) {
    saveImage(name);
    expected.insert(expected.begin(), path(name));
    if (expected.size() > 9) expected.pop_back();
    EXPECT_EQ(shown(), expected);
  };
  for (int i = 1; i <= 10; ++i) save("save" + std::to_string(i) + ".bin");
  EXPECT_EQ(told(), "");
  desk.boxAnswers = {BoxAnswer::ok, BoxAnswer::ok};
  saveImage("save5.bin");
  pick("update_bin_file");
  EXPECT_EQ(shown(), expected) << "listed files stay where they are";
  save("save1.bin");
  startAnew();
  EXPECT_EQ(shown(), expected);
}

TEST_F(RecentFiles, AClearedListIsGoneAtOnceAndItsFilesCountAsKnown) {
  const std::string longest(4096, 'x');
  addRecentFile(longest);
  addRecentFile("C:\\a & b.bin");
  EXPECT_EQ(shown(), (Names{"C:\\a & b.bin", longest}));
  clearRecentFiles();
  EXPECT_EQ(shown(), Names{});
  EXPECT_FALSE(desk.store.contains("Recent Files"));
  addRecentFile(longest);
  EXPECT_EQ(shown(), Names{});
  addRecentFile("X.bin");
  EXPECT_EQ(shown(), Names{"X.bin"});
}

TEST_F(RecentFiles, AnEntryLoadsByItsExtension) {
  const Bytes image = patternImage(4096, 3);
  writeBytes("raw.Bin", image);
  writeIntelHex(path("text.HEX"), image);
  for (const std::string name : {"raw.Bin", "text.HEX"}) {
    editorState.imageSize = 0;
    pickEntry(name);
    EXPECT_TRUE(editorState.image == image && editorState.savedImage == image) << name;
    EXPECT_EQ(editorState.imagePath, path(name));
    EXPECT_EQ(form1().caption() + form1().Label20.caption(),
              name + " - ZELKOVAFile size =  4096 Bytes");
    EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(image[0x100]));
    EXPECT_TRUE(form1().ProgressBar1.value() == 0 && !desk.busy);
  }
  EXPECT_EQ(shown(), (Names{path("text.HEX"), path("raw.Bin")}));
}

TEST_F(RecentFiles, RefusalsChangeNothing) {
  loadImage(patternImage(4096));
  editorState.image[0] ^= 1;
  const Bytes edited = editorState.image;
  desk.boxAnswers = {BoxAnswer::no};
  pickEntry("image.bin");
  pickEntry("car.rom");
  EXPECT_EQ(desk.boxes.back().title, "Error");
  editorState.english = 0;
  pickEntry("car.rom");
  EXPECT_EQ(desk.boxes.back().title, "Detected error.This error is not fatal.");
  EXPECT_EQ(desk.boxes.back().icon, BoxIcon::none);
  editorState.addressMap.typeUnit = "";
  pickEntry("image.bin");
  EXPECT_EQ(told(),
            "It is crowded as reading, though it aren't preserved for data ?|"
            "The extension child can judge it.|その拡張子は判断できません。\r\n|"
            "機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。");
  EXPECT_EQ(editorState.image, edited);
}

TEST_F(RecentFiles, AFailedLoadIsToldByItsNumber) {
  writeBytes("empty.bin", {});
  writeText("tooMuch.hex", intelHexText(Bytes(150000)));
  std::filesystem::create_directory(path("folder.bin"));
  const std::string otherMap =
      "There is a possibility that an address file differs from.  Please be crowded as reading of "
      "data, after reading again a correct adr file.|*ERROR = [9]　Ill. DATA? ";
  struct Row {
    const char* file;
    int english;
    std::string boxes;
    int bar = 0;  // where it stood
  };
  const Row table[] = {
      {"gone.bin", 1,
       "A file don't exist.  Are transported whether a file were deleted or not.gone.bin"},
      {"gone.hex", 0,
       "ファイルが存在しません。\r\nファイルが削除されたか、移動されています。\r\ngone.hex"},
      {"tooMuch.hex", 1, otherMap + "tooMuch.hex", 100},
      {"empty.bin", 0,
       "アドレスファイルが違う可能性があります。\r\n正しいadrファイルを読み直し後に、データの読み"
       "込みを行って下さい。|*ERROR = [9]　Ill. DATA? empty.bin"},
      {"folder.bin", 1, "*ERROR = [75]　Ill. DATA? folder.bin"}};
  for (const Row& row : table) {
    SCOPED_TRACE(row.file);
    loadImage(patternImage(4096));
    editorState.english = row.english;
    pickEntry(row.file);
    EXPECT_EQ(told(), row.boxes);
    EXPECT_EQ(form1().ProgressBar1.value(), row.bar);
    EXPECT_TRUE(editorState.imageSize == 0 && editorState.image.empty());
    EXPECT_EQ(editorState.imagePath + form1().Label13.caption(), path("image.bin"));
    EXPECT_EQ(shown().front(), path(row.file));
  }
  EXPECT_NE(readText("error.log").find(" Recent File読み込み  53 "), std::string::npos);
}

}  // namespace
