#include "platform/text_encoding.h"

#include <algorithm>
#include <optional>

#include "platform/code_page.h"
#include "platform/utf8.h"

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

// The text with U+FFFD for each byte that is no UTF-8.
std::string validated(std::string_view text) { return utf8(utf32(text)); }

bool hasMeaning(char32_t character) {
  return character < 0x80 || (character > 0xA0 && character != U'\uFFFD');
}

bool couldBeCodePage(std::string_view bytes) {
  return std::ranges::all_of(utf32(codePageToUtf8(bytes)), hasMeaning);
}

// Characters of two bytes alone are seldom meant where the code page has a text for all of them:
// half-width katakana, and half-width katakana before characters that are led by 81 to 9F.
bool isUtf8(std::string_view bytes) {
  const std::u32string characters = utf32(bytes);
  if (utf8(characters) != bytes) return false;
  const bool evident = std::ranges::any_of(characters, [](char32_t c) { return c >= 0x800; });
  return evident || !couldBeCodePage(bytes);
}

}  // namespace

std::string decodeText(std::string_view bytes) {
  if (bytes.starts_with(byteOrderMark)) return validated(bytes.substr(byteOrderMark.size()));
  if (isAscii(bytes) || isUtf8(bytes)) return std::string(bytes);
  return codePageToUtf8(bytes);
}

std::string encodeText(std::string_view utf8Text) {
  if (isAscii(utf8Text)) return std::string(utf8Text);
  const std::optional<std::string> bytes = utf8ToCodePage(utf8Text);
  if (bytes && decodeText(*bytes) == utf8Text) return *bytes;
  return std::string(byteOrderMark).append(utf8Text);
}

std::vector<std::string> splitLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    lines.emplace_back(text.substr(0, end));
    const bool pair = text.substr(end, 2) == "\r\n";
    text.remove_prefix(std::min(end + (pair ? 2 : 1), text.size()));
  }
  return lines;
}
