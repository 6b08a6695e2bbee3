// Files from outside: dropped on the main window, named on the command line, picked from the recent
// address maps.
#include "frontend/opening.h"

#include <filesystem>

#include "core/notices.h"
#include "frontend/command_line.h"
#include "frontend/environment.h"
#include "frontend/splash.h"
#include "frontend/startup.h"
#include "imagefiles/intel_hex_file.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

class OpeningFiles : public ProgramTest {
 protected:
  OpeningFiles() {
    startWithMap(smallMap());
    writeBytes("日本 車.bin", image);
    writeIntelHex(path("car.hex"), second);
    writeText("-next.ADR", "TYPE_UNIT\r\nNEXT\r\n");
    fs::create_directory(path("folder.bin"));
    writeBytes("empty.bin", {});
    writeBytes("huge.bin", {1});
    fs::resize_file(path("huge.bin"), std::uintmax_t{1} << 31);
    writeText("readme.txt", "text");
  }
  const Bytes image = patternImage(0x400);
  const Bytes second = patternImage(0x400, 2);
};

TEST_F(OpeningFiles, OneDroppedFileIsTakenByItsCommandAndForAnyOtherTheStripSaysWhatToDo) {
  form1().userDrop({path("日本 車.bin")}, false);
  EXPECT_TRUE(editorState.image == image && form1().caption() == "日本 車.bin - ZELKOVA");
  form1().userDrop({path("car.hex")}, true);
  EXPECT_TRUE(editorState.image == image && editorState.compareImage == second);
  const std::tuple<std::vector<std::string>, bool, std::string> table[] = {
      {{"readme.txt"}, false, "readme.txt is neither an image nor an address map. Open one"},
      {{""}, true, "That is no file of this machine. Open one"},
      {{"folder.bin/"}, false, "folder.bin can't be read: [75] Path/File access error."},
      {{"gone.adr"}, false, "gone.adr can't be read: [53] File not found."},
      {{"empty.bin"}, true, "empty.bin is empty."},
      {{"huge.bin"}, false, "huge.bin is too large: 2147483648 bytes."},
      {{"car.hex", "日本 車.bin"}, true, "Those are 2 files. Open one"},
      {{"car.hex", "-next.ADR"}, false, "Those are 2 files. Open one"}};
  for (const auto& [names, control, text] : table) {
    std::vector<std::string> paths;
    for (const std::string& name : names) paths.push_back(name.empty() ? "" : path(name));
    for (int again = 0; again < 2; ++again) {
      form1().userDrop(paths, control);
      EXPECT_TRUE(shown().starts_with(text)) << shown();
      form1().noticeClose.userClick();
    }
  }
  EXPECT_TRUE(editorState.image == image && editorState.compareImage == second);
  form1().Grid1.setText(1, 1, "9");
  for (const BoxAnswer answer : {BoxAnswer::no, BoxAnswer::yes}) {
    desk.boxAnswers = {answer};
    form1().userDrop({path("car.hex")}, false);
    EXPECT_EQ(editorState.image == second, answer == BoxAnswer::yes);
  }
  told();
  form1().setEnabled(false);
  form1().userDrop({path("-next.ADR")}, false);
  EXPECT_EQ(form1().Label1.caption() + shown(), "SMALL");
  form1().setEnabled(true);
  form1().userDrop({path("-next.ADR")}, true);
  EXPECT_EQ(form1().Label1.caption() + shown(), "NEXT");
  editorState.addressMap.typeUnit = "";
  form1().userDrop({path("car.hex")}, false);
  EXPECT_TRUE(told().starts_with("An address file reads and been crowded"));
}

