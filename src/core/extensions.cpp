#include "core/extensions.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/utf8.h"

namespace {

constexpr std::size_t extensionLength = 3;

}  // namespace

std::string extensionOf(const std::string& path) {
  std::string extension = path.substr(path.size() - std::min(path.size(), extensionLength));
  for (char& letter : extension) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return extension;
}

std::string withExtension(const std::string& path, const std::string& extension) {
  if (path.empty()) return {};
  const std::u32string characters = utf32(path);
  const std::size_t kept = characters.size() - std::min(characters.size(), extensionLength);
  return utf8(std::u32string_view(characters).substr(0, kept)) + extension;
}
