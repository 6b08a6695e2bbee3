// The settings file: read at start, damaged in every way, and written by position.
#include "core/settings_file.h"

#include <filesystem>

#include "platform/text_encoding.h"
#include "support.h"

namespace {

using std::string_literals::operator""s;

class SettingsFile : public ProgramTest {
 protected:
  SettingsFile() { writeText("map.adr", smallMap()); }
  // The first settings with one line replaced.
  static std::string with(int line, const std::string& text) {
    std::string settings = firstSettings("map.adr");
    std::size_t begin = 0;
    while (line-- > 0) begin = settings.find("\r\n", begin) + 2;
    return settings.replace(begin, settings.find("\r\n", begin) - begin, text);
  }
  void startWith(const std::string& settings) {
    writeText("zelkova.ini", settings);
    start();
  }
  // Leaves every dialog by Enter, and by its close box where Enter doesn't do.
  void leaveDialogs() {
    while (desk.shownWindows.back() != &form1()) {
      Window& dialog = *desk.shownWindows.back();
      desk.openAnswers = {""};  // a pair's first file
      dialog.userEnter();
      desk.openAnswers.clear();
      if (dialog.loaded()) dialog.userClose();
    }
  }
};

TEST_F(SettingsFile, EachLineReachesItsMember) {
  startWith("cut\r\n");
  EXPECT_EQ(told() + readText("zelkova.ini"), "*ERROR = [13]cut\r\n");
  startWith(firstSettings(""));
  const std::string map = " 日本  車 ελληνικά 🚗.adr";
  writeText(map, smallMap());
  pickFile("load_map_addr", map);
  editorState.romFolder = "a\r\nb\nc";
  writeSettings();
  start();
  const EditorState& s = editorState;
  EXPECT_EQ(told() + s.version + s.addressFilePath + s.romFolder + s.plusKey + s.minusKey +
                s.splitRomKbit + s.splitFormat + s.aboutSound,
            "Version 1.98.48E" + path(map) + "a  b c+-256BINARYTRAN");
  const std::tuple<const char*, double, double> numbers[] = {
      {"displacement", s.displacement, 1998},
      {"injector size", s.injectorSize, 370},
      {"cylinders", s.cylinders, 4},
      {"mask", s.graphFbMask, 128},
      {"threshold", s.graphFbThreshold, 125},
      {"magnification", s.graphMagnification, 1},
      {"editor's start", s.addressEditStart, 4096},
      {"editor's columns", s.addressEditColumns, 16},
      {"editor's rows", s.addressEditRows, 17},
      {"colour rate", s.gridColorRate, 1},
      {"English", s.english, 1},
      {"comparison shown", s.graphShowCompare, 0},
      {"step X", s.graphStepX, 30},
      {"step Y", s.graphStepY, 14},
      {"ratio X", s.graphRatioX, 1},
      {"ratio Y", s.graphRatioY, 2}};
  for (const auto& [name, number, expected] : numbers) EXPECT_EQ(number, expected) << name;
  EXPECT_EQ(form1().Label34.caption() + form1().Label1.caption(), " 1998/4   Inj.370SMALL");
}

TEST_F(SettingsFile, ADamagedFileIsKeptBesideTheOneThatTakesItsPlace) {
  startWith(firstSettings("map.adr"));
  useMap(smallMap());
  EXPECT_FALSE(std::filesystem::exists(path("zelkova.ini.damaged")));
  for (const std::string& damaged :
       {"cut\r\n\xFF"s, with(24, "x"), with(0, std::string(1002, '\n')), with(1, "gone.adr")}) {
    const Bytes bytes(damaged.begin(), damaged.end());
    writeBytes("zelkova.ini", bytes);
    writeBytes("zelkova.ini.damaged", {});
    start();
    for (int i = 0; i < 2; ++i) useMap(smallMap());
    const bool harmless = damaged == with(1, "gone.adr");
    EXPECT_EQ(readBytes("zelkova.ini.damaged"), harmless ? Bytes{} : bytes) << damaged.size();
    EXPECT_EQ(splitLines(readText("zelkova.ini")).size(), 25U);
  }
}

// What the file says may be refused or shown as nonsense; it never keeps a window from working.
TEST_F(SettingsFile, AnyTextInAnyLineLeavesEveryWindowWorking) {
  const std::string endless(4096, 'A');
  const std::string texts[] = {
      "", "x", "0", "-1", "2147483647", "-2147483648", "99999999999", "1E38", "車", endless};
  for (int line = 0; line < 25; ++line) {
    for (const std::string& text : texts) {
      SCOPED_TRACE(std::to_string(line) + ": " + text);
      startWith(with(line, text));
      ASSERT_EQ(readText("zelkova.ini"), with(line, text));
      useMap(smallMap());
      loadImage(patternImage(0x400));
      for (const char* command : {"set_spl", "ADR_EDIT", "DISP_3D_Graph", "TP_2D", "AF_DISP_FORM",
                                  "SET_DEFAULT_FOLDER", "odd_even_file"}) {
        pick(command);
        leaveDialogs();
        ASSERT_TRUE(form1().enabled());
      }
      form1().Grid1.userKey(U'+');
      ASSERT_EQ(told().find("[51]"), std::string::npos);
      std::filesystem::remove(path("saved.bin"));
      ASSERT_EQ(saveImage("saved.bin").size(), 0x400U);
    }
  }
}

}  // namespace
