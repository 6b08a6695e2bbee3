// Any bytes as an Intel HEX file: the reader gives what the plain one gives, holds no more than it
// may, and reads back what the writer makes of its bytes.
#include <algorithm>
#include <optional>
#include <vector>

#include "bed.h"
#include "platform/failure.h"
#include "rom/intel_hex_reader.h"
#include "rom/intel_hex_writer.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

// The reader in the words of its contract, one character after the other and no shortcut.
// Nothing where the real reader fails, or has no bytes to give.
std::optional<Bytes> readHexPlainly(std::string_view text, std::int64_t capacity) {
  Bytes bytes;
  std::string line;
  std::int64_t lines = 0;
  bool outside = false;
  const auto field = [&line](std::size_t column, std::size_t count) {
    return hexField(line.size() < column ? "" : line.substr(column - 1, count));
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') {
      line += text[i];
      continue;
    }
    ++i;
    ++lines;
    if (!line.starts_with(":00") && !line.starts_with(":02")) {
      const std::int32_t address = bytes.empty() ? field(4, 4) : 0;
      outside = outside || address < 0;
      bytes.insert(bytes.end(), static_cast<std::size_t>(std::max(address, 0)), 0xFF);
      const auto last = 8 + 2 * static_cast<std::size_t>(field(2, 2));
      for (std::size_t c = 10; c <= last; c += 2) {
        bytes.push_back(static_cast<std::uint8_t>(field(c, 2)));
      }
    }
    line.clear();
  }
  const bool fits = lines <= maximumHexLines && std::ssize(bytes) <= capacity;
  return outside || bytes.empty() || !fits ? std::nullopt : std::optional(bytes);
}

std::optional<Bytes> read(std::span<const std::uint8_t> text, std::int64_t capacity) {
  try {
    return readIntelHex(text, capacity);
  } catch (const Failure& failure) {
    require(failure.number() == badSubscript);
    return std::nullopt;
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const std::int64_t capacity : {std::int64_t{100}, imageHexCapacity}) {
    const auto bytes = read({data, size}, capacity);
    require(bytes == readHexPlainly(text, capacity));
    if (!bytes) continue;
    require(bytes->capacity() <= std::max(static_cast<std::size_t>(capacity), size / 2));
    require(read(bytesOf(intelHexText(*bytes)), capacity) == bytes);
  }
  return 0;
}
