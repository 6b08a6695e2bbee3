// Raw images: load, save under a name, save; every size, every path, every failure.
#include "imagefiles/bin_files.h"

#include <filesystem>

#include "core/dialogs.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

class BinFiles : public ProgramTest {
 protected:
  void openAs(const std::string& name, const std::string& command = "load_bin_file") {
    desk.boxes.clear();
    desk.openAnswers.push_back(name.empty() ? "" : path(name));
    pick(command);
  }
  int entries() const {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), {}));
  }
  // Asks for every command that reads the image, so that an empty one is met everywhere.
  void walkEverything() {
    for (int tab = 1; tab <= 14; ++tab) selectTab(tab);
    for (const char* command : {"update_bin_file", "CPY", "PST", "TP_BST_RECAL", "AF_DISP_FORM",
                                "ADR_EDIT", "use_s13_vq", "smooth", "F_F"}) {
      pick(command);
    }
  }
};

TEST_F(BinFiles, CommandsRefuseInBothLanguages) {
  startWithMap("");
  struct Row {
    const char* command;
    const char* japanese;
    const char* english;
  };
  const Row table[] = {
      {"load_bin_file", "機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。",
       "An address file reads and been crowded, it aren't possible to read ROM data and be "
       "crowded."},
      {"write_bin_file", "データが読み込まれていないのに保存しようとしました。",
       "Data did to preserve it been crowded as reading."},
      {"update_bin_file", "データが読み込まれていないのに、上書き保存しようとしました。",
       "Been crowded as reading data overwrite did to come, preserve it."}};
  for (const Row& row : table) {
    editorState.english = 0;
    pick(row.command);
    EXPECT_EQ(desk.boxes.back().title + lastBox(), std::string("エラー") + row.japanese);
    editorState.english = 1;
    pick(row.command);
    EXPECT_EQ(desk.boxes.back().title + lastBox(), std::string("Error") + row.english);
    EXPECT_EQ(desk.boxes.back().icon, BoxIcon::critical);
  }
  EXPECT_TRUE(desk.openDialogs.empty() && desk.saveDialogs.empty());
}

TEST_F(BinFiles, AnImageOfAnySizeLoadsAndSavesUnchanged) {
  startWithMap("TYPE_UNIT\r\nX\r\n" + mapBlock("K_DATA", "0", 1, 1, 1));
  for (const std::size_t size : {1U, 31U, 32U, 28672U, 262144U, 64U << 20}) {
    const Bytes image = patternImage(size);
    loadImage(image);
    EXPECT_EQ(editorState.imageSize, static_cast<std::int32_t>(size));
    EXPECT_EQ(form1().Label20.caption(), "File size =  " + std::to_string(size) + " Bytes");
    EXPECT_EQ(form1().caption(), "image.bin - ZELKOVA");
    EXPECT_TRUE(saveImage("saved.bin") == image) << size;
    fs::remove(path("saved.bin"));
  }
  EXPECT_TRUE(desk.boxes.empty()) << lastBox();
  EXPECT_EQ(form1().Label13.caption(), "");
  EXPECT_EQ(form1().ProgressBar1.value(), 0);
}

TEST_F(BinFiles, ASmallImageTellsEachMapThatLiesBeyondIt) {
  startWithMap(smallMap());
  const Bytes image = patternImage(0x144);
  loadImage(image);
  std::vector<std::string> texts;
  for (const MessageBox& box : desk.boxes) texts.push_back(box.text);
  const std::string beyond = "ERROR (Function:MAP_DRAW)";
  EXPECT_EQ(texts, std::vector(6, beyond));
  EXPECT_TRUE(form1().Grid1.visible());
  EXPECT_EQ(form1().Grid3.text(1, 4), std::to_string(image[0x143]));
  EXPECT_EQ(form1().Text4.text().empty(), false);
  EXPECT_EQ(saveImage("saved.bin"), image);
}

