// Any bytes as an Intel HEX file: the reader gives what the plain one gives, holds no more than it
// may, and reads back what the writer makes of its bytes.
#include <algorithm>

#include "bed.h"
#include "imagefiles/intel_hex_writer.h"
#include "plain_hex_reader.h"
#include "platform/failure.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

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
