// Files as wholes: what is read, what a replacement keeps and refuses, and the parts of a path.
#include "platform/files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/failure.h"
#include "scratch_folder.h"

namespace {

namespace fs = std::filesystem;
using std::string_literals::operator""s;

struct Row {
  std::string path;
  int number;
};

TEST(Files, WhatIsWrittenReadsBackWholeOrUpToALimit) {
  const ScratchFolder folder;
  std::string content(300000, '\0');
  for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i * 7 >> 3);
  for (const std::size_t size : {0U, 1U, 65536U, 300000U}) {
    const std::string_view part = std::string_view(content).substr(0, size);
    replaceFile(folder / "image", bytesOf(part));
    EXPECT_EQ(contentOf(folder / "image"), part);
    EXPECT_EQ(folder.count(), 1U);
  }
  for (const std::size_t limit : {0U, 299999U, 300001U}) {
    EXPECT_EQ(readFile(folder / "image", limit).size(), std::min(limit, content.size()));
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
    EXPECT_EQ(trapFailure([&] { readFile(path); }), number) << path;
    EXPECT_EQ(fileExists(path), number == 0) << path;
  }
  EXPECT_TRUE(fileExists(folder / "file\\") && fileExists(folder / "file/"));
  for (const std::string& path :
       {folder / "file//", folder / "file\\\\", "/"s, "\\"s, std::string(10000, 'x')}) {
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
  const std::size_t before = folder.count();
  for (const auto& [path, number] :
       {Row{folder / "folder", pathFileAccess}, Row{folder / "link to folder", pathFileAccess},
        Row{folder / "circle", deviceError}, Row{folder / "read-only", pathFileAccess},
        Row{folder / "no/file", pathNotFound}, Row{folder / "read-only/file", pathNotFound},
        Row{folder / std::string(256, 'x'), deviceError}, Row{folder / "", pathFileAccess},
        Row{"", pathFileAccess}, Row{folder / "no\0"s, fileNotFound}}) {
    EXPECT_EQ(trapFailure([&] { replaceFile(path, bytesOf("new")); }), number) << path;
    EXPECT_EQ(folder.count(), before) << path;
  }
  EXPECT_EQ(contentOf(folder / "read-only"), "old");
}

TEST(Files, LinksAreFollowedPermissionsKeptAndTheLongestNamesTaken) {
  const ScratchFolder folder;
  fs::create_directory(folder / "far");
  fs::create_symlink("far/target", folder / "inner");
  fs::create_symlink(folder / "inner", folder / "outer");
  replaceFile(folder / "outer", bytesOf("made"));
  EXPECT_EQ(contentOf(folder / "far/target"), "made");
  constexpr fs::perms odd = fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_write;
  fs::permissions(folder / "far/target", odd);
  replaceFile(folder / "outer", bytesOf("made again"));
  EXPECT_EQ(contentOf(folder / "far/target"), "made again");
  EXPECT_EQ(fs::status(folder / "far/target").permissions(), odd);
  EXPECT_TRUE(fs::is_symlink(fs::symlink_status(folder / "inner")));
  EXPECT_EQ(folder.count(), 3U);

  std::string name;
  while (name.size() + 6 <= 255) name += "燃";
  for (const char* last : {"燃", "料"}) replaceFile(folder / (name + last), bytesOf(last));
  for (const char* last : {"燃", "料"}) EXPECT_EQ(contentOf(folder / (name + last)), last);
}

TEST(Files, APairIsReplacedTogetherOrNotAtAll) {
  const ScratchFolder folder;
  const std::string even = folder / "even";
  const std::string odd = folder / "odd";
  const FileContent first[] = {{even, bytesOf("0")}, {odd, bytesOf("1")}};
  const FileContent refused[] = {{even, bytesOf("2")}, {folder / "no/odd", bytesOf("3")}};
  const FileContent same[] = {{odd, bytesOf("4")}, {odd, bytesOf("5")}};
  replaceFiles(first);
  EXPECT_EQ(trapFailure([&] { replaceFiles(refused); }), pathNotFound);
  EXPECT_EQ(contentOf(even) + contentOf(odd), "01");
  replaceFiles(same);
  EXPECT_EQ(contentOf(even) + contentOf(odd), "05");
  EXPECT_EQ(folder.count(), 2U);
}

TEST(Files, PathsComeApartAndTogether) {
  using Part = std::pair<const char*, const char*>;
  for (const auto& [path, name] :
       {Part{"C:\\maps\\a.bin", "a.bin"}, Part{"/maps/a.bin", "a.bin"}, Part{"a", "a"},
        Part{"/maps\\a", "a"}, Part{"\\maps/a", "a"}, Part{"/maps/", ""}, Part{"", ""}}) {
    EXPECT_EQ(fileNameOf(path), name) << path;
  }
  for (const auto& [path, parent] : {Part{"/maps/a.bin", "/maps"}, Part{"/a", "/"}, Part{"a", ""},
                                     Part{"x/y/a", "x/y"}, Part{"", ""}}) {
    EXPECT_EQ(folderOf(path), parent) << path;
  }
  const std::string root = fs::current_path().root_path().string();
  EXPECT_TRUE(isAbsolutePath(root + "maps") && !isAbsolutePath("maps/a") && !isAbsolutePath(""));
  EXPECT_EQ(joinPath("maps", root + "a"), root + "a");
  EXPECT_EQ(joinPath("", "a") + joinPath("maps/", "a"), "amaps/a");
  EXPECT_EQ(fs::path(joinPath("maps", "a")), fs::path("maps") / "a");
}

}  // namespace
