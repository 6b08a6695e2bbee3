// Every way of saving and giving up under fire: each system call of a command fails in turn, or the
// process is killed at it. What stands on disk is the old file or the new one, whole, and the next
// save leaves no stray file behind. What stood in a file before, and what was unsaved half a minute
// ago, stands in a file or among the earlier states, whole.
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>

#include "calc/engine_specification.h"
#include "controls/gesture.h"
#include "core/earlier_states.h"
#include "core/pending_image.h"
#include "core/unsaved_states.h"
#include "failing_calls_posix.h"
#include "imagefiles/image_forms.h"
#include "imagefiles/odd_even.h"
#include "rom/intel_hex_writer.h"
#include "support.h"

namespace {

constexpr int killed = -1;

struct Way {
  const char* command;             // "": none
  std::vector<std::string> files;  // that it replaces
  std::function<void()> answer;    // what the user does behind the command
  bool keepsFiles = false;         // files of the user, which come into the store before
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
      if (*way.command) pick(way.command);
      way.answer();
      finishUnfinishedImage();
    };
    return failing_calls::inChild([&] {
             keepUnfinishedImage();
             finishUnfinishedImage();
             return failing_calls::struck(calls, strikes, command) ? 0 : 1;
           }) != 1;
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

  // Whether the bytes stand in one of the files, raw or as Intel HEX, or are listed as an earlier
  // state once the program starts again.
  bool isWhole(const Way& way, const Bytes& bytes) const {
    const std::string hex = intelHexText(bytes);
    const Bytes text(hex.begin(), hex.end());
    if (std::ranges::any_of(held(way), [&](auto& each) { return each == bytes || each == text; })) {
      return true;
    }
    return std::ranges::any_of(earlierStates(), [&](const EarlierState& state) {
      Bytes kept;
      return state.record && trapFailure([&] { kept = bytesOf(state); }) == 0 && kept == bytes;
    });
  }
  // A program that starts takes over what those that were killed left.
  void expectNothingLost(const Way& way, const std::vector<Bytes>& old) {
    watchUnsavedImage({});
    EXPECT_TRUE(isWhole(way, pendingImage.bytes()) || isWhole(way, editedSince));
    for (const Bytes& each : old) EXPECT_TRUE(!way.keepsFiles || isWhole(way, each));
    std::filesystem::remove_all(desk.userData);
    std::filesystem::create_directory(desk.userData);
  }

  Bytes editedSince;
};

TEST_F(CommandsUnderFire, LeaveOldOrNewFilesWhole) {
  desk.userData = path("data");
  std::filesystem::create_directory(desk.userData);
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
  // What was kept half a minute ago is replaced by what was edited since.
  const auto keepAgain = [] {
    form1().Grid1.userKey(U'+');
    keepUnfinishedImage();
  };
  endGestureThread();
  form1().Grid1.userKey(U'+');
  editedSince = pendingImage.bytes();
  pick("undo");
  const auto giveUp = [&](const char* command) {
    desk.boxAnswers = {BoxAnswer::yes};
    desk.openAnswers = {path("image.hex")};
    pick(command);
  };
  const Way ways[] = {
      {"update_bin_file", {"raw.bin"}, [] {}, true},
      {"ANY_NAME_SAVE_IntelHEX", {"image.hex"}, [] {}, true},
      {"odd_even_file", {"odd.bin", "even.bin"}, [] { oddeven.Command2.userClick(); }, true},
      {"set_spl", {"zelkova.ini"}, newEngine},
      {"load_map_addr", {"error.log"}, [] {}},
      {"", {}, [&] { giveUp("load_bin_file"); }},
      {"", {}, [&] { giveUp("owari"); }},
      {"", {}, keepAgain}};
  int points = 0;
  for (const Way& way : ways) {
    const std::vector<Bytes> old = held(way);
    const auto restore = [&] {
      for (std::size_t i = 0; i < old.size(); ++i) writeBytes(way.files[i], old[i]);
    };
    const std::size_t filesAtRest = scratch.count();
    strike(way, 9999, 0);
    const std::vector<Bytes> saved = held(way);
    EXPECT_TRUE(saved != old || way.files.empty());
    expectNothingLost(way, old);
    restore();
    for (const int error : {ENOSPC, EINTR, EIO, killed}) {
      failing_calls::linksWork = error != EIO;
      for (int point = 0; strike(way, point, error); ++point, ++points) {
        SCOPED_TRACE(testing::Message() << way.command << ", call " << point << ", " << error);
        if (!way.files.empty()) {
          readImageFile(path(way.files[static_cast<std::size_t>(point) % way.files.size()]));
        }
        EXPECT_TRUE(held(way) == old || held(way) == saved);
        for (const std::string& file : way.files) {
          EXPECT_TRUE(error == killed || std::filesystem::hard_link_count(path(file)) == 1) << file;
        }
        expectNothingLost(way, old);
        restore();
        strike(way, 9999, 0);
        EXPECT_TRUE(held(way) == saved && scratch.count() == filesAtRest);
        expectNothingLost(way, old);
        restore();
      }
    }
    failing_calls::linksWork = true;
  }
  EXPECT_GT(points, 100);
  std::cout << "saves under fire: " << points << " points\n";
}

}  // namespace
