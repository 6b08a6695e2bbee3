// The Intel HEX reader in the words of its contract, one character after the other and no shortcut:
// what the real one is held against.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "imagefiles/intel_hex_reader.h"

// Nothing where the real reader fails, or has no bytes to give.
inline std::optional<std::vector<std::uint8_t>> readHexPlainly(std::string_view text,
                                                               std::int64_t capacity) {
  std::vector<std::uint8_t> bytes;
  std::string line;
  std::int64_t lines = 0;
  bool outside = false;
  const auto field = [&line](std::size_t column, std::size_t count) {
    return hexField(line.size() < column ? "" : line.substr(column - 1, count));
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') {
      line += text[i];
      continue;
    }
    ++i;
    ++lines;
    if (!line.starts_with(":00") && !line.starts_with(":02")) {
      const std::int32_t address = bytes.empty() ? field(4, 4) : 0;
      outside = outside || address < 0;
      bytes.insert(bytes.end(), static_cast<std::size_t>(std::max(address, 0)), 0xFF);
      const auto last = 8 + 2 * static_cast<std::size_t>(field(2, 2));
      for (std::size_t c = 10; c <= last; c += 2) {
        bytes.push_back(static_cast<std::uint8_t>(field(c, 2)));
      }
    }
    line.clear();
  }
  const bool fits = lines <= maximumHexLines && std::ssize(bytes) <= capacity;
  return outside || bytes.empty() || !fits ? std::nullopt : std::optional(bytes);
}
