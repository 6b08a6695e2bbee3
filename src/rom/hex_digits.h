// Bytes as pairs of hexadecimal digits, both ways. Without tables and without branches: compilers
// turn loops over these into steps of many bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <span>
#include <string_view>

constexpr std::uint8_t noDigit = 16;
constexpr std::size_t byteDigits = 2;

// `noDigit` for what is none.
constexpr std::uint8_t digitValue(char character) {
  const auto decimal = static_cast<std::uint8_t>(character - '0');
  const auto letter = static_cast<std::uint8_t>((character | 0x20) - 'a');
  const auto fromLetter = static_cast<std::uint8_t>(letter < 6 ? 10 + letter : noDigit);
  return decimal < 10 ? decimal : fromLetter;
}

// Decodes digits in pairs; false if any of them is none.
inline bool decodePairs(std::string_view digits, std::uint8_t* to) {
  std::uint8_t seen = 0;
  for (std::size_t i = 0; i < digits.size() / byteDigits; ++i) {
    const std::uint8_t high = digitValue(digits[i * byteDigits]);
    const std::uint8_t low = digitValue(digits[i * byteDigits + 1]);
    seen |= high | low;
    to[i] = static_cast<std::uint8_t>(high << 4 | low);
  }
  return seen < noDigit;
}

constexpr char hexDigitOf(std::uint8_t value) {
  return static_cast<char>(value + (value < 10 ? '0' : 'A' - 10));
}

// Gives the place behind what it wrote.
inline char* putBytes(char* to, std::span<const std::uint8_t> bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    to[2 * i] = hexDigitOf(bytes[i] >> 4);
    to[2 * i + 1] = hexDigitOf(bytes[i] & 15);
  }
  return to + 2 * bytes.size();
}

inline char* putByte(char* to, std::size_t value) {
  const auto byte = static_cast<std::uint8_t>(value);
  return putBytes(to, {&byte, 1});
}

// The low eight bits of the sum. A pass of its own costs less than one in step with the digits.
inline std::uint8_t lowSum(std::span<const std::uint8_t> bytes, std::size_t start = 0) {
  return std::accumulate(bytes.begin(), bytes.end(), static_cast<std::uint8_t>(start));
}
