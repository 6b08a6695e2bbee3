// Every way of saving under fire: each system call of a command fails in turn, or the process is
// killed at it. What stands on disk is the old file or the new one, whole, and the next save leaves
// no stray file behind.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>

#include "calc/engine_specification.h"
#include "failing_calls_posix.h"
#include "imagefiles/intel_hex_writer.h"
#include "imagefiles/odd_even.h"
#include "support.h"

namespace {

constexpr int killed = -1;

struct Way {
  const char* name;
  std::vector<std::string> files;
  std::function<void()> save;
  std::function<bool(const std::string& file, const Bytes& content)> isNew;
};

class SavesUnderFire : public ProgramTest {
 protected:
  void SetUp() override {
    startWithMap(smallMap());
    writeText("error.log", "");
    loadImage(patternImage(8192), "raw.bin");
    form1().Grid1.userKey(U'+');
    editorState.splitRomKbit = "64";
    editorState.splitFormat = "BINARY";
  }

  // Runs the command in a process of its own, `calls` system calls before `error` strikes. True if
  // it was struck.
  bool strike(const Way& way, int calls, int error) {
    return failing_calls::inChild([&] {
             desk.okBoxesPass = true;
             failing_calls::atThatCall = [error] {
               if (error == killed) raise(SIGKILL);
               return error;
             };
             failing_calls::callsLeft = calls;
             way.save();
             return failing_calls::callsLeft == failing_calls::never ? 1 : 0;
           }) != 0;
  }

  std::size_t fileCount() const {
    const std::filesystem::directory_iterator files(folder);
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  // The number of points at which the command was struck by `error`.
  int strikeEverywhere(const Way& way, int error) {
    writeText("error.log", "older\r\n");
    std::vector<Bytes> old;
    for (const std::string& file : way.files) old.push_back(readBytes(file));
    int point = 0;
    bool struck = true;
    for (; struck; ++point) {
      SCOPED_TRACE(std::string(way.name) + ", error " + std::to_string(error) + " at call " +
                   std::to_string(point));
      struck = strike(way, point, error);
      for (std::size_t i = 0; i < old.size(); ++i) {
        const Bytes now = readBytes(way.files[i]);
        EXPECT_TRUE(now == old[i] || way.isNew(way.files[i], now));
      }
      strike(way, failing_calls::never, 0);
      EXPECT_EQ(fileCount(), filesAtRest);
      for (std::size_t i = 0; i < old.size(); ++i) {
        EXPECT_TRUE(way.isNew(way.files[i], readBytes(way.files[i]))) << way.files[i];
        writeBytes(way.files[i], old[i]);
      }
      if (HasFailure()) break;
    }
    return point - 1;
  }

  void answerSaves(std::initializer_list<const char*> names) {
    for (const char* name : names) {
      desk.saveAnswers.push_back(path(name));
      desk.boxAnswers.push_back(BoxAnswer::ok);
    }
  }

  std::size_t filesAtRest = 0;
};

TEST_F(SavesUnderFire, LeaveOldOrNewFilesWhole) {
  Bytes image = editorState.image;
  image[0x100] = static_cast<std::uint8_t>(std::min(image[0x100] + 1, 255));
  const std::string hex = intelHexText(image);
  const auto everyOther = [&image](std::size_t first) {
    Bytes half(image.size(), 0xFF);
    for (std::size_t i = first; i < image.size(); i += 2) half[i / 2] = image[i];
    return half;
  };
  const Way ways[] = {
      {"raw",
       {"raw.bin"},
       [this] { pick("update_bin_file"); },
       [&](const std::string&, const Bytes& now) { return now == image; }},
      {"Intel HEX",
       {"image.hex"},
       [this] {
         answerSaves({"image.hex"});
         pick("ANY_NAME_SAVE_IntelHEX");
       },
       [&](const std::string&, const Bytes& now) {
         return std::equal(
             now.begin(), now.end(), hex.begin(), hex.end(),
             [](std::uint8_t a, char b) { return a == static_cast<std::uint8_t>(b); });
       }},
      {"pair",
       {"odd.bin", "even.bin"},
       [this] {
         pick("odd_even_file");
         answerSaves({"odd.bin", "even.bin"});
         oddeven.Command2.userClick();
       },
       [&](const std::string& file, const Bytes& now) {
         return now == everyOther(file == "odd.bin" ? 0 : 1);
       }},
      {"settings",
       {"zelkova.ini"},
       [this] {
         pick("set_spl");
         form2.Text1.userEdit("2500");
         form2.userEnter();
       },
       [](const std::string&, const Bytes& now) {
         const std::string text(now.begin(), now.end());
         return text.find("\r\n 2500 \r\n") != std::string::npos && text.ends_with(" 2 \r\n") &&
                std::count(text.begin(), text.end(), '\n') == 25;
       }},
      {"log",
       {"error.log"},
       [this] {
         desk.boxAnswers = {BoxAnswer::yes};
         desk.openAnswers = {path("missing.bin")};
         pick("load_bin_file");
       },
       [](const std::string&, const Bytes& now) {
         const std::string text(now.begin(), now.end());
         return text.ends_with(" File not found\r\nolder\r\n");
       }},
  };
  for (const char* file : {"image.hex", "odd.bin", "even.bin"}) writeText(file, "old");
  filesAtRest = fileCount();
  int points = 0;
  for (const Way& way : ways) {
    for (const int error : {ENOSPC, EIO, EACCES, killed}) points += strikeEverywhere(way, error);
  }
  EXPECT_GT(points, 100);
  std::cout << "saves under fire: " << points << " points\n";
}

}  // namespace
