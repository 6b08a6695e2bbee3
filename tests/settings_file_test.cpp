// The settings file: read at start, damaged in every way, and written by position.
#include "core/settings_file.h"

#include <filesystem>

#include "support.h"

namespace {

namespace fs = std::filesystem;

class SettingsFile : public ProgramTest {
 protected:
  static constexpr int lineCount = 25;

  // The program comes up anew in the same folder.
  void startAnew() {
    discardForm1();
    editorState = EditorState{};
    desk.boxes.clear();
    start();
  }
  // The first settings with line `line` replaced.
  static std::string with(std::size_t line, const std::string& text) {
    std::string settings = firstSettings("map.adr");
    std::size_t begin = 0;
    while (line-- > 0) begin = settings.find("\r\n", begin) + 2;
    return settings.replace(begin, settings.find("\r\n", begin) - begin, text);
  }
};

TEST_F(SettingsFile, WithoutAnyTheProgramStartsSilentlyOnZeros) {
  start();
  EXPECT_TRUE(desk.boxes.empty());
  EXPECT_EQ(editorState.version + editorState.plusKey + editorState.addressFilePath, "");
  EXPECT_EQ(editorState.displacement + editorState.gridColorRate + editorState.english, 0);
  EXPECT_EQ(form1().Label1.caption(), "機種別アドレスマップが読み込まれていません。");
  EXPECT_EQ(form1().Frame6.caption(), "ADD マップ1");
  EXPECT_FALSE(fs::exists(path("zelkova.ini")));
}

TEST_F(SettingsFile, EachLineReachesItsMember) {
  startWithMap(smallMap());
  EXPECT_TRUE(desk.boxes.empty()) << lastBox();
  const EditorState& s = editorState;
  EXPECT_EQ(s.version, "Version 1.98.48E");
  EXPECT_EQ(s.addressFilePath, "map.adr");
  const std::vector numbers{
      s.displacement,     s.injectorSize,       s.cylinders,        s.graphFbMask,
      s.graphFbThreshold, s.graphMagnification, s.addressEditStart, s.addressEditColumns,
      s.addressEditRows,  s.gridColorRate,      s.english,          s.graphShowCompare,
      s.graphStepX,       s.graphStepY};
  const std::vector expected{1998, 370, 4, 128, 125, 1, 4096, 16, 16, 1, 1, 0, 30, 14};
  EXPECT_EQ(numbers, expected);
  EXPECT_EQ(s.plusKey + s.minusKey + s.splitRomKbit + s.splitFormat + s.aboutSound,
            "+-256BINARYTRAN");
  EXPECT_EQ(s.graphRatioX, 1);
  EXPECT_EQ(s.graphRatioY, 2);
  EXPECT_EQ(form1().Label34.caption(), " 1998/4   Inj.370");
  EXPECT_EQ(form1().Label1.caption(), "SMALL");
}

TEST_F(SettingsFile, CutAnywhereItIsShownAndKeptAndWhatStandsBeforeCounts) {
  const std::string whole = firstSettings("map.adr");
  const std::size_t lastNumber = whole.find_last_of("2") + 1;
  const std::size_t displacementEnd = whole.find(" 370");
  writeText("map.adr", smallMap());
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    writeText("zelkova.ini", whole.substr(0, cut));
    startAnew();
    const bool complete = cut >= lastNumber;
    ASSERT_EQ(desk.boxes.size(), complete ? 0U : 1U) << cut;
    if (!complete) {
      ASSERT_EQ(desk.boxes[0].title, "Detected error.This error is not fatal.");
      ASSERT_EQ(lastBox(), "*ERROR = [13]") << cut;
    }
    ASSERT_EQ(editorState.addressMap.typeUnit, complete ? "SMALL" : "") << cut;
    if (cut >= displacementEnd) {
      ASSERT_EQ(editorState.displacement, 1998);
    }
    ASSERT_EQ(readText("zelkova.ini"), whole.substr(0, cut));
  }
}

