#include "core/text_files.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text_encoding.h"

namespace {

constexpr std::size_t firstStretch = 0x10000;  // bytes
constexpr std::size_t longestText = 0x1000000;

}  // namespace

// Each stretch is read from the start again: the file may have changed meanwhile.
std::string readTextFile(const std::string& path, const IsTooMuch& isTooMuch) {
  for (std::size_t stretch = firstStretch; stretch <= longestText; stretch *= 2) {
    const std::vector<std::uint8_t> bytes = readFile(path, stretch);
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (bytes.size() < stretch) return decodeText(text);
    if (isTooMuch(text.substr(0, text.find_last_of(",\r\n") + 1))) throw Failure(badSubscript);
  }
  throw Failure(outOfMemory);
}

void replaceTextFile(const std::string& path, const std::string& text) {
  const std::string encoded = encodeText(text);
  replaceFile(path, {reinterpret_cast<const std::uint8_t*>(encoded.data()), encoded.size()});
}
