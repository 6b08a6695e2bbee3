// The error log: one line for each failure, newest first, and never a failure of its own.
#include "core/error_log.h"

#include <ctime>
#include <filesystem>
#include <regex>

#include "platform/failure.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

class ErrorLog : public ProgramTest {
 protected:
  std::string today() const {
    const std::time_t now = std::time(nullptr);
    char text[16];
    return {text, std::strftime(text, sizeof text, "%y/%m/%d ", std::localtime(&now))};
  }
  void fail(const std::string& command, const std::string& name) {
    desk.openAnswers.push_back(path(name));
    pick(command);
  }
};

TEST_F(ErrorLog, EachCommandLeavesItsLineNewestFirst) {
  startWithMap(smallMap());
  writeText("error.log", "older\r\n");
  fail("load_bin_file", "gone.bin");
  fail("load_map_addr", "no/gone.adr");
  const std::string log = readText("error.log");
  const std::regex form(today() + R"(\d\d:\d\d ADR File読み込み  76 Path not found\r\n)" + today() +
                        R"(\d\d:\d\d BIN読み込み  53 File not found\r\nolder\r\n)");
  EXPECT_TRUE(std::regex_match(log, form)) << log;
}

TEST_F(ErrorLog, KeepsTwoHundredFortyNineLinesAtMost) {
  struct Row {
    int before;
    int after;
    bool logged;
  };
  for (const Row& row :
       {Row{0, 1, true}, Row{1, 2, true}, Row{247, 248, true}, Row{248, 249, true},
        Row{249, 249, true}, Row{256, 249, true}, Row{258, 258, false}, Row{5000, 5000, false}}) {
    std::string text;
    for (int i = 1; i <= row.before; ++i) text += "line " + std::to_string(i) + "\r\n";
    writeText("error.log", text);
    editorState.appPath = folder;
    logError("上書き", 57, "Device I/O error");
    const std::string log = readText("error.log");
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), row.after) << row.before;
    EXPECT_EQ(log.find(" 上書き  57 Device I/O error\r\n") == today().size() + 5, row.logged);
    if (row.logged && row.before > 0) {
      EXPECT_TRUE(log.ends_with("line " + std::to_string(row.after - 1) + "\r\n"));
    }
  }
}

TEST_F(ErrorLog, NeverCreatesTheFileAndKeepsSilent) {
  startWithMap(smallMap());
  fail("load_bin_file", "gone.bin");
  EXPECT_FALSE(fs::exists(path("error.log")));
  fs::create_directory(path("error.log"));
  desk.boxes.clear();
  fail("load_bin_file", "gone.bin");
  EXPECT_EQ(desk.boxes.size(), 1U) << "only the failure itself is told";
  fs::remove(path("error.log"));
  writeText("error.log", "");
  desk.openAnswers.push_back("");
  pick("load_bin_file");
  logError("x", 0, "no failure");
  logError("x", cancelled, failureText(cancelled));
  EXPECT_EQ(readText("error.log"), "");
}

}  // namespace
