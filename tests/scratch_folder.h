// A folder of a test's own that goes with it, and the small talk with files in it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

class ScratchFolder {
 public:
  ScratchFolder()
      : path_(std::filesystem::temp_directory_path() /
              ("zelkova-test-" + std::to_string(std::random_device{}()))) {
    std::filesystem::create_directory(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string operator/(std::string_view name) const {
    const std::u8string utf8 = path_.u8string();
    return joinPath(std::string(utf8.begin(), utf8.end()), name);
  }
  const std::filesystem::path& path() const { return path_; }

  // How many entries stand in it.
  std::size_t count() const {
    const std::filesystem::directory_iterator entries(path_);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
  }
  // What those of the files hold that are there, and how many entries stand in it: "old new 2".
  std::string texts(std::initializer_list<std::string_view> names) const {
    std::string all;
    for (const std::string_view name : names) {
      if (!std::filesystem::exists(path_ / name)) continue;
      const std::vector<std::uint8_t> bytes = readFile(*this / name);
      all.append(bytes.begin(), bytes.end()) += ' ';
    }
    return all + std::to_string(count());
  }

 private:
  std::filesystem::path path_;
};

inline std::span<const std::uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

inline std::string contentOf(const std::string& path) {
  const std::vector<std::uint8_t> bytes = readFile(path);
  return std::string(bytes.begin(), bytes.end());
}
