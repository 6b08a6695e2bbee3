// Raw and Intel HEX images by the menu: load, save under a name, save; every size, every path,
// every failure, in both forms.
#include <filesystem>

#include "imagefiles/intel_hex_writer.h"
#include "platform/files.h"
#include "support.h"

namespace {

struct Form {
  std::string name, ending;
  const char *load, *save, *loadFilter, *saveFilter;
};

const Form forms[] = {{"BIN", "bin", "load_bin_file", "write_bin_file", "Bin Image (*.bin)|*.bin",
                       "Bin Image (*.bin)|*.bin"},
                      {"IntelHEX", "hex", "LOAD_IntelHEX_FILE", "ANY_NAME_SAVE_IntelHEX",
                       "HEX Image (*.hex)|*.hex", "IntelHEX Image (*.hex)|*.hex"}};

// `image` as a file of this form holds it.
Bytes encoded(const Form& form, const Bytes& image) {
  if (form.ending == "bin") return image;
  const std::string text = intelHexText(image);
  return {text.begin(), text.end()};
}

class ImageFiles : public ProgramTest {
 protected:
  ImageFiles() {
    startWithMap(smallMap());
    editorState.romFolder = "roms";
    writeText("error.log", "");
  }
  // Picks a load or save command, answers with `name`, "" by Cancel, and finds no trace of it.
  void run(const char* command, const std::string& name) {
    desk.openAnswers = desk.saveAnswers = {name.empty() ? "" : path(name)};
    pick(command);
    desk.openAnswers.clear();
    desk.saveAnswers.clear();
    EXPECT_EQ(form1().Label13.caption() + std::to_string(form1().ProgressBar1.value()), "0");
    EXPECT_FALSE(desk.busy);
  }
  std::string summary(const FileDialog& d) {
    EXPECT_EQ(d.folder, path("roms"));
    return d.filter + " " + d.title + " " + d.fileName.substr(path("").size());
  }
  // The newest failure in the log.
  void expectLogged(const std::string& failure) {
    EXPECT_EQ(readText("error.log").find(" " + failure), 14U) << failure;
  }
  const Bytes image = patternImage(0x400);
};

TEST_F(ImageFiles, CommandsRefuseInBothLanguages) {
  const std::pair<std::string, std::string> table[] = {
      {"Error",
       "An address file reads and been crowded, it aren't possible to read ROM data and be crowded."
       "|Data did to preserve it been crowded as reading."
       "|Been crowded as reading data overwrite did to come, preserve it."},
      {"エラー",
       "機種別アドレスが読み込まれていないのに、ROMデータを読み込もうとしました。"
       "|データが読み込まれていないのに保存しようとしました。"
       "|データが読み込まれていないのに、上書き保存しようとしました。"}};
  useMap("no model");
  for (const auto& [title, texts] : table) {
    for (const Form& form : forms) {
      for (const char* command : {form.load, form.save, "update_bin_file"}) pick(command);
      EXPECT_EQ(desk.boxes.back().title, title);
      EXPECT_EQ(told(), texts) << form.name;
    }
    editorState.english = 0;
  }
}

TEST_F(ImageFiles, ImagesOfAnySizeAndNameLoadAndSaveUnchanged) {
  useMap("TYPE_UNIT,X\n" + mapBlock("K_DATA", "0", 1, 1, 1));
  const std::pair<std::size_t, std::string> table[] = {
      {1, "日本 車 ﾃﾞｰﾀ"}, {31, "a b  c "}, {140001, "ελλ🚗"}, {64 << 20, std::string(200, 'x')}};
  for (const auto& [size, name] : table) {
    const Bytes bytes = patternImage(size);
    for (const Form& form : forms) {
      if (size > 140001 && form.ending == "hex") continue;
      const std::string file = name + "." + form.ending;
      writeBytes(file, encoded(form, bytes));
      form1().Label20.setCaption("");
      run(form.load, file);
      EXPECT_EQ(form1().caption() + form1().Label20.caption(),
                file + " - ZELKOVAFile size =  " + std::to_string(size) + " Bytes");
      EXPECT_TRUE(editorState.savedImage == bytes) << file;
      run(form.save, "2" + file);
      EXPECT_TRUE(readBytes("2" + file) == encoded(form, bytes)) << file;
    }
  }
  EXPECT_EQ(told(), "");
}

TEST_F(ImageFiles, AFailedSaveChangesNothingAndAFailedLoadLeavesNothingThatASaveCouldWrite) {
  writeBytes("empty", {});
  std::filesystem::create_directory(path("folder"));
  const std::pair<const char*, std::string> table[] = {
      {"no/folder", "76"}, {"folder", "75"}, {"gone", "53"}, {"empty", "9"}};
  for (const Form& form : forms) {
    for (const auto& [name, number] : table) {
      loadImage(image);
      if (number[0] == '7') {
        run(form.save, name);
        EXPECT_EQ(told() + form1().caption(), "*ERROR = [" + number + "]image.bin - ZELKOVA");
        expectLogged(form.name + "別名保存  " + number + " ");
      }
      run(form.load, name);
      EXPECT_EQ(told(), "*ERROR = [" + number + "]　Ill. DATA? " + fileNameOf(name));
      expectLogged(form.name + "読み込み  " + number + " ");
      EXPECT_EQ(form1().Grid1.text(1, 1) + form1().Text1.text(), "N/A");
      EXPECT_EQ(form1().caption(), "image.bin - ZELKOVA");
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
  EXPECT_FALSE(form1().mnuRecentFile[0]->visible());
}

TEST_F(ImageFiles, CancelsLeaveEverythingAsItWasAndTheDeclinedFileAlone) {
  writeText("there", "old");
  for (const Form& form : forms) {
    loadImage(image);
    run(form.load, "");
    EXPECT_EQ(summary(desk.openDialogs.back()),
              form.loadFilter + (" Load " + form.name) + " Image image." + form.ending);
    run(form.save, "");
    form1().Grid1.setText(1, 1, "9");
    desk.boxAnswers = {BoxAnswer::cancel, BoxAnswer::no};
    run(form.save, "there");
    pick(form.load);
    EXPECT_EQ(desk.boxes.at(0).title, "A file exists already.");
    EXPECT_EQ(told(),
              "there\r\nThe file exists already.Do you preserve it with overwrite coming?|"
              "It is crowded as reading, though it aren't preserved for data ?");
    pick("update_bin_file");
    EXPECT_EQ(readText("there") + form1().caption(), "oldimage.bin - ZELKOVA");
    EXPECT_EQ(readBytes("image.bin")[0x100], 9);
  }
  EXPECT_EQ(readText("error.log"), "");
}

TEST_F(ImageFiles, SavingReplacesTheWholeFileAndTheImageTakesItsNameAndForm) {
  for (const Form& form : forms) {
    const std::string name = "there." + form.ending;
    loadImage(image, "地図データ");
    writeBytes(name, patternImage(0x4000));
    desk.boxAnswers.push_back(BoxAnswer::ok);
    Bytes edited = image;
    for (const char* value : {"7", "9"}) {
      edited[0x100] = static_cast<std::uint8_t>(value[0] - '0');
      form1().Grid1.setText(1, 1, value);
      value[0] == '7' ? run(form.save, name) : pick("update_bin_file");
      EXPECT_EQ(readBytes(name), encoded(form, edited));
      EXPECT_EQ(editorState.savedImage, edited);
      EXPECT_EQ(form1().mnuRecentFile[0]->caption(), path(name));
    }
    EXPECT_EQ(summary(desk.saveDialogs.back()),
              form.saveFilter + (" Save " + form.name) + " Image 地図" + form.ending);
    EXPECT_EQ(form1().caption(), name + " - ZELKOVA");
    EXPECT_EQ(readBytes("地図データ"), image);
  }
  loadImage(image, "raw.hEx");
  std::filesystem::remove(path("raw.hEx"));
  std::filesystem::create_directory(path("raw.hEx"));
  told();
  pick("update_bin_file");
  expectLogged("上書き  75 Path/File access error\r\n");
  EXPECT_EQ(told(), "") << "an overwrite that fails is only logged";
  EXPECT_EQ(form1().mnuRecentFile[0]->caption(), path("raw.hEx"));
  std::filesystem::remove(path("raw.hEx"));
  pick("update_bin_file");
  EXPECT_EQ(readBytes("raw.hEx"), encoded(forms[1], image)) << "the name decides the form";
}

TEST_F(ImageFiles, RealImagesKeepEveryByteThatNobodyEdited) {
  for (const auto& [name, address] :
       {std::pair("bios-256k.bin", 0x3E000U), std::pair("vgabios.bin", 0x2000U),
        std::pair("vgabios-ramfb.bin", 28000U)}) {
    SCOPED_TRACE(name);
    useMap("TYPE_UNIT,BIOS\n" + mapBlock("HIGH_FUEL", std::to_string(address), 16, 16, 256) +
           mapBlock("VQ_MAP", "&H1000", 64, 1, 128) + mapBlock("K_DATA", "&H1200", 1, 1, 4) +
           mapBlock("ADD_MAP1", "&H1100", 16, 16, 256, "2"));
    Bytes expected = readFile(std::string("/usr/share/seabios/") + name);
    loadImage(expected);
    const std::string changed = std::to_string(++expected.at(address + 35));
    enterCell(form1().Grid1, 3, 4, changed);
    EXPECT_TRUE(saveImage(name) == expected);
    run(forms[0].load, name);
    EXPECT_EQ(told() + form1().Grid1.text(3, 4), changed);
    EXPECT_TRUE(editorState.image == expected);
  }
}

}  // namespace