TEST_F(BinFiles, ALoadThatFailsLeavesNothingThatASaveCouldWrite) {
  startWithMap(smallMap());
  writeText("error.log", "");
  writeBytes("empty.bin", {});
  fs::create_directory(path("folder.bin"));
  struct Row {
    const char* name;
    const char* number;
  };
  for (const Row& row : {Row{"gone.bin", "53"}, Row{"no/folder.bin", "76"}, Row{"folder.bin", "75"},
                         Row{"empty.bin", "9"}}) {
    loadImage(patternImage(0x400));
    openAs(row.name);
    EXPECT_EQ(lastBox(), "*ERROR = [" + std::string(row.number) + "]　Ill. DATA? " +
                             fs::path(row.name).filename().string());
    EXPECT_EQ(desk.boxes.back().title, failureTitle);
    EXPECT_NE(readText("error.log").find(" BIN読み込み  " + std::string(row.number) + " "),
              std::string::npos);
    EXPECT_EQ(form1().Grid1.text(1, 1) + form1().Text1.text(), "N/A");
    EXPECT_TRUE(form1().Grid1.redraw());
    EXPECT_FALSE(desk.busy);
    EXPECT_EQ(editorState.image.size() + editorState.savedImage.size(), 0U);
    walkEverything();
    EXPECT_EQ(editorState.imageSize, 0);
    EXPECT_EQ(readBytes("image.bin"), patternImage(0x400));
  }
}

TEST_F(BinFiles, CancelAndNoLeaveEverythingAsItWas) {
  startWithMap(smallMap());
  writeText("error.log", "");
  const Bytes image = patternImage(0x400);
  loadImage(image);
  openAs("");
  desk.saveAnswers.push_back("");
  pick("write_bin_file");
  writeText("there.bin", "old");
  desk.saveAnswers.push_back(path("there.bin"));
  desk.boxAnswers.push_back(BoxAnswer::cancel);
  pick("write_bin_file");
  EXPECT_EQ(desk.boxes.size(), 1U);
  EXPECT_EQ(desk.boxes[0].title, "A file exists already.");
  EXPECT_EQ(lastBox(),
            "there.bin\r\nThe file exists already.Do you preserve it with overwrite coming?");
  EXPECT_EQ(desk.boxes[0].icon, BoxIcon::question);
  EXPECT_EQ(form1().caption(), "image.bin - ZELKOVA");
  form1().Grid1.setText(1, 1, "9");
  pick("update_bin_file");
  EXPECT_EQ(readText("there.bin"), "old") << "the declined file is never the target";
  EXPECT_EQ(readBytes("image.bin")[0x100], 9);
  EXPECT_EQ(readText("error.log"), "");
}

TEST_F(BinFiles, SavingReplacesTheWholeFileAndItsNameStays) {
  startWithMap(smallMap());
  const Bytes image = patternImage(0x400);
  loadImage(image);
  writeBytes("there.bin", patternImage(0x900));
  desk.boxAnswers.push_back(BoxAnswer::ok);
  EXPECT_EQ(saveImage("there.bin"), image);
  EXPECT_EQ(form1().caption(), "there.bin - ZELKOVA");
  EXPECT_EQ(desk.store["Recent Files"]["RecentFile1"], path("there.bin"));
  form1().Grid1.setText(1, 1, "9");
  pick("update_bin_file");
  EXPECT_EQ(readBytes("there.bin")[0x100], 9);
  EXPECT_EQ(readBytes("image.bin"), image);
  const int before = entries();
  pick("update_bin_file");
  EXPECT_EQ(entries(), before) << "no stray files";
}

TEST_F(BinFiles, TheNameDecidesTheFormOfAnOverwrite) {
  startWithMap(smallMap());
  loadImage(patternImage(0x400), "raw.hEx");
  pick("update_bin_file");
  EXPECT_TRUE(readText("raw.hEx").starts_with(":"));
}

TEST_F(BinFiles, DialogsProposeFolderAndName) {
  startWithMap(smallMap());
  editorState.romFolder = "roms";
  struct Row {
    const char* loaded;
    const char* proposed;
  };
  for (const Row& row : {Row{"a.hex", "a.bin"}, Row{"車.BIN", "車.bin"}, Row{"車a", nullptr},
                         Row{"地図データ", "地図bin"}}) {
    loadImage(patternImage(0x400), row.loaded);
    desk.saveAnswers.push_back("");
    pick("write_bin_file");
    const FileDialog& dialog = desk.saveDialogs.back();
    EXPECT_TRUE(!row.proposed || dialog.fileName == path(row.proposed)) << dialog.fileName;
    EXPECT_EQ(dialog.filter + dialog.title, "Bin Image (*.bin)|*.binSave BIN Image");
    EXPECT_EQ(dialog.folder, path("roms"));
  }
  editorState.english = 0;
  openAs("");
  EXPECT_EQ(desk.openDialogs.back().title, "BIN Image 読み込み");
  EXPECT_EQ(desk.openDialogs.back().fileName, path("地図データ"));
}

