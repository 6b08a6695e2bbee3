// Numbers and their texts: rounding, the lenient and the strict readers, hexadecimal, and the plain
// decimal forms. Nothing here depends on the locale; blanks are the space and the tab.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

// Nearest whole number, ties to even. Throws Failure(overflow) outside 32 bits and for NaN.
std::int32_t roundToLong(double value);
// The same with the nearer end of 32 bits for what lies outside. `value` is a number.
std::int32_t roundClamped(double value);
std::int32_t clampTo32Bits(std::int64_t value);
// The nearest single-precision number; what lies outside becomes the largest of its sign.
float realClamped(double value);

// The lenient reader: the number at the start of `text` after blanks, with optional sign, fraction
// and exponent ("E" or "e", only when digits follow); what stands behind it is ignored. Nothing
// numeric gives 0, never minus zero. A number too large gives the largest finite double of its
// sign.
double parseNumber(std::string_view text);

// The value of a text of one to nine bare digits, as nearly all cells hold; nothing for any other.
inline std::optional<std::int32_t> bareNumber(std::string_view text) {
  if (text.empty() || text.size() > 9) return std::nullopt;
  std::int32_t value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

// The lenient reader of whole numbers in cells and boxes: parseNumber, roundClamped.
std::int32_t cellNumber(std::string_view text);

// The strict reader of whole numbers: blanks around, then a decimal number with optional sign,
// fraction and exponent, rounded as by roundToLong; or "&H" with 1 to 8 hexadecimal digits, taken
// as 32 bits in two's complement ("&HFFFFFFFF" is -1). Throws Failure(typeMismatch) for anything
// else, an empty text included, and Failure(overflow) for a number outside 32 bits.
std::int32_t parseLong(std::string_view text);

// The strict reader of single-precision numbers, in the forms of parseLong but not rounded to whole
// ones. Throws Failure(typeMismatch) and, beyond the largest float, Failure(overflow). A number too
// small for a float gives 0.
float parseReal(std::string_view text);

// parseNumber that also takes "&H" and its leading hexadecimal digits, read as by hexPrefix.
double parseScale(std::string_view text);

// A prompt's answer: a decimal number with optional sign, fraction and exponent, blanks around it.
// Nothing for any other text and for a number that is not finite.
std::optional<double> parseAnswer(std::string_view text);

// The value of the hexadecimal digits at the very start of `text`, of which at most `maxDigits` are
// read; no digit gives 0. Leading zeros are harmless in any number. A value beyond
// INT32_MAX gives INT32_MAX, so that the result is never negative.
std::int32_t hexPrefix(std::string_view text, int maxDigits = std::numeric_limits<int>::max());

// Upper-case hexadecimal without padding; 0 gives "0".
std::string hexText(std::uint32_t value);

// Pads with "0" on the left up to 2 * `bytes` digits. An empty text stays empty, a longer one
// stays.
std::string padHex(std::string text, int bytes);
// The low 32 bits in at least 2 * `bytes` digits.
inline std::string hexDigits(std::int64_t value, int bytes) {
  return padHex(hexText(static_cast<std::uint32_t>(value)), bytes);
}

// Plain decimal form, exact to the last bit when read back: no exponent, no superfluous zeros, no
// minus zero ("0.5", "6500", "-3"). What is not finite gives "inf", "-inf" or "nan".
std::string plainNumber(double value);

// The shortest decimal that parseReal reads back as the same float: plain from a millionth to
// below a thousand million, with an exponent outside. What is not finite gives "inf", "-inf",
// "nan".
std::string shortestReal(float value);

// Decimal text with a leading blank in the place of the sign of a number that is not negative.
std::string signedBlank(std::int64_t value);

// `value` with exactly `decimals` places (0 to 12): the number's exact value is rounded, an exact
// tie away from zero; a zero result has no minus sign. What is not finite is as in plainNumber.
std::string formatFixed(float value, int decimals);

// Plain decimal digits with "-" for a negative number.
std::string decimalText(std::int32_t value);
