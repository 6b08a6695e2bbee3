#include "platform/replacement_record.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <exception>
#include <limits>
#include <sstream>
#include <system_error>

#include "platform/file_names.h"
#include "platform/files.h"
#include "platform/files_system.h"
#include "platform/replacement_names.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* title = "ZELKOVA replacement 1";
constexpr const char* none = "-";
constexpr std::size_t longestRecord = 65536;  // bytes

struct BrokenOff {
  std::string number;
  std::vector<ReplacedFile> files;
};

std::uint64_t wordAt(const std::uint8_t* bytes) {
  std::uint64_t word = 0;
  for (int i = 7; i >= 0; --i) word = word << 8 | bytes[i];
  return word;
}

std::string markText(const std::optional<ContentMark>& mark) {
  return mark ? std::to_string(mark->size) + ' ' + hex64(mark->hash) : none;
}

std::optional<ContentMark> parseMark(std::istream& words) {
  ContentMark mark;
  std::string size;
  words >> size;
  if (size == none) return std::nullopt;
  std::istringstream(size) >> mark.size;
  words >> std::hex >> mark.hash >> std::dec;
  return mark;
}

bool isAsAfter(const ReplacedFile& file) { return markOfFile(file.target) == file.after; }
bool isAsBefore(const ReplacedFile& file) { return markOfFile(file.target) == file.before; }

bool lies(const BrokenOff& broken, const ReplacedFile& file, Beside kind,
          const std::optional<ContentMark>& mark) {
  return mark && markOfFile(besidePath(file.target, broken.number, kind)) == mark;
}

bool moves(const BrokenOff& broken, const ReplacedFile& file, Beside kind) {
  std::error_code error;
  fs::rename(besidePath(file.target, broken.number, kind), file.target, error);
  return !error;
}

// Whatever is to be moved has to be there before the first is moved.
bool completes(const BrokenOff& broken) {
  const auto canMove = [&](const ReplacedFile& file) {
    return isAsAfter(file) || lies(broken, file, Beside::waiting, file.after);
  };
  return std::ranges::all_of(broken.files, canMove) &&
         std::ranges::all_of(broken.files, [&](const ReplacedFile& file) {
           return isAsAfter(file) || moves(broken, file, Beside::waiting);
         });
}

bool takesBack(const BrokenOff& broken) {
  const auto canMove = [&](const ReplacedFile& file) {
    return isAsBefore(file) || lies(broken, file, Beside::previous, file.before);
  };
  return std::ranges::all_of(broken.files, canMove) &&
         std::ranges::all_of(broken.files, [&](const ReplacedFile& file) {
           return isAsBefore(file) || moves(broken, file, Beside::previous);
         });
}

bool isSettled(const BrokenOff& broken) {
  const auto known = [](const ReplacedFile& file) { return isAsAfter(file) || isAsBefore(file); };
  if (!std::ranges::all_of(broken.files, known)) return false;
  return std::ranges::all_of(broken.files, isAsAfter) ||
         std::ranges::all_of(broken.files, isAsBefore) || completes(broken) || takesBack(broken);
}

// Nothing while another process holds one of the records: it replaces, or finishes as this one
// does.
std::vector<HeldFile> holdRecords(const BrokenOff& broken) {
  std::vector<HeldFile> records;
  for (const ReplacedFile& file : broken.files) {
    const fs::path path = besidePath(file.target, broken.number, Beside::record);
    auto held = HeldFile::ifAbandoned(path);
    if (!held && fs::exists(path)) return {};
    if (held) records.push_back(std::move(*held));
  }
  return records;
}

void finish(const BrokenOff& broken) {
  const std::vector<HeldFile> records = holdRecords(broken);
  if (records.empty() || !isSettled(broken)) return;
  for (const ReplacedFile& file : broken.files) {
    flushFolder(file.target.parent_path());
    for (const Beside kind : {Beside::waiting, Beside::previous}) {
      removeIfAbandoned(besidePath(file.target, broken.number, kind));
    }
  }
  // The first is the one that others try first.
  std::error_code ignored;
  for (auto file = broken.files.rbegin(); file != broken.files.rend(); ++file) {
    fs::remove(besidePath(file->target, broken.number, Beside::record), ignored);
  }
}

}  // namespace

ContentMark markOf(std::span<const std::uint8_t> bytes) {
  std::uint64_t hash = fnvOffset;
  const auto add = [&hash](std::uint64_t word) { hash = std::rotl((hash ^ word) * fnvPrime, 32); };
  const std::size_t words = bytes.size() / 8;
  for (std::size_t i = 0; i < words; ++i) add(wordAt(bytes.data() + i * 8));
  for (const std::uint8_t byte : bytes.subspan(words * 8)) add(byte);
  return {bytes.size(), hash};
}

std::optional<ContentMark> markOfFile(const fs::path& path) {
  if (!fs::exists(path)) return std::nullopt;
  return markOf(readRegularFile(path, std::numeric_limits<std::size_t>::max()));
}

std::string recordText(std::span<const ReplacedFile> files) {
  std::string text = std::string(title) + '\n';
  for (const ReplacedFile& file : files) {
    const std::u8string path = file.target.u8string();
    text += markText(file.before) + ' ' + markText(file.after) + ' ';
    text.append(path.begin(), path.end()) += '\n';
  }
  return text + hex64(hashOf(text)) + '\n';
}

std::vector<ReplacedFile> parseRecord(const std::string& text) {
  constexpr std::size_t endLength = 17;  // the hash and its line end
  if (text.size() < endLength) return {};
  const std::string body = text.substr(0, text.size() - endLength);
  if (text != body + hex64(hashOf(body)) + '\n') return {};
  std::istringstream lines(body);
  std::string line;
  if (!std::getline(lines, line) || line != title) return {};
  std::vector<ReplacedFile> files;
  while (std::getline(lines, line)) {
    std::istringstream words(line);
    const std::optional<ContentMark> before = parseMark(words);
    const ContentMark after = parseMark(words).value_or(ContentMark{});
    std::string path;
    if (!std::getline(words.ignore(), path)) return {};
    files.push_back({systemPath(path), before, after});
  }
  return files;
}

void finishReplacementsBeside(const fs::path& target) noexcept {
  try {
    for (const FoundBeside& found : findBeside(fs::absolute(target))) {
      if (found.kind != Beside::record) continue;
      const std::vector<std::uint8_t> bytes = readRegularFile(found.path, longestRecord);
      const BrokenOff broken{found.number, parseRecord({bytes.begin(), bytes.end()})};
      const auto tellsOf = [&](const ReplacedFile& file) {
        return besidePath(file.target, found.number, Beside::record) == found.path;
      };
      if (std::ranges::any_of(broken.files, tellsOf)) finish(broken);
    }
  } catch (const std::exception&) {
    // What can't be finished now is tried again at the next occasion.
  }
}

void finishReplacements(const std::string& path) noexcept {
  try {
    finishReplacementsBeside(systemPath(path));
  } catch (const std::exception&) {
    // No such file.
  }
}
