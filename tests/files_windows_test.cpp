// Files as Windows holds them: handles that others keep open, attributes, names, devices.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/replacement_names.h"
#include "platform/replacement_record.h"
#include "scratch_folder.h"

namespace {

namespace fs = std::filesystem;

fs::path wide(const std::string& path) { return fs::path(std::u8string(path.begin(), path.end())); }

std::string narrow(const fs::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

// A file that another program holds open.
class Held {
 public:
  Held(const std::string& path, DWORD share, DWORD access = GENERIC_READ)
      : handle_(CreateFileW(wide(path).c_str(), access, share, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {
    EXPECT_NE(handle_, INVALID_HANDLE_VALUE) << path << ' ' << GetLastError();
  }
  ~Held() { CloseHandle(handle_); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  std::string text() const {
    char bytes[64];
    DWORD count = 0;
    SetFilePointer(handle_, 0, nullptr, FILE_BEGIN);
    ReadFile(handle_, bytes, sizeof bytes, &count, nullptr);
    return {bytes, count};
  }

 private:
  HANDLE handle_;
};

constexpr DWORD shareReading = FILE_SHARE_READ;
constexpr DWORD shareWriting = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr DWORD shareAll = shareWriting | FILE_SHARE_DELETE;

// The system's call of that name fails with that error when the fault strikes.
struct Fault {
  const char* call = "";
  DWORD error = 0;
  std::function<bool()> strikes = [] { return true; };
};

Fault fault;

bool fails(std::string_view call) {
  if (call != fault.call || !fault.strikes()) return false;
  SetLastError(fault.error);
  return true;
}

template <typename Call>
Call real(const char* name) {
  void* const found = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32"), name));
  return reinterpret_cast<Call>(found);
}

}  // namespace

// What the linker takes instead of the system's own import of the same name.
extern "C" {

decltype(&CreateFileW) __imp_CreateFileW = [](LPCWSTR path, DWORD access, DWORD share,
                                              LPSECURITY_ATTRIBUTES security, DWORD how,
                                              DWORD flags, HANDLE from) WINAPI -> HANDLE {
  static const auto call = real<decltype(&CreateFileW)>("CreateFileW");
  if (how == CREATE_NEW && fails("create")) return INVALID_HANDLE_VALUE;
  if (access == GENERIC_WRITE && how == OPEN_EXISTING && fails("open")) return INVALID_HANDLE_VALUE;
  return call(path, access, share, security, how, flags, from);
};

decltype(&WriteFile) __imp_WriteFile = [](HANDLE file, LPCVOID bytes, DWORD size, LPDWORD count,
                                          LPOVERLAPPED overlapped) WINAPI -> BOOL {
  static const auto call = real<decltype(&WriteFile)>("WriteFile");
  return fails("write") ? FALSE : call(file, bytes, size, count, overlapped);
};

decltype(&FlushFileBuffers) __imp_FlushFileBuffers = [](HANDLE file) WINAPI -> BOOL {
  static const auto call = real<decltype(&FlushFileBuffers)>("FlushFileBuffers");
  return fails("flush") ? FALSE : call(file);
};

decltype(&MoveFileExW) __imp_MoveFileExW = [](LPCWSTR from, LPCWSTR to, DWORD how) WINAPI -> BOOL {
  static const auto call = real<decltype(&MoveFileExW)>("MoveFileExW");
  return fails("move") ? FALSE : call(from, to, how);
};
}

namespace {

int saved(const std::string& path, std::string_view text) {
  return trapFailure([&] { replaceFile(path, bytesOf(text)); });
}

void setAttributes(const std::string& path, DWORD attributes) {
  SetFileAttributesW(wide(path).c_str(), attributes);
}

TEST(FilesOnWindows, AFileThatAnotherProgramHoldsStandsAndLeavesNothingBeside) {
  const ScratchFolder folder;
  const std::string file = folder / "held.bin";
  ASSERT_EQ(saved(file, "old"), 0);
  for (const DWORD share : {DWORD{0}, shareReading, shareWriting}) {
    {
      const Held held(file, share);
      EXPECT_EQ(saved(file, "new"), pathFileAccess) << share;
      EXPECT_EQ(held.text(), "old") << share;
      EXPECT_EQ(folder.count(), 1U) << share;
      EXPECT_EQ(trapFailure([&] { readFile(file); }), share == 0 ? pathFileAccess : 0);
    }
    EXPECT_EQ(contentOf(file), "old") << share;
  }
}

TEST(FilesOnWindows, AFileThatAnotherProgramLetsGoForAMomentIsSaved) {
  const ScratchFolder folder;
  const std::string file = folder / "scanned.bin";
  ASSERT_EQ(saved(file, "old"), 0);
  std::atomic<bool> holds = false;
  std::thread scanner([&] {
    const Held held(file, shareWriting);
    holds = true;
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
  });
  while (!holds) std::this_thread::yield();
  EXPECT_EQ(saved(file, "new"), 0) << "a virus scanner's short look";
  scanner.join();
}

TEST(FilesOnWindows, WhatIsRefusedForGoodIsToldAtOnce) {
  const ScratchFolder folder;
  const std::string file = folder / "read-only.bin";
  ASSERT_EQ(saved(file, "old"), 0);
  setAttributes(file, FILE_ATTRIBUTE_READONLY);
  const auto start = std::chrono::steady_clock::now();
  for (const std::string& path : {file, folder.path().string(), std::string("Q:\\no\\file")}) {
    EXPECT_NE(saved(path, "new"), 0) << path;
  }
  ASSERT_EQ(saved(folder / "another's.bin", "old"), 0);
  fault = {"open", ERROR_ACCESS_DENIED};
  EXPECT_EQ(saved(folder / "another's.bin", "new"), pathFileAccess);
  fault = {};
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
  setAttributes(file, FILE_ATTRIBUTE_NORMAL);
}

TEST(FilesOnWindows, APairWhoseLastFileIsHeldStandsAsItWas) {
  for (const std::string before : {"old odd old even 2", "old even 1"}) {
    const ScratchFolder folder;
    const auto texts = [&folder] { return folder.texts({"odd.bin", "even.bin"}); };
    const std::string odd = folder / "odd.bin", even = folder / "even.bin";
    ASSERT_EQ(saved(even, "old even"), 0);
    if (before.ends_with('2')) saved(odd, "old odd");
    const FileContent files[] = {{odd, bytesOf("new odd")}, {even, bytesOf("new even")}};
    {
      const Held held(even, shareWriting);
      EXPECT_EQ(trapFailure([&] { replaceFiles(files); }), pathFileAccess);
    }
    EXPECT_EQ(texts(), before);
    EXPECT_EQ(trapFailure([&] { replaceFiles(files); }), 0);
    EXPECT_EQ(texts(), "new odd new even 2");
  }
}

// A full disk, a drive that vanished, a share that went, a folder without permission.
TEST(FilesOnWindows, WhatTheSystemRefusesLeavesTheOldFilesAndNothingElse) {
  const std::pair<Fault, int> table[] = {{{"create", ERROR_ACCESS_DENIED}, pathFileAccess},
                                         {{"create", ERROR_WRITE_PROTECT}, pathFileAccess},
                                         {{"create", ERROR_DISK_FULL}, diskFull},
                                         {{"write", ERROR_DISK_FULL}, diskFull},
                                         {{"write", ERROR_HANDLE_DISK_FULL}, diskFull},
                                         {{"write", ERROR_NOT_READY}, diskNotReady},
                                         {{"write", ERROR_NETNAME_DELETED}, diskNotReady},
                                         {{"flush", ERROR_DISK_FULL}, diskFull},
                                         {{"flush", ERROR_DEV_NOT_EXIST}, diskNotReady},
                                         {{"write", ERROR_CRC}, deviceError},
                                         {{"move", ERROR_NOT_READY}, diskNotReady},
                                         {{"move", ERROR_PATH_NOT_FOUND}, pathNotFound}};
  const ScratchFolder folder;
  const std::string odd = folder / "odd.bin", even = folder / "even.bin";
  const FileContent files[] = {{odd, bytesOf("new odd")}, {even, bytesOf("new even")}};
  for (const std::string& path : {odd, even}) ASSERT_EQ(saved(path, "old"), 0);
  for (const auto& [strike, number] : table) {
    SCOPED_TRACE(std::string(strike.call) + ' ' + std::to_string(strike.error));
    fault = strike;
    const int one = saved(odd, "new"), pair = trapFailure([&] { replaceFiles(files); });
    fault = {};
    EXPECT_EQ(one, number);
    EXPECT_EQ(pair, number);
    EXPECT_EQ(folder.texts({"odd.bin", "even.bin"}), "old old 2");
  }
}

TEST(FilesOnWindows, APairLeftHalfDoneIsCompletedUnlessItsSaverLives) {
  const ScratchFolder folder;
  const std::string odd = folder / "odd.bin", even = folder / "even.bin";
  const std::string number = freshNumber();
  const ReplacedFile files[] = {
      {wide(odd), markOf(bytesOf("old odd")), markOf(bytesOf("new odd"))},
      {wide(even), markOf(bytesOf("old even")), markOf(bytesOf("new even"))}};
  const std::string record = narrow(besidePath(wide(odd), number, Beside::record));
  saved(odd, "new odd");
  saved(even, "old even");
  saved(narrow(besidePath(wide(even), number, Beside::waiting)), "new even");
  saved(record, recordText(files));
  {
    const Held held(record, FILE_SHARE_READ, GENERIC_WRITE);
    finishReplacements(odd);
    EXPECT_EQ(folder.texts({"odd.bin", "even.bin"}), "new odd old even 4");
  }
  finishReplacements(odd);
  EXPECT_EQ(folder.texts({"odd.bin", "even.bin"}), "new odd new even 2");
}

TEST(FilesOnWindows, OnlyWaitingFilesThatNobodyHoldsAreRemoved) {
  const ScratchFolder folder;
  const std::string abandoned = folder / ".a.AF63DC4C8601EC8C-0123456789ABCDEF.zelkova-new";
  const std::string waiting = folder / ".a.AF63DC4C8601EC8C-0123456789ABCDE0.zelkova-new";
  for (const std::string& name : {abandoned, waiting}) ASSERT_EQ(saved(name, "x"), 0);
  {
    const Held held(waiting, FILE_SHARE_READ, GENERIC_WRITE);
    EXPECT_EQ(saved(folder / "a", "a"), 0);
    EXPECT_FALSE(fileExists(abandoned));
    EXPECT_TRUE(fs::exists(wide(waiting)));
  }
  EXPECT_EQ(saved(folder / "a", "a"), 0);
  EXPECT_FALSE(fs::exists(wide(waiting)));
}

TEST(FilesOnWindows, AttributesAreKeptAndReadOnlyIsRefused) {
  const ScratchFolder folder;
  const std::string file = folder / "file.bin";
  ASSERT_EQ(saved(file, "old"), 0);
  constexpr DWORD hidden = FILE_ATTRIBUTE_HIDDEN, system = FILE_ATTRIBUTE_SYSTEM | hidden;
  for (const DWORD attributes : {hidden, system}) {
    setAttributes(file, attributes);
    EXPECT_EQ(saved(file, std::to_string(attributes)), 0);
    EXPECT_EQ(contentOf(file), std::to_string(attributes));
    EXPECT_EQ(GetFileAttributesW(wide(file).c_str()) & system, attributes);
  }
  setAttributes(file, FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(saved(file, "newer"), pathFileAccess);
  EXPECT_EQ(folder.texts({"file.bin"}), std::to_string(system) + " 1");
  setAttributes(file, FILE_ATTRIBUTE_NORMAL);
}

TEST(FilesOnWindows, DevicesAndFoldersAreNoFiles) {
  const ScratchFolder folder;
  for (const std::string& path :
       {std::string("NUL"), folder / "NUL", folder.path().string(), folder / "bad<name>",
        folder / "bad|name", folder / "question?", folder / "star*", folder / "quote\"",
        std::string("COM1"), std::string("lpt9"), folder / "AUX", folder / "file:stream"}) {
    EXPECT_EQ(trapFailure([&] { readFile(path); }), pathFileAccess) << path;
    EXPECT_EQ(saved(path, "x"), pathFileAccess) << path;
    EXPECT_FALSE(fileExists(path)) << path;
  }
  for (const std::string path : {"Q:\\no\\file", "Q:\\file", "\\\\nowhere\\share\\file"}) {
    EXPECT_EQ(trapFailure([&] { readFile(path); }), pathNotFound) << path;
    EXPECT_EQ(saved(path, "x"), pathNotFound) << path;
  }
  EXPECT_EQ(trapFailure([&] { readFile(""); }), fileNotFound);
  EXPECT_EQ(folder.count(), 0U);
}

TEST(FilesOnWindows, NamesThatDifferInCaseOrSeparatorsAloneAreOneFile) {
  const ScratchFolder folder;
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(nameSameFile(folder / "odd.bin", folder / "ODD.BIN")) << "there: " << i;
    EXPECT_TRUE(nameSameFile(folder.path().string() + "/odd.bin", folder / "odd.bin"));
    EXPECT_TRUE(nameSameFile(folder / ".\\odd.bin", folder / "odd.bin"));
    EXPECT_TRUE(nameSameFile(folder / "odd.bin. ", folder / "odd.bin"));
    EXPECT_FALSE(nameSameFile(folder / "odd.bin", folder / "even.bin"));
    ASSERT_EQ(saved(folder / "odd.bin", "x"), 0);
    ASSERT_EQ(saved(folder / "even.bin", "x"), 0);
  }
  EXPECT_TRUE(nameSameFile(folder / "日本.bin", folder / "日本.BIN"));
  EXPECT_EQ(saved(folder / "even.bin. ", "dot and blank are dropped"), 0);
  EXPECT_EQ(folder.texts({"odd.bin", "even.bin"}), "x dot and blank are dropped 2");
}

TEST(FilesOnWindows, RootsAndParts) {
  EXPECT_TRUE(isAbsolutePath("C:\\x") && isAbsolutePath("c:/x") && isAbsolutePath("\\\\server\\s"));
  EXPECT_FALSE(isAbsolutePath("x\\y") || isAbsolutePath("C:x"));
  EXPECT_EQ(folderOf("C:\\x") + "|" + folderOf("C:\\x\\y") + "|" + folderOf("C:/x/y.bin"),
            "C:\\|C:\\x|C:/x");
  EXPECT_EQ(joinPath("C:\\", "a") + "|" + joinPath("C:\\x", "a") + "|" + joinPath("C:\\x", "D:\\a"),
            "C:\\a|C:\\x\\a|D:\\a");
}

TEST(FilesOnWindows, LongPathsAreSavedAndRead) {
  const ScratchFolder folder;
  std::string path = folder.path().string();
  for (int i = 0; i < 8; ++i) {
    path = joinPath(path, std::string(40, static_cast<char>('a' + i)));
    std::error_code error;
    fs::create_directory(wide("\\\\?\\" + path), error);
    EXPECT_FALSE(error) << path.size() << error.message();
  }
  EXPECT_EQ(saved(joinPath(path, "日本.bin"), "far"), 0) << path.size();
  EXPECT_EQ(saved(joinPath(path, "日本.bin"), "away"), 0) << path.size();
  EXPECT_EQ(contentOf(joinPath(path, "日本.bin")), "away");
}

}  // namespace