TEST_F(SettingsFile, NumbersAreReadStrictly) {
  struct Row {
    std::size_t line;
    std::string text;
    const char* box;  // "" for none
    double value;
  };
  const Row table[] = {
      {2, "&H7CE", "", 1998},
      {2, "\t 1998.5 ", "", 1998},
      {2, "1999.5", "", 2000},
      {2, "-5", "", -5},
      {2, "1.2E3", "", 1200},
      {2, "&HFFFFFFFF", "", -1},
      {2, "2147483647", "", 2147483647},
      {2, "2147483648", "*ERROR = [6]", 0},
      {2, "99999999999", "*ERROR = [6]", 0},
      {2, "", "*ERROR = [13]", 0},
      {2, "abc", "*ERROR = [13]", 0},
      {2, "12 cc", "*ERROR = [13]", 0},
      {2, "&H", "*ERROR = [13]", 0},
      {2, std::string("1\0", 2), "*ERROR = [13]", 0},
      {23, "0.1", "", 0.1F},
      {23, "-1.5E-3", "", -1.5E-3F},
      {23, "1,5", "*ERROR = [13]", 0},
      {23, "1E99", "*ERROR = [6]", 0},
  };
  writeText("map.adr", smallMap());
  for (const Row& row : table) {
    writeText("zelkova.ini", with(row.line, row.text));
    startAnew();
    EXPECT_EQ(lastBox(), row.box) << row.text;
    const double graphRatioX = editorState.graphRatioX;
    EXPECT_EQ(row.line == 2 ? editorState.displacement : graphRatioX, row.value) << row.text;
    EXPECT_EQ(editorState.addressMap.typeUnit.empty(), *row.box != 0) << row.text;
  }
}

TEST_F(SettingsFile, AnyNumberButZeroIsEnglishAndOnlyOneChangesCaptions) {
  struct Row {
    const char* line;
    const char* title;
    const char* fileMenu;
  };
  for (const Row& row : {Row{"0", "エラー", "ﾌｧｲﾙ"}, Row{"1", "Error", "File"},
                         Row{"2", "Error", "ﾌｧｲﾙ"}, Row{"-1", "Error", "ﾌｧｲﾙ"}}) {
    writeText("zelkova.ini", with(16, row.line));
    startAnew();
    pick("load_bin_file");
    EXPECT_EQ(desk.boxes.at(0).title, row.title) << row.line;
    EXPECT_EQ(form1().menuBar.find("file_load")->caption(), row.fileMenu) << row.line;
  }
}

TEST_F(SettingsFile, MissingAddressMapsAreSilentAndThePromptStands) {
  fs::create_directory(path("folder.adr"));
  for (const char* file : {"gone.adr", "no/such/folder.adr", "folder.adr", ""}) {
    writeText("zelkova.ini", firstSettings(file));
    startAnew();
    EXPECT_TRUE(desk.boxes.empty()) << file;
    EXPECT_EQ(form1().Label1.caption(), "Please load an address map(*.adr) first. ") << file;
    EXPECT_EQ(editorState.graphStepX, 30) << file;
  }
  fs::remove(path("zelkova.ini"));
  fs::create_directory(path("zelkova.ini"));
  startAnew();
  EXPECT_TRUE(desk.boxes.empty());
}

TEST_F(SettingsFile, LinesBehindTheLastAreDroppedAndTooManyRefused) {
  writeText("map.adr", smallMap());
  std::string text = firstSettings("map.adr");
  for (int i = lineCount; i < 1001; ++i) text += "more\r\n";
  writeText("zelkova.ini", text);
  startAnew();
  EXPECT_TRUE(desk.boxes.empty());
  writeSettings();
  const std::string written = readText("zelkova.ini");
  EXPECT_EQ(written, with(0, "Version 1.98.48E"));
  writeText("zelkova.ini", text + "1002");
  startAnew();
  EXPECT_EQ(lastBox(), "*ERROR = [9]");
}

TEST_F(SettingsFile, PickingAnAddressMapStoresItsPathWhateverItsLetters) {
  startWithMap(smallMap());
  const std::string longName(200, 'x');
  for (const std::string& name : {std::string("日本 車.adr"), std::string("ελληνικά 🚗.adr"),
                                  std::string(" two  blanks .adr"), longName + ".adr"}) {
    writeText(name, smallMap());
    desk.openAnswers.push_back(path(name));
    pick("load_map_addr");
    startAnew();
    EXPECT_EQ(editorState.addressFilePath, path(name));
    EXPECT_EQ(editorState.addressMap.typeUnit, "SMALL") << name;
  }
  EXPECT_TRUE(desk.boxes.empty());
}

TEST_F(SettingsFile, AWriteThatFailsIsShownAndTheMapIsInForceAllTheSame) {
  startWithMap(smallMap());
  fs::remove(path("zelkova.ini"));
  fs::create_directory(path("zelkova.ini"));
  writeText("other.adr", "TYPE_UNIT\nOTHER");
  desk.openAnswers.push_back(path("other.adr"));
  pick("load_map_addr");
  EXPECT_EQ(lastBox(), "*ERROR = [75]");
  EXPECT_EQ(form1().Label1.caption(), "OTHER");
}

}  // namespace
