// Every way of saving under fire: each system call of a command fails in turn, or the process is
// killed at it. What stands on disk is the old file or the new one, whole, and the next save leaves
// no stray file behind.
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>

#include "calc/engine_specification.h"
#include "failing_calls_posix.h"
#include "imagefiles/image_forms.h"
#include "imagefiles/odd_even.h"
#include "support.h"

namespace {

constexpr int killed = -1;

struct Way {
  const char* command;
  std::vector<const char*> files;
  std::function<void()> answer;  // what the user does behind the command
};

class SavesUnderFire : public ProgramTest {
 protected:
  // What a strike met. Only calls that have a way around them may fail in a save that succeeds.
  enum Struck { none, afterSaving, avoidable, needed };

  // Runs the command in a process of its own, `calls` system calls before `error` strikes; `saved`
  // is what its files hold after it.
  int strike(const Way& way, int calls, int error, const std::vector<Bytes>& saved = {}) {
    return failing_calls::inChild([&] {
      int met = none;
      failing_calls::atThatCall = [&] {
        if (error == killed) raise(SIGKILL);
        const std::string& call = failing_calls::struckCall;
        const bool around = call == "open" || call == "link" || call == "fsync folder";
        const bool again = error == EINTR && (call == "write" || call == "fsync");
        met = held(way) == saved ? afterSaving : around || again ? avoidable : needed;
        return error;
      };
      failing_calls::callsLeft = calls;
      for (const char* file : way.files) {
        desk.saveAnswers.push_back(path(file));
        desk.boxAnswers.push_back(BoxAnswer::ok);
      }
      pick(way.command);
      way.answer();
      return met;
    });
  }

  // What the command's files hold, but for the log's minute, which runs on.
  std::vector<Bytes> held(const Way& way) const {
    std::vector<Bytes> all;
    for (const std::string file : way.files) {
      Bytes& bytes = all.emplace_back(readBytes(file));
      const auto isDigit = [](std::uint8_t c) { return c >= '0' && c <= '9'; };
      if (file == "error.log") std::ranges::replace_if(bytes, isDigit, '0');
    }
    return all;
  }

  std::ptrdiff_t fileCount() const {
    const std::filesystem::directory_iterator files(folder);
    return std::distance(begin(files), end(files));
  }

  void restore(const Way& way, const std::vector<Bytes>& old) const {
    for (std::size_t i = 0; i < old.size(); ++i) writeBytes(way.files[i], old[i]);
  }

  void strikeEverywhere(const Way& way, int error) {
    const std::ptrdiff_t filesAtRest = fileCount();
    const std::vector<Bytes> old = held(way);
    strike(way, failing_calls::never, 0);
    const std::vector<Bytes> saved = held(way);
    int struck = needed;
    for (int point = 0; struck != none && !HasFailure(); ++point, points += struck != none) {
      SCOPED_TRACE(std::string(way.command) + ", call " + std::to_string(point));
      restore(way, old);
      struck = strike(way, point, error, saved);
      readImageFile(path(way.files[static_cast<std::size_t>(point) % way.files.size()]));
      const std::vector<Bytes> now = held(way);
      for (std::size_t i = 0; i < old.size(); ++i) {
        EXPECT_TRUE(old[i] != saved[i] && (now[i] == old[i] || now[i] == saved[i])) << error;
      }
      EXPECT_TRUE(now == old || now == saved) << "halves of two saves";
      EXPECT_FALSE(struck == needed && now == saved) << error << " was overlooked";
      restore(way, old);
      strike(way, failing_calls::never, 0);
      EXPECT_TRUE(held(way) == saved && fileCount() == filesAtRest) << error;
    }
    restore(way, old);
  }

  int points = 0;
};

TEST_F(SavesUnderFire, LeaveOldOrNewFilesWhole) {
  startWithMap(smallMap());
  writeText("error.log", "older\r\n");
  loadImage(patternImage(8192), "raw.bin");
  form1().Grid1.userKey(U'+');
  editorState.splitRomKbit = "64";
  editorState.splitFormat = "BINARY";
  for (const char* file : {"image.hex", "odd.bin", "even.bin"}) writeText(file, "old");
  const Way ways[] = {
      {"update_bin_file", {"raw.bin"}, [] {}},
      {"ANY_NAME_SAVE_IntelHEX", {"image.hex"}, [] {}},
      {"odd_even_file", {"odd.bin", "even.bin"}, [] { oddeven.Command2.userClick(); }},
      {"set_spl",
       {"zelkova.ini"},
       [] {
         form2.Text1.userEdit("2500");
         form2.userEnter();
       }},
      {"load_map_addr", {"error.log"}, [] {}}};
  desk.openAnswers = {path("missing.adr")};
  for (const Way& way : ways) {
    for (const int error : {ENOSPC, EIO, EACCES, EINTR, killed}) strikeEverywhere(way, error);
  }
  failing_calls::linksWork = false;
  strikeEverywhere(ways[2], EIO);
  failing_calls::linksWork = true;
  EXPECT_GT(points, 100);
  std::cout << "saves under fire: " << points << " points\n";
}

}  // namespace
