#include "code_page.h"

#include <iconv.h>

#include <stdexcept>

std::string inCodePage(std::string_view utf8) {
  const iconv_t converter = iconv_open("CP932", "UTF-8");
  std::string in(utf8), out(utf8.size() * 2, '\0');
  char* from = in.data();
  char* to = out.data();
  std::size_t left = in.size(), room = out.size();
  const bool failed = iconv(converter, &from, &left, &to, &room) == static_cast<std::size_t>(-1);
  iconv_close(converter);
  if (failed) throw std::runtime_error("text outside the code page");
  out.resize(out.size() - room);
  return out;
}
