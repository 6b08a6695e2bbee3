// Files as wholes: what is read, and what a replacement keeps and refuses.
#include "platform/files.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "scratch_folder.h"

namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;

using Row = std::pair<std::string, int>;

// A file exists where it opens, one separator behind it forgiven.
TEST(Files, ReadingStopsAtItsLimitAndWhatCannotBeReadHasItsNumber) {
  const ScratchFolder folder;
  replaceFile(folder / "file", bytesOf(std::string(300000, 'x')));
  for (const std::size_t limit : {0U, 299999U, 300000U}) {
    EXPECT_EQ(readFile(folder / "file", limit).size(), limit);
  }
  for (const auto& [path, number] :
       {Row{folder / "file", 0}, Row{folder / "none", fileNotFound}, Row{"", fileNotFound},
        Row{folder / "file\0"s, fileNotFound}, Row{folder / "no/file", pathNotFound},
        Row{folder / "file/below", pathNotFound}, Row{folder.path().string(), pathFileAccess}}) {
    EXPECT_EQ(trapFailure([&, at = path] { readFile(at); }), number) << path;
    EXPECT_EQ(fileExists(path), number == 0) << path;
  }
  EXPECT_TRUE(fileExists(folder / "file\\") && fileExists(folder / "file/"));
  EXPECT_FALSE(fileExists(folder / "file//") || fileExists("/") || fileExists("\\"));
}

// This library makes no links on Windows.
#ifndef _WIN32
TEST(Files, ARefusedTargetStandsUntouched) {
  const ScratchFolder folder;
  fs::create_directory(folder / "folder");
  fs::create_directory_symlink("folder", folder / "link to folder");
  fs::create_symlink("circle", folder / "circle");
  replaceFile(folder / "read-only", bytesOf("old"));
  fs::permissions(folder / "read-only", fs::perms::owner_read | fs::perms::others_read);
  for (const auto& [path, number] :
       {Row{folder / "folder", pathFileAccess}, Row{folder / "link to folder", pathFileAccess},
        Row{folder / "circle", deviceError}, Row{folder / "read-only", pathFileAccess},
        Row{folder / "no/file", pathNotFound}, Row{folder / "read-only/file", pathNotFound},
        Row{folder / std::string(256, 'x'), deviceError}, Row{folder / "", pathFileAccess},
        Row{"", pathFileAccess}, Row{folder / "no\0"s, fileNotFound}}) {
    EXPECT_EQ(trapFailure([&, at = path] { replaceFile(at, bytesOf("new")); }), number) << path;
  }
  EXPECT_EQ(folder.texts({"read-only"}), "old 4");
}

TEST(Files, LinksAreFollowedAndTheLongestNamesTaken) {
  const ScratchFolder folder;
  fs::create_directory(folder / "far");
  fs::create_symlink("far/target", folder / "inner");
  fs::create_symlink(folder / "inner", folder / "outer");
  for (const std::string content : {"made", "made again"}) {
    replaceFile(folder / "outer", bytesOf(content));
    EXPECT_EQ(folder.texts({"far/target"}), content + " 3");
  }
  EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "inner")));
  std::string name;
  while (name.size() < 252) name += "燃";
  for (const char* last : {"燃", "料"}) replaceFile(folder / (name + last), bytesOf(last));
  EXPECT_EQ(folder.texts({name + "燃", name + "料"}), "燃 料 5");
}
#endif

}  // namespace
