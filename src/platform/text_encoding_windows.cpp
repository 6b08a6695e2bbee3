// The code page by the system's own conversion.
#include <windows.h>

#include <array>

#include "platform/code_page.h"
#include "platform/utf8.h"

namespace {

constexpr UINT codePage = 932;

// The system gives some single bytes a place in its private area instead of none.
bool hasMeaning(wchar_t character) {
  return character < 0x80 || (character > 0xA0 && !(character >= 0xF8F0 && character <= 0xF8F3));
}

// One character of `length` bytes; 0 if they have no meaning.
wchar_t decodeOne(const char* bytes, int length) {
  std::array<wchar_t, 2> wide{};
  const int written = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes, length,
                                          wide.data(), static_cast<int>(wide.size()));
  return written == 1 && hasMeaning(wide[0]) ? wide[0] : L'\0';
}

// One character as bytes; empty if it has no place.
std::string encodeOne(char32_t character) {
  if (character > 0xFFFF) return {};
  const auto wide = static_cast<wchar_t>(character);
  std::array<char, 4> bytes{};
  BOOL substituted = FALSE;
  const int written = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, &substituted);
  if (written <= 0 || substituted != FALSE) return {};
  return std::string(bytes.data(), static_cast<std::size_t>(written));
}

}  // namespace

std::string codePageToUtf8(std::string_view bytes) {
  std::u32string text;
  for (std::size_t i = 0; i < bytes.size();) {
    const char* const at = bytes.data() + i;
    const bool leads = IsDBCSLeadByteEx(codePage, static_cast<BYTE>(*at)) != FALSE;
    const int length = leads ? 2 : 1;
    const bool cut = leads && i + 1 == bytes.size();
    const wchar_t character = cut ? L'\0' : decodeOne(at, length);
    const bool meant = character != L'\0' || *at == '\0';
    text.push_back(meant ? static_cast<char32_t>(character) : U'\uFFFD');
    i += static_cast<std::size_t>(meant ? length : 1);
  }
  return utf8(text);
}

std::optional<std::string> utf8ToCodePage(std::string_view utf8Text) {
  std::string bytes;
  for (const char32_t character : utf32(utf8Text)) {
    const std::string encoded = encodeOne(character);
    if (encoded.empty()) return std::nullopt;
    bytes += encoded;
  }
  return bytes;
}
