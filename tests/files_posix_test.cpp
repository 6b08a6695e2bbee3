// Saves under fire: every system call of a replacement fails in turn, or another process saves at
// it; a disk that fills up; a pipe.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "failing_calls_posix.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "scratch_folder.h"

namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;
namespace calls = failing_calls;

// Three files of which one is old, so that both kinds of replacement have to be taken back.
struct Three {
  Three() {
    replaceFile(even, bytesOf("old"));
    fs::permissions(even, fs::perms::all);
  }
  int save() const {
    const FileContent files[] = {
        {even, bytesOf("new even")}, {odd, bytesOf("new odd")}, {last, bytesOf("new last")}};
    return trapFailure([&] { replaceFiles(files); });
  }
  std::string texts() const { return folder.texts({"even", "odd", "last"}); }

  const ScratchFolder folder;
  const std::string even = folder / "even";
  const std::string odd = folder / "odd";
  const std::string last = folder / "last";
};

// 0 lets the call pass, but another process saves the same files just before it.
TEST(SavesUnderFire, AFailingCallLeavesTheOldFilesOrTheNewOnesAndAnotherSaveHarmsNone) {
  int points = 0;
  const std::pair<int, int> strikes[] = {
      {ENOSPC, diskFull}, {EIO, deviceError}, {EACCES, pathFileAccess}, {0, 0}};
  for (const auto& [error, expected] : strikes) {
    bool reached = true;
    for (int at = 0; reached; ++at, points += reached) {
      const Three three;
      const auto strike = [&three, wanted = error] {
        EXPECT_TRUE(wanted != 0 || calls::inChild([&three] { return three.save(); }) == 0);
        return wanted;
      };
      int number = 0;
      reached = calls::struck(at, strike, [&] { number = three.save(); });
      const std::string texts = three.texts();
      EXPECT_TRUE(number == 0 ? texts.starts_with("new even new odd new last ")
                              : number == expected && texts == "old 1")
          << number << ' ' << texts << ", call " << at;
      EXPECT_EQ(fs::status(three.even).permissions(), fs::perms::all) << "call " << at;
      EXPECT_EQ(three.save(), 0);
      EXPECT_EQ(three.texts(), "new even new odd new last 3") << "after call " << at;
    }
  }
  EXPECT_GE(points, 80);
}

// A second call fails while the first failure is taken back.
TEST(SavesUnderFire, WhatCannotBePutBackIsNotThrownAway) {
  bool reached = true;
  for (int at = 0; reached; ++at) {
    for (int later = 0; later < 6; ++later) {
      const Three three;
      int strikes = 0;
      const auto strike = [&strikes, later] {
        if (strikes++ == 0) calls::strikeAgain(later);
        return EIO;
      };
      const char* wanted = "old";
      calls::struck(at, strike, [&] { wanted = three.save() == 0 ? "new even" : "old"; });
      reached = strikes > 0;
      bool kept = false;
      for (const fs::directory_entry& entry : fs::directory_iterator(three.folder.path())) {
        kept = kept || contentOf(entry.path()) == wanted;
      }
      EXPECT_TRUE(kept) << "calls " << at << " and " << later << " later: " << three.texts();
    }
  }
}

