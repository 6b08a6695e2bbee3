#include "rom/intel_hex_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "rom/hex_digits.h"
#include "rom/progress_steps.h"

namespace {

constexpr std::size_t recordBytes = 32;
constexpr std::size_t lengthPassedOver = 2;  // by the reader
constexpr std::size_t segmentBytes = 0x10000;
constexpr std::size_t segmentsReach = 0x100000;

enum RecordType : std::uint8_t { dataRecord = 0, segmentRecord = 2, linearRecord = 4 };

// ":", count, address, type, data, checksum, CR LF.
constexpr std::size_t lineLength = 1 + 2 * (1 + 2 + 1 + recordBytes + 1) + 2;
constexpr std::string_view lastLine = ":00000001FF\r\n";

std::uint8_t checksum(std::size_t address, RecordType type, std::span<const std::uint8_t> data) {
  const std::size_t head = data.size() + (address >> 8) + address + type;
  return static_cast<std::uint8_t>(-lowSum(data, head));
}

char* putRecord(char* to, std::size_t address, RecordType type,
                std::span<const std::uint8_t> data) {
  *to++ = ':';
  to = putByte(to, data.size());
  to = putByte(to, address >> 8);
  to = putByte(to, address);
  to = putByte(to, type);
  to = putBytes(to, data);
  to = putByte(to, checksum(address, type, data));
  *to++ = '\r';
  *to++ = '\n';
  return to;
}

char* putBase(char* to, RecordType type, std::size_t base) {
  const std::array<std::uint8_t, 2> value = {static_cast<std::uint8_t>(base >> 8),
                                             static_cast<std::uint8_t>(base)};
  return putRecord(to, 0, type, value);
}

// Opens the 65536 bytes that begin at `offset`.
char* putSegment(char* to, std::size_t offset) {
  if (offset < segmentsReach) return putBase(to, segmentRecord, offset >> 4);
  // Readers add both kinds of base: the segment must not count beside a linear one.
  if (offset == segmentsReach) to = putBase(to, segmentRecord, 0);
  return putBase(to, linearRecord, offset >> 16);
}

// At least as many as the text has.
std::size_t lineBound(std::size_t bytes) {
  return bytes / recordBytes + 3 * bytes / segmentBytes + 8;
}

std::size_t nextRecordBytes(std::size_t left) {
  return left == lengthPassedOver ? 1 : std::min(left, recordBytes);
}

// Appends the records of `part`; `segment` is the upper half of the addresses before them.
void append(std::string& text, const AddressedBytes& part, std::uint64_t& segment) {
  const std::size_t start = text.size();
  text.resize(start + lineBound(part.bytes.size()) * lineLength);
  char* to = text.data() + start;
  for (std::size_t offset = 0; offset < part.bytes.size();) {
    const std::uint64_t address = part.address + offset;
    if (address / segmentBytes != segment) {
      segment = address / segmentBytes;
      to = putBase(to, linearRecord, static_cast<std::size_t>(segment));
    }
    const auto inSegment = static_cast<std::size_t>(address % segmentBytes);
    const std::size_t left = std::min(part.bytes.size() - offset, segmentBytes - inSegment);
    const auto data = part.bytes.subspan(offset, nextRecordBytes(left));
    to = putRecord(to, inSegment, dataRecord, data);
    offset += data.size();
  }
  text.resize(static_cast<std::size_t>(to - text.data()));
}

}  // namespace

std::string intelHexText(std::span<const std::uint8_t> source) {
  std::string text(lineBound(source.size()) * lineLength, '\0');
  char* to = text.data();
  ProgressSteps progress(std::max<std::int64_t>(std::ssize(source), 1));
  if (source.empty()) to = putSegment(to, 0);
  for (std::size_t offset = 0; offset < source.size();) {
    if (offset % segmentBytes == 0) to = putSegment(to, offset);
    const auto data = source.subspan(offset, nextRecordBytes(source.size() - offset));
    to = putRecord(to, offset, dataRecord, data);
    offset += data.size();
    progress.reached(static_cast<std::int64_t>(offset));
  }
  to = std::copy(lastLine.begin(), lastLine.end(), to);
  text.resize(static_cast<std::size_t>(to - text.data()));
  return text;
}

std::string intelHexText(std::span<const AddressedBytes> parts) {
  std::string text;
  std::uint64_t segment = 0;
  for (const AddressedBytes& part : parts) append(text, part, segment);
  text += lastLine;
  return text;
}
