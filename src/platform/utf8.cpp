#include "platform/utf8.h"

#include <cstdint>

namespace {

constexpr char32_t replacement = U'\uFFFD';

// The length in bytes that a leading byte announces; 0 when it can't lead.
int announcedLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

bool allowed(char32_t character, int length) {
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  return character >= smallest[length] && character <= 0x10FFFF && !surrogate;
}

}  // namespace

std::u32string utf32(std::string_view text) {
  std::u32string characters;
  characters.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const int length = announcedLength(lead);
    if (length <= 1) {
      characters.push_back(length == 1 ? lead : replacement);
      ++i;
      continue;
    }
    char32_t character = lead & (0xFFu >> (length + 1));
    int read = 1;
    for (; read < length && i + static_cast<std::size_t>(read) < text.size(); ++read) {
      const auto next = static_cast<unsigned char>(text[i + static_cast<std::size_t>(read)]);
      if ((next & 0xC0) != 0x80) break;
      character = character << 6 | (next & 0x3F);
    }
    const bool whole = read == length && allowed(character, length);
    characters.push_back(whole ? character : replacement);
    i += static_cast<std::size_t>(whole ? length : 1);
  }
  return characters;
}

std::string utf8(std::u32string_view characters) {
  std::string text;
  text.reserve(characters.size());
  const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  for (const char32_t c : characters) {
    if (c < 0x80) {
      put(c);
    } else if (c < 0x800) {
      put(0xC0 | c >> 6);
      put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      put(0xE0 | c >> 12);
      put(0x80 | (c >> 6 & 0x3F));
      put(0x80 | (c & 0x3F));
    } else {
      put(0xF0 | c >> 18);
      put(0x80 | (c >> 12 & 0x3F));
      put(0x80 | (c >> 6 & 0x3F));
      put(0x80 | (c & 0x3F));
    }
  }
  return text;
}
