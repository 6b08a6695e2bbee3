// Every way of saving under fire: each system call of a command fails in turn, or the process is
// killed at it. What stands on disk is the old file or the new one, whole, and the next save leaves
// no stray file behind.
#include <algorithm>
#include <cerrno>
#include <csignal>
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
  std::vector<std::string> files;
  std::function<void()> answer;  // what the user does behind the command
};

class CommandsUnderFire : public ProgramTest {
 protected:
  // Runs the command in a process of its own, `calls` system calls before `error` strikes; false
  // when it made fewer.
  bool strike(const Way& way, int calls, int error) {
    const auto strikes = [error] { return error == killed ? raise(SIGKILL) : error; };
    const auto command = [&] {
      chooseFiles(way.files);
      desk.openAnswers = {path("missing.adr")};
      desk.boxAnswers.assign(way.files.size(), BoxAnswer::ok);
      pick(way.command);
      way.answer();
    };
    return failing_calls::inChild(
               [&] { return failing_calls::struck(calls, strikes, command) ? 0 : 1; }) != 1;
  }

  // What the command's files hold, but for the log's minute, which runs on.
  std::vector<Bytes> held(const Way& way) const {
    std::vector<Bytes> all;
    for (const std::string& file : way.files) {
      Bytes& bytes = all.emplace_back(readBytes(file));
      const auto isDigit = [](std::uint8_t c) { return c >= '0' && c <= '9'; };
      if (file == "error.log") std::ranges::replace_if(bytes, isDigit, '0');
    }
    return all;
  }
};

TEST_F(CommandsUnderFire, LeaveOldOrNewFilesWhole) {
  startWithMap(smallMap());
  writeText("error.log", "older\r\n");
  loadImage(patternImage(8192), "raw.bin");
  form1().Grid1.userKey(U'+');
  editorState.splitRomKbit = "64";
  editorState.splitFormat = "BINARY";
  for (const char* file : {"image.hex", "odd.bin", "even.bin"}) writeText(file, "old");
  const auto newEngine = [] {
    form2.Text1.userEdit("2500");
    form2.userEnter();
  };
  const Way ways[] = {
      {"update_bin_file", {"raw.bin"}, [] {}},
      {"ANY_NAME_SAVE_IntelHEX", {"image.hex"}, [] {}},
      {"odd_even_file", {"odd.bin", "even.bin"}, [] { oddeven.Command2.userClick(); }},
      {"set_spl", {"zelkova.ini"}, newEngine},
      {"load_map_addr", {"error.log"}, [] {}}};
  int points = 0;
  for (const Way& way : ways) {
    const std::vector<Bytes> old = held(way);
    const auto restore = [&] {
      for (std::size_t i = 0; i < old.size(); ++i) writeBytes(way.files[i], old[i]);
    };
    const std::size_t filesAtRest = scratch.count();
    strike(way, 9999, 0);
    const std::vector<Bytes> saved = held(way);
    EXPECT_NE(saved, old);
    for (const int error : {ENOSPC, EINTR, EIO, killed}) {
      failing_calls::linksWork = error != EIO;
      for (int point = 0; strike(way, point, error); ++point, ++points) {
        SCOPED_TRACE(testing::Message() << way.command << ", call " << point << ", " << error);
        readImageFile(path(way.files[static_cast<std::size_t>(point) % way.files.size()]));
        EXPECT_TRUE(held(way) == old || held(way) == saved);
        restore();
        strike(way, 9999, 0);
        EXPECT_TRUE(held(way) == saved && scratch.count() == filesAtRest);
        restore();
      }
    }
    failing_calls::linksWork = true;
  }
  EXPECT_GT(points, 100);
  std::cout << "saves under fire: " << points << " points\n";
}

}  // namespace
