#include "platform/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>
#include <system_error>

#include "platform/failure.h"

namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

bool isBlank(char c) { return c == ' ' || c == '\t'; }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

int hexDigit(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

std::string_view withoutLeadingBlanks(std::string_view text) {
  const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
  return text.substr(static_cast<std::size_t>(first - text.begin()));
}

std::string_view withoutBlanks(std::string_view text) {
  text = withoutLeadingBlanks(text);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::size_t skipSign(std::string_view text, std::size_t at) {
  return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

std::size_t skipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && isDigit(text[at])) ++at;
  return at;
}

std::size_t skipExponent(std::string_view text, std::size_t at) {
  if (at >= text.size() || (text[at] != 'E' && text[at] != 'e')) return at;
  const std::size_t digits = skipSign(text, at + 1);
  const std::size_t end = skipDigits(text, digits);
  return end > digits ? end : at;
}

// The part of `text` that is a decimal number, from its very start; empty if there is none.
std::string_view decimalPrefix(std::string_view text) {
  const std::size_t whole = skipSign(text, 0);
  std::size_t end = skipDigits(text, whole);
  std::size_t digits = end - whole;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fraction = end + 1;
    end = skipDigits(text, fraction);
    digits += end - fraction;
  }
  return digits > 0 ? text.substr(0, skipExponent(text, end)) : std::string_view();
}

// Whether a decimal number that no Real can hold is too large for it; else it is too small.
bool isTooLarge(std::string_view decimal) {
  const std::size_t mantissaEnd = std::min(decimal.find_first_of("Ee"), decimal.size());
  const std::string_view mantissa = decimal.substr(0, mantissaEnd);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const auto leading = static_cast<double>(mantissa.find_first_of("123456789"));
  double exponent = 0;
  for (const char c : decimal.substr(mantissaEnd)) {
    if (isDigit(c)) exponent = exponent * 10 + (c - '0');
  }
  const bool negative = decimal.find('-', mantissaEnd) != std::string_view::npos;
  return static_cast<double>(point) - leading + (negative ? -exponent : exponent) > 0;
}

// Reads `digits` whole; gives whether their value has a place in a Real.
template <typename Real>
bool readDigits(std::string_view digits, Real& value) {
#ifdef __cpp_lib_to_chars
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return read.ec != std::errc::result_out_of_range;
#else
  // Some standard libraries have std::from_chars for whole numbers alone.
  std::istringstream stream{std::string(digits)};
  stream.imbue(std::locale::classic());
  stream >> value;
  return !stream.fail();
#endif
}

// The value of what decimalPrefix found; infinity of its sign when it is too large for a Real.
template <typename Real>
Real realOf(std::string_view decimal) {
  const bool negative = decimal.front() == '-';
  const std::string_view digits = decimal.substr(skipSign(decimal, 0));
  Real value = 0;
  if (!readDigits(digits, value)) {
    value = isTooLarge(digits) ? std::numeric_limits<Real>::infinity() : Real{0};
  }
  return negative ? Real{0} - value : value;
}

bool hasHexMark(std::string_view text) {
  return text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h');
}

std::int32_t strictHex(std::string_view digits) {
  if (digits.empty() || digits.size() > 8) throw Failure(typeMismatch);
  std::uint32_t value = 0;
  for (const char c : digits) {
    const int digit = hexDigit(c);
    if (digit < 0) throw Failure(typeMismatch);
    value = value << 4 | static_cast<std::uint32_t>(digit);
  }
  return static_cast<std::int32_t>(value);
}

template <typename Real>
Real strictDecimal(std::string_view text) {
  const std::string_view decimal = decimalPrefix(text);
  if (decimal.empty() || decimal.size() != text.size()) throw Failure(typeMismatch);
  const Real value = realOf<Real>(decimal);
  if (!std::isfinite(value)) throw Failure(overflow);
  return value;
}

template <typename Real>
std::string textOf(Real value, std::chars_format format) {
  if (std::isnan(value)) return "nan";
  std::array<char, 400> digits;  // the longest plain double has 1 sign, 2 + 324 + 17 places
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                 value == 0 ? Real{0} : value, format);
  return std::string(digits.data(), end.ptr);
}

