// Raw and Intel HEX images by the menu: load, save under a name, save; every path and every
// failure, in both forms.
#include <filesystem>

#include "imagefiles/odd_even.h"
#include "platform/files.h"
#include "rom/intel_hex_writer.h"
#include "support.h"

namespace {

struct Form {
  std::string ending;
  const char *load, *save;
};

const Form forms[] = {{"bin", "load_bin_file", "write_bin_file"},
                      {"hex", "LOAD_IntelHEX_FILE", "ANY_NAME_SAVE_IntelHEX"}};

// `image` as a file of this form holds it.
Bytes encoded(const Form& form, const Bytes& image) {
  if (form.ending == "bin") return image;
  const std::string text = intelHexText(image);
  return {text.begin(), text.end()};
}

const std::string unsaved = discardQuestion;

class ImageFiles : public ProgramTest {
 protected:
  ImageFiles() { startWithMap(smallMap()); }
  const Bytes image = patternImage(0x400);
};

TEST_F(ImageFiles, NothingIsLoadedWithoutAMapNorSavedWithoutAnImage) {
  useMap("no model");
  for (const Form& form : forms) {
    for (const char* command : {form.load, form.save, "update_bin_file"}) pick(command);
    EXPECT_EQ(told(),
              "An address file reads and been crowded, it aren't possible to read ROM data and be "
              "crowded.|Data did to preserve it been crowded as reading."
              "|Been crowded as reading data overwrite did to come, preserve it.");
  }
}

TEST_F(ImageFiles, AFailedSaveLosesNothingAndAFailedLoadLeavesNothingThatASaveCouldWrite) {
  writeBytes("empty", {});
  writeBytes("huge", {});
  std::filesystem::resize_file(path("huge"), (std::uintmax_t{1} << 30) + 1);
  std::filesystem::create_directory(path("folder"));
  const std::pair<const char*, std::string> loads[] = {
      {"no/folder", "76"}, {"folder", "75"}, {"gone", "53"}, {"empty", "9"}, {"huge", "7"}};
  for (const Form& form : forms) {
    editorState.imageSize = 0;
    loadImage(image);
    form1().Grid1.setText(1, 1, "9");
    desk.boxAnswers = {BoxAnswer::no};
    pick(form.save, {"folder"});
    pick(form.load);
    EXPECT_EQ(told() + form1().Grid1.text(1, 1), "*ERROR = [75]|" + unsaved + "9");
    for (const auto& [name, number] : loads) {
      editorState.imageSize = 0;
      loadImage(image);
      pick(form.load, {name});
      EXPECT_EQ(told(), "*ERROR = [" + number + "]　Ill. DATA? " + fileNameOf(name));
      for (int tab = 14; tab >= 1; --tab) selectTab(tab);
      for (const char* command : {"update_bin_file", "ADR_EDIT", "use_s13_vq"}) pick(command);
      EXPECT_EQ(editorState.image.size() + editorState.savedImage.size(), 0U);
      EXPECT_EQ(readBytes("image.bin"), image);
      told();
    }
  }
}

TEST_F(ImageFiles, CancelsLeaveEverythingAsItWasAndTheDeclinedFileAlone) {
  writeText("there", "old");
  for (const Form& form : forms) {
    loadImage(image);
    pick(form.load, {""});
    pick(form.save, {""});
    form1().Grid1.setText(1, 1, "9");
    desk.boxAnswers = {BoxAnswer::cancel, BoxAnswer::no};
    pick(form.save, {"there"});
    pick(form.load);
    EXPECT_EQ(desk.boxes[0].name, "there") << "shortened where it is long";
    EXPECT_EQ(
        told(),
        "there\r\nThe file exists already.Do you preserve it with overwrite coming?|" + unsaved);
    pick("update_bin_file");
    EXPECT_EQ(readText("there") + form1().caption(), "oldimage.bin - ZELKOVA");
    EXPECT_EQ(readBytes("image.bin")[0x100], 9);
  }
}

TEST_F(ImageFiles, ALoadAsksInTheLanguageWhileAByteDiffersAndCancelledItKeepsTheEdits) {
  loadImage(image);
  const auto type = [](int column, const std::string& text) {
    return [column, text] { form1().Grid1.setText(1, column, text); };
  };
  const std::tuple<const char*, std::function<void()>, int, std::string> table[] = {
      {"nothing edited", [] {}, 1, ""},
      {"a cell", type(1, "9"), 1, unsaved},
      {"asked again", [] {}, 0, "データを保存しないで新しいデータを読み込みますか？"},
      {"changed back", type(1, std::to_string(image[0x100])), 1, ""},
      {"a byte that no map shows", [] { editorState.image[0x3FF] ^= 1; }, 1, unsaved},
      {"saved", [this] { pick("update_bin_file"); }, 1, ""},
      {"not to be stored", type(2, "256"), 1, "ERROR (Function:SET_MEMORY)"},
      {"beside another", type(1, "9"), 1, "ERROR (Function:SET_MEMORY)|" + unsaved}};
  for (const auto& [what, edit, english, question] : table) {
    edit();
    editorState.english = english;
    desk.boxAnswers.assign(1, BoxAnswer::yes);
    pick("load_bin_file", {""});
    EXPECT_EQ(told(), question) << what;
    desk.boxAnswers.clear();
  }
  EXPECT_EQ(form1().Grid1.text(1, 1), "9");
}

TEST_F(ImageFiles, SavingReplacesTheWholeFileAndTheImageTakesItsNameAndForm) {
  writeText("error.log", "");
  for (const Form& form : forms) {
    const std::string name = "日本 車  ελλ🚗." + form.ending;
    loadImage(image, "地図データ");
    writeBytes(name, patternImage(0x4000));
    desk.boxAnswers.push_back(BoxAnswer::ok);
    Bytes edited = image;
    for (const char* value : {"7", "9"}) {
      edited[0x100] = static_cast<std::uint8_t>(value[0] - '0');
      form1().Grid1.setText(1, 1, value);
      value[0] == '7' ? pick(form.save, {name}) : pick("update_bin_file");
      EXPECT_EQ(readBytes(name), encoded(form, edited));
      EXPECT_EQ(editorState.savedImage, edited);
      EXPECT_EQ(form1().mnuRecentFile[0]->caption(), path(name));
      form1().userActivate();
      EXPECT_FALSE(form1().noticeText.visible()) << "its own writing is no surprise";
    }
    EXPECT_EQ(readBytes("地図データ"), image);
    form1().Label20.setCaption("");
    pick(form.load, {name});
    EXPECT_EQ(editorState.image, edited);
    EXPECT_EQ(form1().caption(), name + " - ZELKOVA");
    EXPECT_EQ(form1().Label20.caption(), "File size =  1024 Bytes");
    EXPECT_EQ(form1().Grid1.text(1, 1), "9");
    pick(form.save, {""});
    EXPECT_EQ(desk.saveDialogs.back().fileName, path(name));
  }
  loadImage(image, "raw.hEx");
  std::filesystem::remove(path("raw.hEx"));
  std::filesystem::create_directory(path("raw.hEx"));
  told();
  pick("update_bin_file");
  EXPECT_EQ(readText("error.log").find(" 上書き  75 Path/File access error\r\n"), 14U);
  EXPECT_EQ(told(), "") << "an overwrite that fails shows no box";
  EXPECT_EQ(shown(), "raw.hEx was not saved: [75] Path/File access error");
  std::filesystem::remove(path("raw.hEx"));
  pick("update_bin_file");
  EXPECT_EQ(readBytes("raw.hEx"), encoded(forms[1], image)) << "the name decides the form";
  EXPECT_EQ(shown(), "");
  loadImage(patternImage(140002));
  pick("ANY_NAME_SAVE_IntelHEX", {"long.hex"});
  EXPECT_NE(shown().find("at most 140001 bytes"), std::string::npos);
  pick("odd_even_file");
  chooseFiles({"odd", "even"});
  oddeven.List1.userSelect(0);
  oddeven.Command2.userClick();
  EXPECT_NE(shown().find("the last 131810 bytes"), std::string::npos) << shown();
}

}  // namespace