TEST_F(OpeningFiles, TheCommandLineNamesAnImageAndAMapInAnyOrderOrEndsTheProgramWithAClearLine) {
  const fs::path before = fs::current_path();
  fs::current_path(scratch.path());
  const auto refusal = [](const std::string& why) {
    return "zelkova: " + why + "\nTry 'zelkova --help'.\n";
  };
  using Words = std::vector<std::string>;
  const std::tuple<Words, Words, std::string> table[] = {
      {{}, {}, ""},
      {{"日本 車.bin", path("car.hex")}, {"日本 車.bin", "car.hex"}, ""},
      {{"--", "-next.ADR"}, {"-next.ADR"}, ""},
      {{"./-next.ADR", "folder.bin"}, {"-next.ADR", "folder.bin"}, ""},
      {{"-platform", "offscreen", "--style=fusion", "-reverse", "car.hex"}, {"car.hex"}, ""},
      {{"-next.ADR"}, {}, refusal("-next.ADR: unknown option")},
      {{"car.hex", "--colour"}, {}, refusal("--colour: unknown option")},
      {{"-"}, {}, refusal("-: unknown option")},
      {{"car.hex", "gone.bin"}, {}, refusal("gone.bin: File not found")},
      {{"no/car.bin"}, {}, refusal("no/car.bin: Path not found")},
      {{""}, {}, refusal(": File not found")},
      {{"--", "--help"}, {}, refusal("--help: File not found")}};
  for (const auto& [words, names, text] : table) {
    const CommandLine asked = readCommandLine(words);
    Words paths;
    for (const std::string& name : names) paths.push_back(path(name));
    EXPECT_EQ(asked.files, paths) << testing::PrintToString(words);
    EXPECT_EQ(asked.text, text);
    EXPECT_EQ(asked.status, text.empty() ? 0 : 2);
  }
  const CommandLine asked = readCommandLine({"car.hex", "--version", "--colour"});
  EXPECT_TRUE(asked.status == 0 && asked.files.empty() && asked.text.starts_with("ZELKOVA V"));
  fs::current_path(before);
  end();
  startProgram(folder, {path("日本 車.bin"), path("-next.ADR")});
  EXPECT_EQ(editorState.imageSize, 0) << "the splash window still stands";
  for (int again = 0; again < 2; ++again) closeSplash();
  EXPECT_EQ(form1().Label1.caption() + form1().caption(), "NEXT日本 車.bin - ZELKOVA");
}

TEST_F(OpeningFiles, NineRecentAddressMapsAreListedTheLastOneFirst) {
  const auto listed = [] {
    form1().menuBar.find("exchange")->userOpen();
    const MenuItem& menu = *form1().menuBar.find("recent_maps");
    std::string names;
    for (const auto& item : menu.children()) {
      if (item->visible()) names += fileNameOf(item->caption()) + " ";
    }
    EXPECT_EQ(menu.enabled(), !names.empty());
    return names;
  };
  EXPECT_EQ(listed(), "");
  std::string expected = "map.adr ";
  for (int i = 1; i <= 9; ++i) {
    const std::string name = "map" + std::to_string(i) + ".txt";
    writeText(name, smallMap());
    pickFile("load_map_addr", name);
    expected = name + " " + expected;
    EXPECT_EQ(listed(), i < 9 ? expected : expected.substr(0, expected.find("map.adr")));
  }
  useMap("no keyword");
  pick("mnuRecentMap8");
  EXPECT_EQ(listed(), "map2.txt " + expected.substr(0, expected.find("map2")) + "map1.txt ");
  EXPECT_EQ(editorState.addressFilePath, path("map2.txt"));
  fs::remove(path("map9.txt"));
  pick("mnuRecentMap2");
  EXPECT_EQ(shown(), "map9.txt can't be read: [53] File not found.");
  EXPECT_EQ(editorState.addressFilePath, path("map2.txt"));
  pickFile("load_map_addr", "gone.adr");
  told();
  EXPECT_TRUE(listed().starts_with("map2.txt map9.txt")) << "what failed is not listed";
  form9.Command5.onClick();
  EXPECT_EQ(listed(), "");
}

}  // namespace
