// The code page by the C library's iconv.
#include <iconv.h>

#include <array>
#include <cerrno>

#include "platform/code_page.h"

namespace {

constexpr const char* codePage = "CP932";
constexpr std::string_view replacement = "\xEF\xBF\xBD";

class Converter {
 public:
  Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
  ~Converter() {
    if (isOpen()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool isOpen() const { return handle_ != unopened(); }

  // Converts from the front of `input`, which shrinks by what was read. True at its end, false
  // before a byte that has no counterpart.
  bool convert(std::string_view& input, std::string& output) {
    constexpr auto failed = static_cast<std::size_t>(-1);
    bool stopped = false;
    while (!stopped && !input.empty()) {
      std::array<char, 4096> buffer;
      char* source = const_cast<char*>(input.data());  // iconv only reads it
      std::size_t left = input.size();
      char* target = buffer.data();
      std::size_t room = buffer.size();
      const std::size_t result = iconv(handle_, &source, &left, &target, &room);
      stopped = result == failed && errno != E2BIG;
      output.append(buffer.data(), buffer.size() - room);
      input.remove_prefix(input.size() - left);
    }
    return !stopped;
  }

 private:
  static iconv_t unopened() { return reinterpret_cast<iconv_t>(-1); }
  iconv_t handle_;
};

std::string asciiOnly(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    if ((c & 0x80) == 0) {
      text += c;
    } else {
      text += replacement;
    }
  }
  return text;
}

}  // namespace

std::string codePageToUtf8(std::string_view bytes) {
  Converter converter("UTF-8", codePage);
  if (!converter.isOpen()) return asciiOnly(bytes);
  std::string text;
  while (!converter.convert(bytes, text)) {
    text += replacement;
    bytes.remove_prefix(1);
  }
  return text;
}

std::optional<std::string> utf8ToCodePage(std::string_view utf8) {
  Converter converter(codePage, "UTF-8");
  std::string bytes;
  if (!converter.isOpen() || !converter.convert(utf8, bytes)) return std::nullopt;
  return bytes;
}
