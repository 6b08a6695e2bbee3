// Files as wholes: what is read, and what a replacement keeps and refuses.
#include "platform/files.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "scratch_folder.h"

namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;

using Row = std::pair<std::string, int>;

TEST(Files, WhatIsWrittenReadsBackWholeOrUpToALimit) {
  const ScratchFolder folder;
  std::string content;
  for (int i = 0; i < 300000; ++i) content += static_cast<char>(i * 7 >> 3);
  for (const std::size_t size : {0U, 1U, 65536U, 300000U}) {
    const std::string part = content.substr(0, size);
    replaceFile(folder / "image", bytesOf(part));
    EXPECT_TRUE(contentOf(folder / "image") == part && folder.count() == 1) << size;
  }
  for (const std::size_t limit : {0U, 299999U, 300001U}) {
    EXPECT_EQ(readFile(folder / "image", limit).size(), std::min<std::size_t>(limit, 300000));
  }
}

// A file exists where it opens, one separator behind it forgiven.
TEST(Files, WhatCannotBeReadHasItsNumberAndDoesNotExist) {
  const ScratchFolder folder;
  replaceFile(folder / "file", {});
  for (const auto& [path, number] :
       {Row{folder / "file", 0}, Row{folder / "none", fileNotFound}, Row{"", fileNotFound},
        Row{folder / "file\0"s, fileNotFound}, Row{folder / "no/file", pathNotFound},
        Row{folder / "file/below", pathNotFound}, Row{folder.path().string(), pathFileAccess}}) {
    EXPECT_EQ(trapFailure([&, at = path] { readFile(at); }), number) << path;
    EXPECT_EQ(fileExists(path), number == 0) << path;
  }
  EXPECT_TRUE(fileExists(folder / "file\\") && fileExists(folder / "file/"));
  for (const std::string& path : {folder / "file//", "/"s, "\\"s, std::string(10000, 'x')}) {
    EXPECT_FALSE(fileExists(path)) << path;
  }
}

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
  EXPECT_EQ(folder.count(), 4U);
  EXPECT_EQ(contentOf(folder / "read-only"), "old");
}

TEST(Files, LinksAreFollowedAndTheLongestNamesTaken) {
  const ScratchFolder folder;
  fs::create_directory(folder / "far");
  fs::create_symlink("far/target", folder / "inner");
  fs::create_symlink(folder / "inner", folder / "outer");
  for (const char* content : {"made", "made again"}) {
    replaceFile(folder / "outer", bytesOf(content));
    EXPECT_EQ(contentOf(folder / "far/target"), content);
  }
  EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "inner")));
  std::string name;
  while (name.size() < 252) name += "燃";
  for (const char* last : {"燃", "料"}) replaceFile(folder / (name + last), bytesOf(last));
  for (const char* last : {"燃", "料"}) EXPECT_EQ(contentOf(folder / (name + last)), last);
  EXPECT_EQ(folder.count(), 5U);
}

}  // namespace