// Killed between its renames, then met by what others did meanwhile.
TEST(SavesUnderFire, WhatAKillLeftHalfDoneIsCompletedOrTakenBackUnlessOthersChangedIt) {
  using Path = fs::path;
  const auto remove = [](const Path& path) { fs::remove(path); };
  const auto cut = [](const Path& path) { fs::resize_file(path, 3); };
  // What happens to the files of those endings.
  const std::tuple<const char*, std::string_view, void (*)(const Path&), std::string> table[] = {
      {"nothing", "", remove, "new even new odd new last 3"},
      {"the new files went", ".zelkova-new", remove, "old 1"},
      {"both went", ".zelkova-new.zelkova-old", remove, "new even 4"},
      {"a target changed", "last", remove, "new even foreign 8"},
      {"a new file was cut", ".zelkova-new", cut, "old 1"}};
  for (const auto& [what, endings, meanwhile, texts] : table) {
    SCOPED_TRACE(what);
    bool mixed = false;
    for (int at = 0; !mixed; ++at) {
      const Three three;
      const auto kill = [] { return raise(SIGKILL); };
      const auto saveAndDie = [&, point = at] {
        return calls::struck(point, kill, [&three] { three.save(); }) ? 0 : 1;
      };
      ASSERT_LT(calls::inChild(saveAndDie), 0) << "never between two renames";
      mixed = three.texts().starts_with("new even ") && !fs::exists(three.odd);
      if (!mixed) continue;
      if (endings == "last") std::ofstream(three.last) << "foreign";
      for (const fs::directory_entry& entry : fs::directory_iterator(three.folder.path())) {
        const Path ending = entry.path().extension();
        if (!ending.empty() && endings.find(ending.string()) != endings.npos) meanwhile(entry);
      }
      finishReplacements(three.last);
      EXPECT_EQ(three.texts(), texts);
    }
  }
}

TEST(SavesUnderFire, OnlyAbandonedFilesOfTheSameTargetAreRemoved) {
  const ScratchFolder folder;
  const std::string ours = ".a.AF63DC4C8601EC8C-0123456789ABCDEF.zelkova-new";
  for (const std::string& name : {ours, ".a.zelkova-new"s, ".a.AF63DC4C8601EC8C-.zelkova-new"s,
                                  ".a.AF63DC4C8601EC8C-0123456789abcdef.zelkova-new"s,
                                  ".b.AF63DC4C8601EC8C-0123456789ABCDEF.zelkova-new"s}) {
    replaceFile(folder / name, {});
  }
  replaceFile(folder / "a", {});
  EXPECT_FALSE(fs::exists(folder / ours));
  EXPECT_EQ(folder.count(), 5U);
}

// The superuser may do everything: the saves run as nobody.
TEST(SavesUnderFire, AFolderThatMayNotBeWrittenKeepsItsFilesAndGetsNoOther) {
  const ScratchFolder folder;
  const std::string locked = folder / "locked";
  fs::create_directory(locked);
  replaceFile(locked + "/there", bytesOf("old"));
  fs::permissions(locked + "/there", fs::perms(0666));
  fs::permissions(folder.path(), fs::perms::all);
  fs::permissions(locked, fs::perms(0555));
  const int wrong = calls::inChild([&] {
    int count = geteuid() == 0 ? seteuid(65534) : 0;
    for (const char* name : {"/there", "/new"}) {
      const int number = trapFailure([&] { replaceFile(locked + name, bytesOf("new")); });
      count += number != pathFileAccess;
    }
    return count;
  });
  fs::permissions(locked, fs::perms::all);  // so that the folder can go
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(folder.texts({"locked/there", "locked/new"}), "old 1");
}

TEST(SavesUnderFire, ADiskThatFillsUpLeavesTheOldFileAndNoOther) {
  const ScratchFolder folder;
  replaceFile(folder / "a", bytesOf("old"));
  const int number = calls::inChild([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1023, 1023};
    setrlimit(RLIMIT_FSIZE, &small);
    return trapFailure([&] { replaceFile(folder / "a", bytesOf(std::string(1024, 'n'))); });
  });
  EXPECT_NE(number, 0);
  EXPECT_EQ(folder.texts({"a"}), "old 1");
}

TEST(SavesUnderFire, APipeIsRefusedWithoutWaiting) {
  const ScratchFolder folder;
  const std::string pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), S_IRWXU), 0);
  alarm(10);  // ends the test if it waits after all
  EXPECT_EQ(trapFailure([&] { readFile(pipe); }), pathFileAccess);
  EXPECT_EQ(trapFailure([&] { replaceFile(pipe, {}); }), pathFileAccess);
  alarm(0);
  EXPECT_TRUE(fs::is_fifo(pipe) && folder.count() == 1);
}

}  // namespace
