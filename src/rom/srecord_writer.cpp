#include "rom/srecord_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "rom/hex_digits.h"

namespace {

constexpr std::size_t recordBytes = 32;
constexpr std::size_t lineBound = 2 + 2 * (1 + 4 + recordBytes + 1) + 2;  // characters

struct Width {
  std::uint64_t end;  // past the last address
  std::size_t bytes;
  char data, last;
};
constexpr std::array<Width, 3> widths{
    {{0x10000, 2, '1', '9'}, {0x1000000, 3, '2', '8'}, {0x100000000, 4, '3', '7'}}};

class Text {
 public:
  explicit Text(std::size_t bound) { text_.reserve(bound); }
  void record(char type, std::uint64_t address, std::size_t width,
              std::span<const std::uint8_t> data) {
    std::array<char, lineBound> line;
    char* to = line.data();
    *to++ = 'S';
    *to++ = type;
    const std::size_t count = width + data.size() + 1;
    to = putByte(to, count);
    std::size_t sum = count;
    for (std::size_t i = width; i-- > 0;) {
      to = putByte(to, address >> (8 * i) & 0xFF);
      sum += address >> (8 * i) & 0xFF;
    }
    to = putBytes(to, data);
    to = putByte(to, static_cast<std::uint8_t>(~lowSum(data, sum)));
    *to++ = '\r';
    *to++ = '\n';
    text_.append(line.data(), to);
  }
  std::string take() { return std::move(text_); }

 private:
  std::string text_;
};

}  // namespace

std::string sRecordText(std::span<const std::uint8_t> source, std::uint32_t base) {
  const AddressedBytes whole{base, source};
  return sRecordText({&whole, 1});
}

std::string sRecordText(std::span<const AddressedBytes> parts) {
  std::uint64_t end = 0;
  std::size_t bound = 4;
  for (const AddressedBytes& part : parts) {
    end = std::max(end, part.address + part.bytes.size());
    bound += part.bytes.size() / recordBytes + 1;
  }
  const auto fits = [end](const Width& each) { return end <= each.end; };
  const auto found = std::ranges::find_if(widths, fits);
  const Width& width = found == widths.end() ? widths.back() : *found;
  Text text(bound * lineBound);
  text.record('0', 0, 2, {});
  std::uint64_t records = 0;
  for (const auto& [address, bytes] : parts) {
    for (std::size_t at = 0; at < bytes.size(); at += recordBytes, ++records) {
      text.record(width.data, address + at, width.bytes,
                  bytes.subspan(at, std::min(recordBytes, bytes.size() - at)));
    }
  }
  if (records < 0x10000) {
    text.record('5', records, 2, {});
  } else if (records < 0x1000000) {
    text.record('6', records, 3, {});
  }
  text.record(width.last, 0, width.bytes, {});
  return text.take();
}
