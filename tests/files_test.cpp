// Files as wholes: what is read, what a replacement keeps and refuses, and the parts of a path.
#include "platform/files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "platform/failure.h"
#include "scratch_folder.h"

namespace {

namespace fs = std::filesystem;

int failureOfReplacing(const std::string& path) {
  return trapFailure([&] { replaceFile(path, bytesOf("new")); });
}

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
  EXPECT_EQ(readFile(folder / "image", 0).size(), 0U);
  EXPECT_EQ(readFile(folder / "image", 299999).size(), 299999U);
  EXPECT_EQ(readFile(folder / "image", 300001).size(), 300000U);
}

TEST(Files, WhatCannotBeReadHasItsNumber) {
  const ScratchFolder folder;
  replaceFile(folder / "file", {});
  const struct {
    std::string path;
    int number;
  } rows[] = {
      {folder / "none", fileNotFound},
      {folder / "no/file", pathNotFound},
      {folder / "file/below", pathNotFound},
      {folder.path().string(), pathFileAccess},
      {"", fileNotFound},
      {folder / std::string_view("file\0", 5), fileNotFound},
      {folder / "file", 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(trapFailure([&] { readFile(row.path); }), row.number) << row.path;
  }
}

TEST(Files, AFileExistsWhereItOpensWithOneSeparatorForgiven) {
  const ScratchFolder folder;
  replaceFile(folder / "file", {});
  const struct {
    std::string path;
    bool exists;
  } rows[] = {
      {folder / "file", true},
      {folder / "file\\", true},
      {folder / "file/", true},
      {folder / "file//", false},
      {folder / "file\\\\", false},
      {folder / "other", false},
      {folder.path().string(), false},
      {"", false},
      {"/", false},
      {"\\", false},
      {std::string(10000, 'x'), false},
  };
  for (const auto& row : rows) EXPECT_EQ(fileExists(row.path), row.exists) << row.path;
}

TEST(Files, ARefusedTargetStandsUntouched) {
  const ScratchFolder folder;
  fs::create_directory(folder / "folder");
  fs::create_directory_symlink("folder", folder / "link to folder");
  fs::create_symlink("circle", folder / "circle");
  replaceFile(folder / "read-only", bytesOf("old"));
  fs::permissions(folder / "read-only", fs::perms::owner_read | fs::perms::others_read);
  const struct {
    std::string path;
    int number;
  } rows[] = {
      {folder / "folder", pathFileAccess},
      {folder / "link to folder", pathFileAccess},
      {folder / "circle", deviceError},
      {folder / "read-only", pathFileAccess},
      {folder / "no/file", pathNotFound},
      {folder / "read-only/file", pathNotFound},
      {folder / std::string(256, 'x'), deviceError},
      {folder / "", pathFileAccess},
      {"", pathFileAccess},
      {folder / std::string_view("no\0", 3), fileNotFound},
  };
  const std::size_t before = folder.count();
  for (const auto& row : rows) {
    EXPECT_EQ(failureOfReplacing(row.path), row.number) << row.path;
    EXPECT_EQ(folder.count(), before) << row.path;
  }
  EXPECT_EQ(contentOf(folder / "read-only"), "old");
}

TEST(Files, LinksAreFollowedAndPermissionsKept) {
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
}

TEST(Files, TheLongestNamesAreReplacedToo) {
  const ScratchFolder folder;
  std::string name;
  while (name.size() + 3 <= 255) name += "燃";
  const std::string other = name.substr(0, name.size() - 3) + "料";
  replaceFile(folder / name, bytesOf("1"));
  replaceFile(folder / other, bytesOf("2"));
  EXPECT_EQ(contentOf(folder / name), "1");
  EXPECT_EQ(contentOf(folder / other), "2");
}

TEST(Files, APairIsReplacedTogetherOrNotAtAll) {
  const ScratchFolder folder;
  const std::string even = folder / "even";
  const std::string odd = folder / "odd";
  const FileContent both[] = {{even, bytesOf("0")}, {odd, bytesOf("1")}};
  replaceFiles(both);
  EXPECT_EQ(contentOf(even) + contentOf(odd), "01");

  const FileContent second[] = {{even, bytesOf("2")}, {folder / "no/odd", bytesOf("3")}};
  EXPECT_EQ(trapFailure([&] { replaceFiles(second); }), pathNotFound);
  EXPECT_EQ(contentOf(even) + contentOf(odd), "01");
  EXPECT_EQ(folder.count(), 2U);

  const FileContent same[] = {{odd, bytesOf("4")}, {odd, bytesOf("5")}};
  replaceFiles(same);
  EXPECT_EQ(contentOf(odd), "5");
  EXPECT_EQ(folder.count(), 2U);
}

TEST(Files, PathsComeApartAndTogether) {
  const struct {
    const char* path;
    const char* name;
  } names[] = {{"C:\\maps\\a.bin", "a.bin"},
               {"/maps/a.bin", "a.bin"},
               {"a.bin", "a.bin"},
               {"/maps\\a", "a"},
               {"\\maps/a", "a"},
               {"/maps/", ""},
               {"", ""}};
  for (const auto& row : names) EXPECT_EQ(fileNameOf(row.path), row.name) << row.path;

  const struct {
    const char* path;
    const char* folder;
  } folders[] = {{"/maps/a.bin", "/maps"}, {"/a", "/"}, {"a", ""}, {"x/y/a", "x/y"}, {"", ""}};
  for (const auto& row : folders) EXPECT_EQ(folderOf(row.path), row.folder) << row.path;

  const std::string root = fs::current_path().root_path().string();
  EXPECT_TRUE(isAbsolutePath(root + "maps"));
  EXPECT_FALSE(isAbsolutePath("maps/a"));
  EXPECT_FALSE(isAbsolutePath(""));
  EXPECT_EQ(joinPath("maps", root + "a"), root + "a");
  EXPECT_EQ(joinPath("", "a"), "a");
  EXPECT_EQ(joinPath("maps/", "a"), "maps/a");
  EXPECT_EQ(fs::path(joinPath("maps", "a")), fs::path("maps") / "a");
}

}  // namespace
