// The error log: one line for each failure, newest first, and never a failure of its own.
#include "core/error_log.h"

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "support.h"

namespace {

class ErrorLog : public ProgramTest {
 protected:
  ErrorLog() { startWithMap(smallMap()); }
};

TEST_F(ErrorLog, EachCommandLeavesItsLineNewestFirst) {
  writeText("error.log", "older\r\n");
  const std::time_t now = std::time(nullptr);
  char day[16];
  std::strftime(day, sizeof day, "%y/%m/%d ", std::localtime(&now));
  pickFile("load_bin_file", "gone.bin");
  pickFile("load_map_addr", "no/gone.adr");
  std::string log = readText("error.log");
  const std::string lines[] = {std::string(day) + "hh:nn BIN読み込み  53 File not found\r\n",
                               std::string(day) + "hh:nn ADR File読み込み  76 Path not found\r\n"};
  log.replace(9, 5, "hh:nn").replace(lines[1].size() + 9, 5, "hh:nn");
  EXPECT_EQ(log, lines[1] + lines[0] + "older\r\n");
}

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
