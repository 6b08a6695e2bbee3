// Files as wholes: read all of one, replace all of one or of several, and the parts of a path.
// Paths are UTF-8 with the system's separators. Errors are Failures as failureNumberOf gives them,
// except that a missing folder on the way to a file is always 76.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct FileContent {
  std::string path;
  std::span<const std::uint8_t> bytes;
};

// The file's bytes, at most the first `atMost`. A file that shrinks meanwhile gives what was there.
// Throws Failure; folders, devices, pipes and the like are 75 and never waited for.
std::vector<std::uint8_t> readFile(const std::string& path,
                                   std::size_t atMost = std::numeric_limits<std::size_t>::max());

// The size in bytes of the file, without reading it. Throws as readFile does.
std::uintmax_t fileSize(const std::string& path);

// What tells, without reading it, that a file may have been written since.
struct FileStamp {
  std::uintmax_t size = 0;
  std::int64_t written = 0;  // nanoseconds since 1970
  bool operator==(const FileStamp&) const = default;
};
// Throws as readFile does.
FileStamp fileStamp(const std::string& path);

// Whether `path`, less one trailing "\" or "/", opens as a regular file for reading. An empty path
// is no file. Never throws.
bool fileExists(std::string path) noexcept;

// Replaces the whole file, or creates it: written beside the target under a fresh name, flushed to
// disk, renamed over it. On a failure (thrown) the old file stands untouched and no other file
// stays behind. A symbolic link is followed, also to a file yet to be made; permissions and, where
// allowed, the owner are kept. A target that is no regular file or is read-only is refused with 75
// before anything is written. What a killed process left of an earlier save of the same target is
// removed.
void replaceFile(const std::string& path, std::span<const std::uint8_t> bytes);

// What is done on the way of a replacement; a failure thrown there ends it.
struct ReplacementSteps {
  // With each target, behind its links, before anything is written. It may not be there.
  std::function<void(const FileContent& file, const std::filesystem::path& target)> before;
  // When the new files are on disk, before the first old one goes.
  std::function<void()> beforeMoving;
};

// replaceFile for several: all are complete on disk before the first takes its target's place; a
// failure at a later one puts the earlier targets back. What can't be put back, and what a killed
// process left half done, lies beside the targets until finishReplacements or the next replacement.
void replaceFiles(std::span<const FileContent> files, const ReplacementSteps& steps = {});

// Completes a replacement of several files that was broken off with `path` among them, or takes it
// back where its new files are gone; files that were changed since are left alone. Never throws.
void finishReplacements(const std::string& path) noexcept;

// What stands behind the last "\" or "/".
std::string fileNameOf(std::string_view path);

// `path` from the root on, without "." and "..", links as they stand.
std::string fullPath(const std::string& path);

// Whether both lead to one file, be it there or not. Never throws.
bool nameSameFile(const std::string& one, const std::string& other) noexcept;

// The folder before the last separator of the system, without that separator unless it is the root;
// empty if there is none.
std::string folderOf(std::string_view path);

// `name` inside `folder`; an absolute `name`, or one in no folder (""), stands for itself.
std::string joinPath(std::string_view folder, std::string_view name);

bool isAbsolutePath(std::string_view path);
