// Saves under fire: every system call of a replacement fails in turn, or another process saves at
// it; special files and permissions.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <functional>

#include "failing_calls_posix.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "scratch_folder.h"

namespace {

namespace fs = std::filesystem;
using failing_calls::atThatCall;
using failing_calls::callsLeft;
using failing_calls::inChild;
using failing_calls::never;

// Two files of which one is new, so that both kinds of replacement are met.
struct Pair {
  Pair() {
    replaceFile(even, bytesOf("old"));
    fs::permissions(even, fs::perms::all);
  }
  int save() const {
    const FileContent files[] = {{even, bytesOf("new even")}, {odd, bytesOf("new odd")}};
    return trapFailure([&] { replaceFiles(files); });
  }
  void expectSaved(int at) const {
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(texts(), "new even new odd") << "call " << at;
    EXPECT_EQ(folder.count(), 2U) << "call " << at << " leaves a stray file";
  }
  std::string texts() const {
    return contentOf(even) + (fs::exists(odd) ? ' ' + contentOf(odd) : "");
  }

  const ScratchFolder folder;
  const std::string even = folder / "even";
  const std::string odd = folder / "odd";
};

TEST(SavesUnderFire, AFailingCallLeavesTheOldFilesOrTheNewOnes) {
  int points = 0;
  for (const auto& [error, expected] : {std::pair{ENOSPC, diskFull}, std::pair{EIO, deviceError},
                                        std::pair{EACCES, pathFileAccess}}) {
    atThatCall = [wanted = error] { return wanted; };
    bool reached = true;
    for (int at = 0; reached; ++at, points += reached) {
      const Pair pair;
      callsLeft = at;
      const int number = pair.save();
      reached = std::exchange(callsLeft, never) == never;
      EXPECT_TRUE(number == 0 || number == expected) << number;
      EXPECT_EQ(pair.texts(), number == 0 ? "new even new odd" : "old") << "call " << at;
      EXPECT_TRUE(number == 0 || pair.folder.count() == 1) << "call " << at;
      EXPECT_EQ(fs::status(pair.even).permissions(), fs::perms::all) << "call " << at;
      pair.expectSaved(at);
    }
  }
  std::printf("failing calls tried: %d\n", points);
  EXPECT_GE(points, 45);
}

TEST(SavesUnderFire, AnotherProcessLeavesTheWaitingFileOfALivingOneAlone) {
  const Pair pair;
  int others = 0;
  atThatCall = [&] {
    others += inChild([&] { return pair.save(); }) == 0;
    return 0;
  };
  for (int at = 0; at < 12; ++at) {
    callsLeft = at;
    pair.expectSaved(at);
  }
  EXPECT_EQ(others, 12);
}

TEST(SavesUnderFire, OnlyAbandonedFilesOfTheSameTargetAreRemoved) {
  const ScratchFolder folder;
  const std::string foreign[] = {".a.zelkova-new", ".a.AF63DC4C8601EC8C-.zelkova-new",
                                 ".a.AF63DC4C8601EC8C-0123456789abcdef.zelkova-new",
                                 ".b.AF63DC4C8601EC8C-0123456789ABCDEF.zelkova-new"};
  const std::string ours = ".a.AF63DC4C8601EC8C-0123456789ABCDEF.zelkova-new";
  for (const std::string& name : foreign) replaceFile(folder / name, {});
  replaceFile(folder / ours, {});
  replaceFile(folder / "a", {});
  EXPECT_FALSE(fs::exists(folder / ours));
  EXPECT_EQ(folder.count(), std::size(foreign) + 1);
}

// Only what lies in the scratch folder is a target: the superuser could replace a real device.
TEST(SpecialFiles, PipesAndDevicesAreRefusedWithoutWaiting) {
  const ScratchFolder folder;
  const std::string pipe = folder / "pipe";
  replaceFile(pipe, {});
  atThatCall = [&] { return fs::remove(pipe) && mkfifo(pipe.c_str(), S_IRWXU) == 0 ? 0 : EIO; };
  callsLeft = 0;  // the pipe takes the name while the file is being opened
  alarm(10);      // ends the test if it waits after all
  for (const std::string& path : {pipe, pipe, std::string("/dev/null")}) {
    EXPECT_EQ(trapFailure([&] { readFile(path); }), pathFileAccess) << path;
    EXPECT_FALSE(fileExists(path)) << path;
  }
  EXPECT_EQ(trapFailure([&] { replaceFile(pipe, {}); }), pathFileAccess);
  alarm(0);
  EXPECT_TRUE(fs::is_fifo(pipe) && folder.count() == 1);
}

constexpr uid_t nobody = 65534;

TEST(Permissions, AnOrdinaryUserIsRefusedWhatIsNotHis) {
  const ScratchFolder folder;
  const std::string closed = folder / "closed";
  const std::string file = folder / "closed/file";
  const std::string secret = folder / "secret";
  fs::create_directory(closed);
  replaceFile(file, bytesOf("old"));
  replaceFile(secret, bytesOf("old"));
  fs::permissions(secret, fs::perms::none);
  fs::permissions(file, fs::perms(0666));
  fs::permissions(closed, fs::perms(0555));
  // What the superuser may do anyway is refused to an ordinary user.
  const auto tried = [](const std::function<void()>& body) {
    return inChild([&] {
      const bool changed = geteuid() != 0 || (setgid(nobody) == 0 && setuid(nobody) == 0);
      return changed ? trapFailure(body) : -1;
    });
  };
  EXPECT_EQ(tried([&] { replaceFile(file, bytesOf("new")); }), pathFileAccess);
  EXPECT_EQ(tried([&] { replaceFile(folder / "closed/another", {}); }), pathFileAccess);
  EXPECT_EQ(tried([&] { readFile(secret); }), pathFileAccess);
  EXPECT_EQ(tried([&] { throw Failure(fileExists(secret) ? 1 : 2); }), 2);
  EXPECT_EQ(contentOf(file), "old");
  fs::permissions(closed, fs::perms::owner_all);
  EXPECT_EQ(std::distance(fs::directory_iterator(closed), fs::directory_iterator()), 1);
}

TEST(Permissions, OwnersAreKeptAndNewFilesObeyTheMask) {
  const ScratchFolder folder;
  const std::string path = folder / "file";
  const mode_t mask = umask(027);
  replaceFile(path, {});
  umask(mask);
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
  const uid_t owner = geteuid() == 0 ? nobody : geteuid();
  ASSERT_EQ(chown(path.c_str(), owner, static_cast<gid_t>(-1)), 0);
  replaceFile(path, bytesOf("new"));
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, owner);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

}  // namespace
