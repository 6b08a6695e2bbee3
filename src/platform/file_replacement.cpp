// Replacing files whole: every new file is complete on disk before the first old one goes.
#include <algorithm>
#include <filesystem>
#include <optional>
#include <random>
#include <system_error>

#include "platform/failure.h"
#include "platform/file_names.h"
#include "platform/files.h"
#include "platform/files_system.h"
#include "platform/numbers.h"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view suffix = ".zelkova-new";
constexpr std::size_t longestHead = 64;  // bytes of the target's name, to be known by eye
constexpr std::size_t freshDigits = 16;  // hexadecimal digits that differ from save to save
constexpr int longestChainOfLinks = 40;  // as the system itself allows
constexpr int namesToTry = 100;

struct Replacement {
  std::string path;  // as the caller gave it
  fs::path target;   // what the path's links lead to
  std::optional<WaitingFile> waiting;
  fs::path previous;  // the old file's second name while it may have to come back
  bool existed = false;
  bool moved = false;
};

std::string hex64(std::uint64_t value) {
  const auto half = [](std::uint64_t bits) {
    return padHex(hexText(static_cast<std::uint32_t>(bits & 0xFFFFFFFF)), 4);
  };
  return half(value >> 32) + half(value);
}

std::string utf8Name(const fs::path& path) {
  const std::u8string name = path.filename().u8string();
  return std::string(name.begin(), name.end());
}

// FNV-1a, which stands for the parts of a long name that the head leaves out.
std::uint64_t nameHash(std::string_view name) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  return hash;
}

// How the names of all waiting files of a target begin; a length of its own for each target.
std::string waitingPrefix(const fs::path& target) {
  const std::string name = utf8Name(target);
  std::size_t head = std::min(name.size(), longestHead);
  while (head > 0 && head < name.size() && (name[head] & 0xC0) == 0x80) --head;
  return '.' + name.substr(0, head) + '.' + hex64(nameHash(name)) + '-';
}

fs::path freshPath(const fs::path& target) {
  static std::mt19937_64 numbers{std::random_device{}()};
  const std::string name = waitingPrefix(target) + hex64(numbers()) + std::string(suffix);
  return target.parent_path() / systemPath(name);
}

bool isWaitingName(std::string_view name, std::string_view prefix) {
  if (name.size() != prefix.size() + freshDigits + suffix.size()) return false;
  const std::string_view fresh = name.substr(prefix.size(), freshDigits);
  const bool hex = fresh.find_first_not_of("0123456789ABCDEF") == std::string_view::npos;
  return hex && name.starts_with(prefix) && name.ends_with(suffix);
}

// A folder that can't be listed, or a neighbour with an unreadable name, hinders no save.
void removeAbandonedBeside(const fs::path& target) {
  const std::string prefix = waitingPrefix(target);
  try {
    const fs::path folder = target.parent_path();
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.empty() ? "." : folder)) {
      if (isWaitingName(utf8Name(entry.path()), prefix)) removeIfAbandoned(entry.path());
    }
  } catch (const std::system_error&) {
    return;
  }
}

fs::path behindLinks(fs::path path) {
  for (int i = 0; i < longestChainOfLinks; ++i) {
    std::error_code missing;
    if (!fs::is_symlink(fs::symlink_status(path, missing))) return path;
    path = path.parent_path() / fs::read_symlink(path);
  }
  throw std::system_error(std::make_error_code(std::errc::too_many_symbolic_link_levels));
}

WaitingFile makeWaiting(const fs::path& target) {
  for (int i = 0; i < namesToTry; ++i) {
    if (auto file = WaitingFile::create(freshPath(target), target)) return std::move(*file);
  }
  throw std::system_error(std::make_error_code(std::errc::file_exists));
}

// Runs `step`; errors become the Failure that fits the replacement's path.
template <typename Step>
void failingAt(const Replacement& replacement, Step step) {
  try {
    step();
  } catch (const std::system_error& error) {
    throw Failure(failureNumberAt(replacement.path, error.code()));
  }
}

void resolve(Replacement& replacement) {
  replacement.target = behindLinks(systemPath(replacement.path));
  if (!replacement.target.has_filename()) throw Failure(pathFileAccess);
  requireReplaceable(replacement.target);
}

// Some file systems hold no second names; there the old file is copied.
void keepPrevious(Replacement& replacement) {
  std::error_code error;
  replacement.existed = fs::exists(replacement.target, error) || error;
  if (!replacement.existed) return;
  replacement.previous = freshPath(replacement.target);
  fs::create_hard_link(replacement.target, replacement.previous, error);
  if (error)
    failingAt(replacement, [&] { fs::copy_file(replacement.target, replacement.previous); });
}

// False if the old file could not be put back; it then stays under its second name.
bool putBack(const Replacement& replacement) noexcept {
  std::error_code error;
  if (!replacement.previous.empty()) {
    fs::rename(replacement.previous, replacement.target, error);
  } else if (!replacement.existed) {
    fs::remove(replacement.target, error);
  }
  return !error;
}

void dropPrevious(const Replacement& replacement) noexcept {
  std::error_code ignored;
  if (!replacement.previous.empty()) fs::remove(replacement.previous, ignored);
}

void moveAll(std::vector<Replacement>& replacements) {
  for (Replacement& replacement : replacements) {
    failingAt(replacement, [&] { replacement.waiting->moveTo(replacement.target); });
    replacement.moved = true;
  }
}

void moveAllOrNone(std::vector<Replacement>& replacements) {
  try {
    for (std::size_t i = 0; i + 1 < replacements.size(); ++i) keepPrevious(replacements[i]);
    moveAll(replacements);
  } catch (...) {
    for (auto last = replacements.rbegin(); last != replacements.rend(); ++last) {
      if (!last->moved || putBack(*last)) dropPrevious(*last);
    }
    throw;
  }
  for (const Replacement& replacement : replacements) dropPrevious(replacement);
}

}  // namespace

void replaceFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  const FileContent file{path, bytes};
  replaceFiles({&file, 1});
}

void replaceFiles(std::span<const FileContent> files) {
  std::vector<Replacement> replacements(files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    replacements[i].path = files[i].path;
    failingAt(replacements[i], [&] { resolve(replacements[i]); });
  }
  for (const Replacement& replacement : replacements) removeAbandonedBeside(replacement.target);
  for (std::size_t i = 0; i < files.size(); ++i) {
    failingAt(replacements[i], [&] {
      replacements[i].waiting.emplace(makeWaiting(replacements[i].target));
      replacements[i].waiting->write(files[i].bytes);
    });
  }
  moveAllOrNone(replacements);
  for (const Replacement& replacement : replacements) flushFolder(replacement.target.parent_path());
}
