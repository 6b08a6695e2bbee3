#include "core/text_files.h"

#include <cstdint>
#include <vector>

#include "platform/files.h"
#include "platform/text_encoding.h"

std::string readTextFile(const std::string& path) {
  const std::vector<std::uint8_t> bytes = readFile(path);
  return decodeText({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

void replaceTextFile(const std::string& path, const std::string& text) {
  const std::string encoded = encodeText(text);
  replaceFile(path, {reinterpret_cast<const std::uint8_t*>(encoded.data()), encoded.size()});
}
