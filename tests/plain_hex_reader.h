// The Intel HEX reader in the words of its contract, one character after the other and no shortcut:
// what the real one is held against.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "imagefiles/intel_hex_reader.h"

inline std::vector<std::string> plainHexLines(std::string_view text) {
  std::vector<std::string> lines;
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') {
      line += text[i];
      continue;
    }
    lines.push_back(line);
    line.clear();
    ++i;
  }
  return lines;
}

// Nothing where the real reader fails, or has no bytes to give.
inline std::optional<std::vector<std::uint8_t>> readHexPlainly(std::string_view text,
                                                               std::int64_t capacity) {
  const std::vector<std::string> lines = plainHexLines(text);
  if (std::ssize(lines) > maximumHexLines) return std::nullopt;
  std::vector<std::uint8_t> bytes;
  std::int64_t position = 0;
  const auto store = [&](std::int32_t value) {
    if (position < 0 || position >= capacity) return false;
    bytes.push_back(static_cast<std::uint8_t>(value));
    ++position;
    return true;
  };
  for (const std::string& line : lines) {
    const auto columns = [&](std::size_t first, std::size_t count) {
      return line.size() < first ? std::string() : line.substr(first - 1, count);
    };
    if (columns(1, 3) == ":00" || columns(1, 3) == ":02") continue;
    const std::int32_t address = position == 0 ? hexField(columns(4, 4)) : 0;
    for (std::int32_t i = 0; i < address; ++i) {
      if (!store(0xFF)) return std::nullopt;
    }
    if (address < 0) position = address;
    const auto last = 8 + 2 * static_cast<std::size_t>(hexField(columns(2, 2)));
    for (std::size_t c = 10; c <= last; c += 2) {
      if (!store(hexField(columns(c, 2)))) return std::nullopt;
    }
  }
  return bytes.empty() ? std::nullopt : std::optional(bytes);
}
