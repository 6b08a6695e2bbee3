#include "rom/intel_hex_reader.h"

#include <algorithm>
#include <cstddef>

#include "platform/failure.h"
#include "rom/hex_digits.h"
#include "rom/progress_steps.h"

namespace {

constexpr char carriageReturn = '\r';
constexpr std::int64_t barFullAt = 65535;
constexpr std::uint8_t filler = 0xFF;

// Columns of a record, counted from 0, and widths in characters.
constexpr std::size_t countColumn = 1;
constexpr std::size_t addressColumn = 3;
constexpr std::size_t dataColumn = 9;
constexpr std::size_t addressDigits = 4;

std::string_view fieldOf(std::string_view line, std::size_t column, std::size_t digits) {
  return column < line.size() ? line.substr(column, digits) : std::string_view{};
}

struct Decoded {
  std::vector<std::uint8_t> bytes;
  std::int64_t capacity;
  std::int64_t position = 0;  // less than 0 after a first address of 8000 or above
};

// Appends `count` bytes of `value` and gives the first of them.
std::uint8_t* append(Decoded& decoded, std::int32_t count, std::uint8_t value) {
  if (decoded.position < 0 || count > decoded.capacity - decoded.position) {
    throw Failure(badSubscript);
  }
  const auto first = decoded.bytes.size();
  const auto size = first + static_cast<std::size_t>(count);
  if (size > decoded.bytes.capacity()) {
    decoded.bytes.reserve(static_cast<std::size_t>(decoded.capacity));
  }
  decoded.bytes.resize(size, value);
  decoded.position += count;
  return decoded.bytes.data() + first;
}

void decodeData(std::string_view line, std::size_t count, std::uint8_t* to) {
  const std::string_view digits = fieldOf(line, dataColumn, count * byteDigits);
  if (digits.size() == count * byteDigits && decodePairs(digits, to)) return;
  for (std::size_t i = 0; i < count; ++i) {
    to[i] =
        static_cast<std::uint8_t>(hexField(fieldOf(line, dataColumn + i * byteDigits, byteDigits)));
  }
}

void startAt(Decoded& decoded, std::int32_t address) {
  if (address > 0) append(decoded, address, filler);
  if (address < 0) decoded.position = address;
}

void decodeRecord(std::string_view line, Decoded& decoded) {
  if (decoded.position == 0) {
    startAt(decoded, hexField(fieldOf(line, addressColumn, addressDigits)));
  }
  const std::int32_t count = hexField(fieldOf(line, countColumn, byteDigits));
  if (count == 0) return;
  decodeData(line, static_cast<std::size_t>(count), append(decoded, count, 0));
}

bool isPassedOver(std::string_view line) {
  return line.starts_with(":00") || line.starts_with(":02");
}

}  // namespace

std::int32_t hexField(std::string_view text) {
  std::uint32_t value = 0;
  for (const char character : text) {
    const std::uint32_t digit = digitValue(character);
    if (digit == noDigit) break;
    value = value << 4 | digit;
  }
  return static_cast<std::int16_t>(value);
}

std::vector<std::uint8_t> readIntelHexOrNothing(std::span<const std::uint8_t> fileBytes,
                                                std::int64_t capacity, std::int64_t maximumLines) {
  if (fileBytes.empty()) throw Failure(badSubscript);
  const std::string_view text(reinterpret_cast<const char*>(fileBytes.data()), fileBytes.size());
  Decoded decoded{{}, capacity};
  decoded.bytes.reserve(std::min(static_cast<std::size_t>(capacity), text.size() / byteDigits));
  ProgressSteps progress(barFullAt);
  std::int64_t lines = 0;
  std::size_t start = 0;
  for (auto end = text.find(carriageReturn); end != std::string_view::npos;
       end = text.find(carriageReturn, start)) {
    if (++lines > maximumLines) throw Failure(badSubscript);
    const std::string_view line = text.substr(start, end - start);
    start = end + 2;
    if (isPassedOver(line)) continue;
    decodeRecord(line, decoded);
    progress.reached(decoded.position);
  }
  return std::move(decoded.bytes);
}

std::vector<std::uint8_t> readIntelHex(std::span<const std::uint8_t> fileBytes,
                                       std::int64_t capacity) {
  auto bytes = readIntelHexOrNothing(fileBytes, capacity);
  if (bytes.empty()) throw Failure(badSubscript);
  return bytes;
}