TEST_F(BinFiles, PathsOfAnyLetters) {
  startWithMap(smallMap());
  const Bytes image = patternImage(0x400);
  for (const std::string& name : {std::string("日本 車 ﾃﾞｰﾀ.bin"), std::string("a b  c .bin"),
                                  std::string("ελλ🚗.bin"), std::string(200, 'x')}) {
    loadImage(image, name);
    EXPECT_EQ(form1().caption(), name + " - ZELKOVA");
    form1().Grid1.setText(1, 1, "9");
    pick("update_bin_file");
    EXPECT_EQ(readBytes(name)[0x100], 9) << name;
  }
  EXPECT_TRUE(desk.boxes.empty()) << lastBox();
}

TEST_F(BinFiles, SavesThatFailLeaveTheOldFileAndTheGuardAsks) {
  startWithMap(smallMap());
  writeText("error.log", "");
  loadImage(patternImage(0x400));
  form1().Grid1.setText(1, 1, "9");
  form1().Grid1.setText(1, 2, "9");
  fs::create_directory(path("folder.bin"));
  struct Row {
    const char* name;
    const char* number;
  };
  for (const Row& row :
       {Row{"no/folder.bin", "76"}, Row{"folder.bin", "75"}, Row{"error.log/x.bin", "76"}}) {
    desk.saveAnswers.push_back(path(row.name));
    pick("write_bin_file");
    EXPECT_EQ(lastBox(), "*ERROR = [" + std::string(row.number) + "]") << row.name;
    EXPECT_EQ(form1().caption(), "image.bin - ZELKOVA");
    EXPECT_EQ(form1().Label13.caption(), "");
  }
  fs::remove(path("image.bin"));
  fs::create_directory(path("image.bin"));
  desk.boxes.clear();
  pick("update_bin_file");
  EXPECT_TRUE(desk.boxes.empty()) << "an overwrite fails without a box";
  EXPECT_NE(readText("error.log").find(" 上書き  75 Path/File access error\r\n"),
            std::string::npos);
  desk.boxAnswers.push_back(BoxAnswer::no);
  pick("load_bin_file");
  EXPECT_EQ(desk.boxes.size(), 1U);
}

// Real images of many sizes: a map of everything that fits, one cell changed by hand.
TEST_F(BinFiles, RealImagesKeepEveryByteThatNobodyEdited) {
  const std::pair<const char*, std::string> images[] = {
      {"bios-256k.bin", "&H3E000"}, {"vgabios.bin", "&H2000"}, {"vgabios-ramfb.bin", "28000"}};
  for (const auto& [name, address] : images) {
    const fs::path file = fs::path("/usr/share/seabios") / name;
    ASSERT_TRUE(fs::exists(file)) << "the package seabios is missing";
    fs::copy(file, path(name));
    const Bytes image = readBytes(name);
    discardForm1();
    editorState = EditorState{};
    startWithMap(
        "TYPE_UNIT\r\nBIOS\r\n" + mapBlock("HIGH_FUEL", address, 16, 16, 256) +
        mapBlock("VQ_MAP", "&H1000", 64, 1, 128) + mapBlock("TP_SCALE_FUEL", "0", 16, 1, 16) +
        mapBlock("RPM_SCALE_FUEL", "16", 16, 1, 16, "50") +
        mapBlock("ADD_MAP1", "&H1100", 16, 16, 256, "2") + mapBlock("K_DATA", "&H1200", 1, 1, 4) +
        mapBlock("REV1_LIMIT", "&H1210", 1, 1, 4, "1"));
    openAs(name);
    EXPECT_TRUE(desk.boxes.empty()) << lastBox();
    const auto place = static_cast<std::size_t>(editorState.addressMap.map(HIGH_FUEL).address) + 35;
    const int changed = (image[place] + 1) % 256;
    drag(form1().Grid1, 3, 4, 3, 4);
    desk.textAnswers.push_back(std::to_string(changed));
    form1().Grid1.userDoubleClick();
    Bytes expected = image;
    expected[place] = static_cast<std::uint8_t>(changed);
    EXPECT_TRUE(saveImage("saved.bin") == expected) << name;
    openAs("saved.bin");
    EXPECT_EQ(form1().Grid1.text(3, 4), std::to_string(changed));
    EXPECT_TRUE(editorState.image == expected);
    EXPECT_TRUE(desk.boxes.empty()) << "nothing unsaved";
    fs::remove(path("saved.bin"));
  }
}

}  // namespace
