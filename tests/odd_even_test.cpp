// Odd/even pairs in the dialog: files that don't fit, what a refused, cancelled or failed command
// leaves, and saving after a load from a pair.
#include "imagefiles/odd_even.h"

#include <deque>
#include <filesystem>
#include <optional>
#include <span>

#include "rom/intel_hex_writer.h"
#include "support.h"

namespace {

Bytes ascii(const std::string& text) { return {text.begin(), text.end()}; }

// What a save writes: every other byte of `image` from `first` on, then as many FF.
Bytes hexHalf(const Bytes& image, std::size_t first) {
  Bytes half(image.size(), 0xFF);
  for (std::size_t i = first; i < image.size(); i += 2) half[i / 2] = image[i];
  return ascii(intelHexText(half));
}

const std::string mayOverwrite =
    "\r\nThe file exists already.Do you preserve it with overwrite coming?";

class OddEvenPairs : public ProgramTest {
 protected:
  OddEvenPairs() { startWithMap(smallMap()); }
  // Opens the dialog, chooses, presses a button and answers two file dialogs, "" by Cancel.
  void press(Button& button, int size, bool hex, const std::string& odd, const std::string& even) {
    pick("odd_even_file");
    oddeven.List1.userSelect(size);
    (hex ? oddeven.Option2 : oddeven.Option1).userSelect();
    chooseFiles({odd, even});
    &button == &load ? oddeven.userEnter() : button.userClick();
    chooseFiles({});
    EXPECT_TRUE(!oddeven.loaded() && form1().enabled() && !desk.busy);
  }
  Button& load = oddeven.Command1;
  Button& save = oddeven.Command2;
};

TEST_F(OddEvenPairs, ShortHexFilesAreFilledWithZerosAndShortRawFilesAreRefused) {
  // What, in hex, the two files, and the image; nothing: refused.
  const std::tuple<const char*, bool, Bytes, Bytes, std::optional<Bytes>> table[] = {
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
    editorState.splitRomKbit = "none";
    loadImage(patternImage(2048));
    writeBytes("odd", odd);
    writeBytes("even", even);
    press(load, 0, hex, "odd", "even");
    Bytes expected = image.value_or(Bytes{});
    if (image) expected.resize(8192);
    EXPECT_TRUE(editorState.image == expected && editorState.savedImage == expected);
    EXPECT_EQ(editorState.imagePath, path(image ? "even" : "image.bin"));
    EXPECT_EQ(told(), image ? "" : "*ERROR = [9]　Ill. DATA? even");
    EXPECT_EQ(editorState.splitRomKbit, image ? "64" : "none");
  }
}

TEST_F(OddEvenPairs, RefusalsDeclinesAndCancelsChangeNothingAndNoBoxStandsBehindTheDialog) {
  writeBytes("odd", Bytes(4096));
  writeText("old", "old");
  loadImage(patternImage(8192));
  editorState.image[0] ^= 1;
  std::size_t boxes = 0;
  desk.whileAsking = [&] {
    EXPECT_NE(oddeven.topmost(), desk.boxes.size() > boxes) << "it would hide a box";
    boxes = desk.boxes.size();
  };
  // The files, the answer, what is told, and how many files were asked for.
  const std::tuple<Button&, bool, std::string, const char*, BoxAnswer, std::string, std::size_t>
      table[] = {{load, false, "odd", "odd", BoxAnswer::no, discardQuestion, 0},
                 {load, true, "", "", BoxAnswer::yes, discardQuestion, 1},
                 {load, true, "odd", "", BoxAnswer::yes, discardQuestion, 2},
                 {save, true, "", "", BoxAnswer::yes, "", 1},
                 {save, true, "new", "", BoxAnswer::yes, "", 2},
                 {save, false, "new", "old", BoxAnswer::cancel, "old" + mayOverwrite, 2},
                 {save, false, "old", "new", BoxAnswer::cancel, "old" + mayOverwrite, 1},
#ifdef _WIN32
                 {save, false, "both", "BOTH", BoxAnswer::cancel, "BOTH" + mayOverwrite, 2},
#endif
                 {save, false, "both", "./both", BoxAnswer::cancel, "both" + mayOverwrite, 2}};
  for (const auto& [button, hex, odd, even, answer, expected, asked] : table) {
    SCOPED_TRACE(odd + " and " + even);
    desk.boxAnswers = {answer};
    desk.openDialogs.clear();
    desk.saveDialogs.clear();
    press(button, 0, hex, odd, even);
    EXPECT_EQ(told(), expected);
    boxes = 0;
    EXPECT_EQ(desk.openDialogs.size() + desk.saveDialogs.size(), asked);
    for (const char* name : {"new", "both"}) EXPECT_EQ(readText(name), "") << name;
  }
  desk.whileAsking = {};
  desk.boxAnswers.clear();
  EXPECT_EQ(readText("old"), "old");
  EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(editorState.image.at(0x100)));
  pick("odd_even_file");
  EXPECT_TRUE(oddeven.List1.text() == "256" && oddeven.Option1.selected());
  oddeven.userEscape();
  EXPECT_FALSE(oddeven.loaded());
  pick("odd_even_file");
  oddeven.List1.setIndex(-1);
  save.userClick();
  EXPECT_EQ(told(), "Select ROM Size");
  EXPECT_TRUE(oddeven.loaded() && oddeven.topmost());
  press(save, 1, false, "new", "even");
  EXPECT_EQ(told(), "*ERROR = [9]") << "the image is too small";
  EXPECT_FALSE(std::filesystem::exists(path("new")));
}

