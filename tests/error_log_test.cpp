// The error log: one line for each failure, newest first, not too many, and never a failure of its
// own.
#include "core/error_log.h"

#include <algorithm>
#include <filesystem>
#include <tuple>

#include "calc/engine_specification.h"
#include "editing/address_dialog.h"
#include "editing/address_grid.h"
#include "frontend/environment.h"
#include "graphs/dr_graph.h"
#include "imagefiles/odd_even.h"
#include "support.h"

namespace {

class ErrorLog : public ProgramTest {
 protected:
  ErrorLog() { startWithMap(smallMap()); }
};

TEST_F(ErrorLog, KeepsTwoHundredFortyNineLinesAtMostAndGivesALongFileUp) {
  for (const auto& [before, after] :
       {std::pair(0, 1), std::pair(247, 248), std::pair(248, 249), std::pair(249, 249),
        std::pair(256, 249), std::pair(257, 257), std::pair(5000, 5000)}) {
    std::string text;
    for (int i = 1; i <= before; ++i) text += "line " + std::to_string(i) + "\r\n";
    writeText("error.log", text);
    logError("上書き", 57, "text");
    const std::string log = readText("error.log");
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), after) << before;
    const std::string kept = before > 256 ? log : log.substr(log.find("\r\n") + 2);
    EXPECT_TRUE(text.starts_with(kept) && (before > 256 || log.find(" 上書き  57 text\r\n") == 14))
        << before;
  }
}

TEST_F(ErrorLog, SettingsThatCannotBeWrittenAreToldUnderTheCommandsNameAndTheCommandGoesOn) {
  loadImage(patternImage(8192));
  writeText("error.log", "");
  std::filesystem::remove(path("zelkova.ini"));
  std::filesystem::create_directory(path("zelkova.ini"));
  editorState.splitRomKbit = "64";
  editorState.splitFormat = "BINARY";
  desk.saveAnswers = {path("odd"), path("even")};
  desk.openAnswers = {path("map.adr")};
  const std::tuple<const char*, std::string, std::function<void()>> table[] = {
      {"set_spl", "仕様設定", [] { form2.userEnter(); }},
      {"SET_DEFAULT_FOLDER", "環境設定", [] { form9.userEnter(); }},
      {"ADR_EDIT", "アドレス指定編集", [] { form13.userEnter(), form6.userClose(); }},
      {"DISP_3D_Graph", "3Dグラフデータ書込", [] { DR_GRAPH.userEnter(); }},
      {"odd_even_file", "BIN別名保存", [] { oddeven.Command2.userClick(); }},
      {"load_map_addr", "ADR File読み込み", [] {}}};
  for (const auto& [command, name, answer] : table) {
    pick(command);
    answer();
    const std::string log = readText("error.log");
    EXPECT_EQ(told(), "*ERROR = [75]") << command;
    EXPECT_EQ(log.find(" " + name + "  75 Path/File access error\r\n"), 14U) << log;
  }
  EXPECT_EQ(readBytes("odd").size(), 8192U);
  EXPECT_EQ(form1().Label1.caption(), "SMALL");
}

TEST_F(ErrorLog, NeverCreatesTheFileAndKeepsSilent) {
  pickFile("load_bin_file", "gone.bin");
  EXPECT_FALSE(std::filesystem::exists(path("error.log")));
  std::filesystem::create_directory(path("error.log"));
  told();
  pickFile("load_bin_file", "gone.bin");
  EXPECT_EQ(told(), "*ERROR = [53]　Ill. DATA? gone.bin") << "only the failure itself is told";
  std::filesystem::remove(path("error.log"));
  writeText("error.log", "");
  desk.openAnswers.push_back("");
  pick("load_bin_file");
  logError("x", 0, "no failure");
  EXPECT_EQ(readText("error.log"), "");
}

}  // namespace
