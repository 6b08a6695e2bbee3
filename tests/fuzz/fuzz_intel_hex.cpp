// Any bytes as an Intel HEX file: the reader gives what the plain one gives, holds no more than it
// may, and reads back what the writer makes of its bytes. As an image of any form: what is wrong
// stands in a line of it, and what is right comes back from each form that is written.
#include <algorithm>
#include <optional>
#include <vector>

#include "bed.h"
#include "little_memory.h"
#include "platform/failure.h"
#include "platform/text_encoding.h"
#include "rom/image_reading.h"
#include "rom/intel_hex_reader.h"
#include "rom/intel_hex_writer.h"
#include "rom/srecord_writer.h"

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

void readAnyForm(std::string_view text) {
  const LittleMemory memory;
  try {
    const ImageContent content = readImageContent(bytesOf(text));
    for (const AddressRange& gap : content.gaps) {
      const std::size_t at = static_cast<std::size_t>(gap.from) - content.base;
      require(gap.from < gap.to && content.bytes.at(at) == 0xFF);
    }
    require(content.form != ImageFileForm::raw || std::ranges::equal(content.bytes, bytesOf(text)));
    require(readImageContent(bytesOf(intelHexText(content.bytes))).bytes == content.bytes);
    if (content.base + content.bytes.size() > 0x100000000) return;  // which S-records don't reach
    const ImageContent back = readImageContent(bytesOf(sRecordText(content.bytes, content.base)));
    require(back.bytes == content.bytes && back.base == content.base && back.gaps.empty());
  } catch (const ImageFault& fault) {
    require(fault.line() <= splitLines(text).size());
  } catch (const std::bad_alloc&) {
    return;
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
  readAnyForm(text);
  return 0;
}
