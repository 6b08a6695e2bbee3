#include "imagefiles/intel_hex_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "imagefiles/progress_steps.h"
#include "platform/files.h"

namespace {

constexpr std::size_t recordBytes = 32;
constexpr std::size_t lengthPassedOver = 2;  // by the reader
constexpr std::size_t segmentBytes = 0x10000;
constexpr std::size_t segmentsReach = 0x100000;

enum RecordType : std::uint8_t { dataRecord = 0, segmentRecord = 2, linearRecord = 4 };

// ":", count, address, type, data, checksum, CR LF.
constexpr std::size_t lineLength = 1 + 2 * (1 + 2 + 1 + recordBytes + 1) + 2;
constexpr std::string_view lastLine = ":00000001FF\r\n";

using DigitPair = std::array<char, 2>;

constexpr std::array<DigitPair, 256> makeDigitPairs() {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::array<DigitPair, 256> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i) pairs[i] = {digits[i >> 4], digits[i & 15]};
  return pairs;
}

constexpr std::array<DigitPair, 256> digitPairs = makeDigitPairs();

void addRecord(std::string& text, std::size_t address, RecordType type,
               std::span<const std::uint8_t> data) {
  std::array<char, lineLength> line;
  char* to = line.data();
  unsigned sum = 0;
  const auto put = [&to, &sum](std::uint8_t byte) {
    const DigitPair& pair = digitPairs[byte];
    *to++ = pair[0];
    *to++ = pair[1];
    sum += byte;
  };
  *to++ = ':';
  put(static_cast<std::uint8_t>(data.size()));
  put(static_cast<std::uint8_t>(address >> 8));
  put(static_cast<std::uint8_t>(address));
  put(type);
  for (const std::uint8_t byte : data) put(byte);
  put(static_cast<std::uint8_t>(0 - sum));
  *to++ = '\r';
  *to++ = '\n';
  text.append(line.data(), to);
}

void addBase(std::string& text, RecordType type, std::size_t base) {
  const std::array<std::uint8_t, 2> value = {static_cast<std::uint8_t>(base >> 8),
                                             static_cast<std::uint8_t>(base)};
  addRecord(text, 0, type, value);
}

// Opens the 65536 bytes that begin at `offset`.
void addSegment(std::string& text, std::size_t offset) {
  if (offset < segmentsReach) return addBase(text, segmentRecord, offset >> 4);
  // Readers add both kinds of base: the segment must not count beside a linear one.
  if (offset == segmentsReach) addBase(text, segmentRecord, 0);
  addBase(text, linearRecord, offset >> 16);
}

std::size_t nextRecordBytes(std::size_t left) {
  return left == lengthPassedOver ? 1 : std::min(left, recordBytes);
}

}  // namespace

std::string intelHexText(std::span<const std::uint8_t> source) {
  const std::size_t lines = source.size() / recordBytes + 2 * source.size() / segmentBytes + 5;
  std::string text;
  text.reserve(lines * lineLength);
  ProgressSteps progress(std::max<std::int64_t>(std::ssize(source), 1));
  if (source.empty()) addSegment(text, 0);
  for (std::size_t offset = 0; offset < source.size();) {
    if (offset % segmentBytes == 0) addSegment(text, offset);
    const auto data = source.subspan(offset, nextRecordBytes(source.size() - offset));
    addRecord(text, offset, dataRecord, data);
    offset += data.size();
    progress.reached(static_cast<std::int64_t>(offset));
  }
  text.append(lastLine);
  return text;
}

void writeIntelHex(const std::string& path, std::span<const std::uint8_t> source) {
  const std::string text = intelHexText(source);
  replaceFile(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}