constexpr double powersOfTen[] = {1e0, 1e1, 1e2, 1e3,  1e4,  1e5, 1e6,
                                  1e7, 1e8, 1e9, 1e10, 1e11, 1e12};

}  // namespace

std::int32_t roundToLong(double value) {
  const double rounded = std::nearbyint(value);
  const bool fits = rounded >= std::numeric_limits<std::int32_t>::min() &&
                    rounded <= std::numeric_limits<std::int32_t>::max();
  if (!fits) throw Failure(overflow);
  return static_cast<std::int32_t>(rounded);
}

std::int32_t roundClamped(double value) {
  return roundToLong(std::clamp<double>(value, lowest, highest));
}

std::int32_t clampTo32Bits(std::int64_t value) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, lowest, highest));
}

float realClamped(double value) {
  constexpr double largest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(value, -largest, largest));
}

double parseNumber(std::string_view text) {
  if (const auto bare = bareNumber(text)) return *bare;
  const std::string_view decimal = decimalPrefix(withoutLeadingBlanks(text));
  if (decimal.empty()) return 0;
  constexpr double largest = std::numeric_limits<double>::max();
  return std::clamp(realOf<double>(decimal), -largest, largest);
}

std::int32_t cellNumber(std::string_view text) {
  const auto bare = bareNumber(text);
  return bare ? *bare : roundClamped(parseNumber(text));
}

std::int32_t parseLong(std::string_view text) {
  text = withoutBlanks(text);
  if (hasHexMark(text)) return strictHex(text.substr(2));
  return roundToLong(strictDecimal<double>(text));
}

float parseReal(std::string_view text) {
  text = withoutBlanks(text);
  if (hasHexMark(text)) return static_cast<float>(strictHex(text.substr(2)));
  return strictDecimal<float>(text);
}

double parseScale(std::string_view text) {
  text = withoutLeadingBlanks(text);
  return hasHexMark(text) ? hexPrefix(text.substr(2)) : parseNumber(text);
}

std::optional<double> parseAnswer(std::string_view text) {
  text = withoutBlanks(text);
  const std::string_view decimal = decimalPrefix(text);
  if (decimal.empty() || decimal.size() != text.size()) return std::nullopt;
  const double value = realOf<double>(decimal);
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::int32_t hexPrefix(std::string_view text, int maxDigits) {
  constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
  std::int64_t value = 0;
  for (const char c : text.substr(0, static_cast<std::size_t>(std::max(maxDigits, 0)))) {
    const int digit = hexDigit(c);
    if (digit < 0) break;
    value = std::min(value * 16 + digit, largest);
  }
  return static_cast<std::int32_t>(value);
}

std::string hexText(std::uint32_t value) {
  std::array<char, 8> digits;
  std::size_t first = digits.size();
  do {
    digits[--first] = "0123456789ABCDEF"[value & 0xF];
    value >>= 4;
  } while (value != 0);
  return std::string(digits.data() + first, digits.size() - first);
}

std::string padHex(std::string text, int bytes) {
  const auto wanted = 2 * static_cast<std::size_t>(std::max(bytes, 0));
  if (!text.empty() && text.size() < wanted) text.insert(0, wanted - text.size(), '0');
  return text;
}

std::string plainNumber(double value) { return textOf(value, std::chars_format::fixed); }

std::string shortestReal(float value) {
  const float size = std::fabs(value);
  const bool plain = size == 0 || (size >= 1e-6F && size < 1e9F);
  return textOf(value, plain ? std::chars_format::fixed : std::chars_format::scientific);
}

std::string signedBlank(std::int64_t value) {
  return value < 0 ? std::to_string(value) : ' ' + std::to_string(value);
}

std::string formatFixed(float value, int decimals) {
  if (!std::isfinite(value)) return plainNumber(static_cast<double>(value));
  // A float has 24 significant bits and 5 to the 12th has 28: this product is exact.
  const auto places = static_cast<std::size_t>(std::clamp(decimals, 0, 12));
  const double scaled = std::round(static_cast<double>(value) * powersOfTen[places]);
  std::string text = plainNumber(std::fabs(scaled));
  if (text.size() <= places) text.insert(0, places + 1 - text.size(), '0');
  if (places > 0) text.insert(text.size() - places, 1, '.');
  return scaled < 0 ? '-' + text : text;
}

std::string decimalText(std::int32_t value) { return std::to_string(value); }
