// Raw images: load, save under a name, save; every size, every path, every failure.
#include "imagefiles/bin_files.h"

#include <filesystem>

#include "support.h"

namespace {

namespace fs = std::filesystem;

class BinFiles : public ProgramTest {
 protected:
  BinFiles() {
    startWithMap(smallMap());
    writeText("error.log", "");
  }
  void choose(const std::string& name) {
    desk.openAnswers.push_back(name.empty() ? name : path(name));
    pick("load_bin_file");
  }
  const Bytes image = patternImage(0x400);
};

TEST_F(BinFiles, CommandsRefuseInBothLanguages) {
  useMap("no model");
  struct Row {
    const char* command;
    const char* both;
  };
  const Row table[] = {
      {"load_bin_file",
       "An address file reads and been crowded, it aren't possible to read ROM data and be crowded."
       "|機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。"},
      {"write_bin_file",
       "Data did to preserve it been crowded as reading."
       "|データが読み込まれていないのに保存しようとしました。"},
      {"update_bin_file",
       "Been crowded as reading data overwrite did to come, preserve it."
       "|データが読み込まれていないのに、上書き保存しようとしました。"}};
  for (const Row& row : table) {
    for (const int english : {1, 0}) {
      editorState.english = english;
      pick(row.command);
      EXPECT_EQ(desk.boxes.back().title, english ? "Error" : "エラー");
      EXPECT_EQ(desk.boxes.back().icon, BoxIcon::critical);
    }
    EXPECT_EQ(told(), row.both);
  }
}

TEST_F(BinFiles, AnImageOfAnySizeLoadsAndSavesUnchanged) {
  useMap("TYPE_UNIT,X\n" + mapBlock("K_DATA", "0", 1, 1, 1));
  for (const std::size_t size : {1U, 31U, 32U, 262144U, 64U << 20}) {
    const Bytes bytes = patternImage(size);
    loadImage(bytes);
    EXPECT_EQ(form1().Label20.caption(), "File size =  " + std::to_string(size) + " Bytes");
    EXPECT_TRUE(saveImage("saved.bin") == bytes) << size;
    fs::remove(path("saved.bin"));
  }
  EXPECT_EQ(told() + form1().Label13.caption(), "");
  EXPECT_EQ(form1().ProgressBar1.value(), 0);
}

TEST_F(BinFiles, ASmallImageTellsEachMapThatLiesBeyondItAndDrawsTheOthers) {
  const Bytes small = patternImage(0x144);
  loadImage(small);
  std::string expected = "ERROR (Function:MAP_DRAW)";
  for (int i = 1; i < 6; ++i) expected += "|ERROR (Function:MAP_DRAW)";
  EXPECT_EQ(told(), expected);
  EXPECT_TRUE(form1().Grid1.visible());
  EXPECT_EQ(form1().Grid3.text(1, 4), std::to_string(small[0x143]));
  EXPECT_EQ(saveImage("saved.bin"), small);
}

TEST_F(BinFiles, ALoadThatFailsLeavesNothingThatASaveCouldWrite) {
  writeBytes("empty.bin", {});
  fs::create_directory(path("folder.bin"));
  for (const auto& [name, number] : {std::pair("gone.bin", "53"), std::pair("no/folder.bin", "76"),
                                     std::pair("folder.bin", "75"), std::pair("empty.bin", "9")}) {
    loadImage(image);
    choose(name);
    const std::string title = fs::path(name).filename().string();
    EXPECT_EQ(desk.boxes.back().title, "Detected error.This error is not fatal.");
    EXPECT_EQ(told(), "*ERROR = [" + std::string(number) + "]　Ill. DATA? " + title);
    EXPECT_EQ(readText("error.log").find(" BIN読み込み  " + std::string(number) + " "), 14U);
    EXPECT_EQ(form1().Grid1.text(1, 1) + form1().Text1.text(), "N/A");
    EXPECT_TRUE(form1().Grid1.redraw() && !desk.busy);
    for (int tab = 14; tab >= 1; --tab) selectTab(tab);
    for (const char* command : {"update_bin_file", "CPY", "PST", "TP_BST_RECAL", "AF_DISP_FORM",
                                "ADR_EDIT", "use_s13_vq", "smooth", "F_F"}) {
      pick(command);
    }
    EXPECT_EQ(editorState.image.size() + editorState.savedImage.size(), 0U);
    EXPECT_EQ(readBytes("image.bin"), image);
    told();
  }
}

TEST_F(BinFiles, CancelsLeaveEverythingAsItWasAndTheDeclinedFileAlone) {
  loadImage(image);
  choose("");
  desk.saveAnswers = {"", path("there.bin")};
  writeText("there.bin", "old");
  desk.boxAnswers.push_back(BoxAnswer::cancel);
  pick("write_bin_file");
  pick("write_bin_file");
  EXPECT_EQ(desk.boxes.at(0).title, "A file exists already.");
  EXPECT_EQ(told(),
            "there.bin\r\nThe file exists already.Do you preserve it with overwrite coming?");
  form1().Grid1.setText(1, 1, "9");
  pick("update_bin_file");
  EXPECT_EQ(readText("there.bin") + form1().caption(), "oldimage.bin - ZELKOVA");
  EXPECT_EQ(readBytes("image.bin")[0x100], 9);
  EXPECT_EQ(readText("error.log"), "");
}

TEST_F(BinFiles, SavingReplacesTheWholeFileAndTheImageTakesItsName) {
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
  loadImage(image, "raw.hEx");
  pick("update_bin_file");
  EXPECT_TRUE(readText("raw.hEx").starts_with(":")) << "the name decides the form";
}

TEST_F(BinFiles, DialogsProposeFolderAndName) {
  editorState.romFolder = "roms";
  for (const auto& [loaded, proposed] : {std::pair("a.hex", "a.bin"), std::pair("車.BIN", "車.bin"),
                                         std::pair("地図データ", "地図bin")}) {
    loadImage(image, loaded);
    desk.saveAnswers.push_back("");
    pick("write_bin_file");
    const FileDialog& dialog = desk.saveDialogs.back();
    EXPECT_EQ(dialog.fileName + dialog.filter + dialog.title,
              path(proposed) + "Bin Image (*.bin)|*.binSave BIN Image");
    EXPECT_EQ(dialog.folder, path("roms"));
  }
  editorState.english = 0;
  choose("");
  EXPECT_EQ(desk.openDialogs.back().title + desk.openDialogs.back().fileName,
            "BIN Image 読み込み" + path("地図データ"));
}

TEST_F(BinFiles, PathsOfAnyLettersLoadAndSave) {
  for (const std::string& name : {std::string("日本 車 ﾃﾞｰﾀ.bin"), std::string("a b  c .bin"),
                                  std::string("ελλ🚗.bin"), std::string(200, 'x')}) {
    loadImage(image, name);
    form1().Grid1.setText(1, 1, "9");
    pick("update_bin_file");
    EXPECT_EQ(told() + form1().caption(), name + " - ZELKOVA");
    EXPECT_EQ(readBytes(name)[0x100], 9) << name;
  }
}

TEST_F(BinFiles, SavesThatFailAreToldAndLoggedButAnOverwriteOnlyLogged) {
  loadImage(image);
  fs::create_directory(path("folder.bin"));
  for (const auto& [name, number] :
       {std::pair("no/folder.bin", "76"), std::pair("folder.bin", "75")}) {
    desk.saveAnswers.push_back(path(name));
    pick("write_bin_file");
    EXPECT_EQ(told(), "*ERROR = [" + std::string(number) + "]");
    EXPECT_EQ(readText("error.log").find(" BIN別名保存  " + std::string(number) + " "), 14U);
    EXPECT_EQ(form1().caption() + form1().Label13.caption(), "image.bin - ZELKOVA");
  }
  fs::remove(path("image.bin"));
  fs::create_directory(path("image.bin"));
  pick("update_bin_file");
  EXPECT_EQ(readText("error.log").find(" 上書き  75 Path/File access error\r\n"), 14U);
  EXPECT_EQ(told(), "");
}

TEST_F(BinFiles, RealImagesKeepEveryByteThatNobodyEdited) {
  for (const auto& [name, address] :
       {std::pair("bios-256k.bin", 0x3E000), std::pair("vgabios.bin", 0x2000),
        std::pair("vgabios-ramfb.bin", 28000)}) {
    fs::copy(fs::path("/usr/share/seabios") / name, path(name));
    useMap("TYPE_UNIT,BIOS\n" + mapBlock("HIGH_FUEL", std::to_string(address), 16, 16, 256) +
           mapBlock("VQ_MAP", "&H1000", 64, 1, 128) + mapBlock("TP_SCALE_FUEL", "0", 16, 1, 16) +
           mapBlock("RPM_SCALE_FUEL", "16", 16, 1, 16, "50") +
           mapBlock("ADD_MAP1", "&H1100", 16, 16, 256, "2") +
           mapBlock("K_DATA", "&H1200", 1, 1, 4) + mapBlock("REV1_LIMIT", "&H1210", 1, 1, 4, "1"));
    choose(name);
    Bytes expected = readBytes(name);
    std::uint8_t& changed = expected.at(static_cast<std::size_t>(address) + 35);
    changed = static_cast<std::uint8_t>(changed + 1);
    enterCell(form1().Grid1, 3, 4, std::to_string(changed));
    EXPECT_TRUE(saveImage(std::string("saved ") + name) == expected) << name;
    choose(std::string("saved ") + name);
    EXPECT_EQ(told() + form1().Grid1.text(3, 4), std::to_string(changed));
    EXPECT_TRUE(editorState.image == expected) << name;
  }
}

}  // namespace
