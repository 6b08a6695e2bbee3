#include "platform/replacement_names.h"

#include <algorithm>
#include <array>
#include <random>
#include <system_error>

#include "platform/numbers.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t longestHead = 64;  // bytes of the target's name, to be known by eye
constexpr std::size_t numberDigits = 16;
constexpr std::array<std::string_view, 3> suffixes{".zelkova-pair", ".zelkova-new",
                                                   ".zelkova-old"};  // by kind

std::string utf8Name(const fs::path& path) {
  const std::u8string name = path.filename().u8string();
  return std::string(name.begin(), name.end());
}

// A beginning of its own for each target: the hash stands for what the head leaves out.
std::string prefixOf(const fs::path& target) {
  const std::string name = utf8Name(target);
  std::size_t head = std::min(name.size(), longestHead);
  while (head > 0 && head < name.size() && (name[head] & 0xC0) == 0x80) --head;
  return '.' + name.substr(0, head) + '.' + hex64(hashOf(name)) + '-';
}

// The number in a name that begins with `prefix` and has the kind's end; empty if it is none.
std::string numberIn(std::string_view name, std::string_view prefix, std::string_view suffix) {
  if (name.size() != prefix.size() + numberDigits + suffix.size()) return {};
  const std::string_view number = name.substr(prefix.size(), numberDigits);
  const bool hex = number.find_first_not_of("0123456789ABCDEF") == std::string_view::npos;
  return hex && name.starts_with(prefix) && name.ends_with(suffix) ? std::string(number) : "";
}

}  // namespace

std::uint64_t hashOf(std::string_view text) {
  std::uint64_t hash = fnvOffset;
  for (const char c : text) hash = (hash ^ static_cast<std::uint8_t>(c)) * fnvPrime;
  return hash;
}

std::string hex64(std::uint64_t value) {
  const auto half = [](std::uint64_t bits) { return hexDigits(bits & 0xFFFFFFFF, 4); };
  return half(value >> 32) + half(value);
}

std::string freshNumber() {
  thread_local std::mt19937_64 numbers{std::random_device{}()};
  return hex64(numbers());
}

fs::path besidePath(const fs::path& target, const std::string& number, Beside kind) {
  const std::string_view suffix = suffixes[static_cast<std::size_t>(kind)];
  const std::string name = prefixOf(target) + number + std::string(suffix);
  return target.parent_path() / fs::path(std::u8string(name.begin(), name.end()));
}

std::vector<FoundBeside> findBeside(const fs::path& target) {
  std::vector<FoundBeside> found;
  const std::string prefix = prefixOf(target);
  try {
    const fs::path folder = target.parent_path();
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.empty() ? "." : folder)) {
      const std::string name = utf8Name(entry.path());
      for (const Beside kind : {Beside::record, Beside::waiting, Beside::previous}) {
        const std::string number = numberIn(name, prefix, suffixes[static_cast<std::size_t>(kind)]);
        if (!number.empty()) found.push_back({entry.path(), number, kind});
      }
    }
  } catch (const std::system_error&) {
    // A neighbour with an unreadable name hinders no save.
  }
  std::ranges::stable_sort(found, {}, &FoundBeside::kind);
  return found;
}