TEST_F(OddEvenPairs, EachSizeComesBackByteForByteInEachForm) {
  startWithMap("TYPE_UNIT\nANY\n");
  const Bytes image = patternImage(2048 * 128 + 9);
  std::size_t bytes = 64 * 128;
  for (int size = 0; size < 6; ++size, bytes *= 2) {
    for (const bool hex : {false, true}) {
      SCOPED_TRACE((hex ? "hex " : "raw ") + std::to_string(bytes));
      for (const char* half : {"odd", "even"}) std::filesystem::remove(path(half));
      loadImage(image);
      press(save, size, hex, "odd", "even");
      loadImage({1});
      press(load, size, hex, "odd", "even");
      EXPECT_EQ(told(), "");
      EXPECT_TRUE(editorState.image == Bytes(image.begin(), image.begin() + std::ptrdiff_t(bytes)));
    }
  }
}

// The choice counts for Intel HEX from then on.
TEST_F(OddEvenPairs, APairOfAPartCutsNoRawFile) {
  Bytes image = patternImage(20001);
  loadImage(image);
  press(save, 0, false, "odd", "even");
  for (const char* value : {"7", "9"}) {
    form1().Grid1.setText(1, 1, value);
    image[0x100] = static_cast<std::uint8_t>(value[0] - '0');
    editorState.image.back() ^= 1;
    image.back() ^= 1;
    if (value[0] == '7') pick("update_bin_file");
    EXPECT_EQ(value[0] == '7' ? readBytes("image.bin") : saveImage("saved.bin"), image);
    EXPECT_EQ(editorState.savedImage, image);
  }
  pick("ANY_NAME_SAVE_IntelHEX", {"head.hex"});
  EXPECT_EQ(readBytes("head.hex"), ascii(intelHexText(std::span(image).first(8192))));
}

TEST_F(OddEvenPairs, ASaveLeavesTheImageItsNameAndALoadTakesOneThatIsNotSimplyOverwritten) {
  const Bytes image = patternImage(16384);
  loadImage(image);
  form1().Grid1.setText(1, 1, "77");
  press(save, 0, true, "odd.hex", "even.hex");
  Bytes head(image.begin(), image.begin() + 8192);
  head[0x100] = 77;
  EXPECT_EQ(readBytes("odd.hex"), hexHalf(head, 0));
  EXPECT_NE(readText("zelkova.ini").find("\r\n64\r\nIntelHEX\r\n"), std::string::npos);
  EXPECT_TRUE(editorState.savedImage == image && editorState.imagePath == path("image.bin"));
  desk.boxAnswers = {BoxAnswer::yes, BoxAnswer::cancel, BoxAnswer::ok};
  press(load, 0, true, "odd.hex", "even.hex");
  told();
  pick("update_bin_file");
  EXPECT_EQ(readBytes("even.hex"), hexHalf(head, 1));
  for (int i = 0; i < 2; ++i) {
    pick("update_bin_file");
    EXPECT_EQ(readBytes("even.hex"), ascii(intelHexText(head)));
  }
  EXPECT_EQ(told(), "even.hex" + mayOverwrite + "|even.hex" + mayOverwrite);
}

}  // namespace
