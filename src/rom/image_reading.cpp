#include "rom/image_reading.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "rom/hex_digits.h"

namespace {

constexpr std::uint64_t largestSpan = 0x40000000;
constexpr std::uint8_t filler = 0xFF;
constexpr std::uint32_t offsetsReach = 0x8000;

struct Piece {
  std::uint64_t address;
  std::size_t start;  // in the bytes of all records
  std::size_t size;
};

// The bytes of a file's records in its own order.
struct Pieces {
  std::vector<std::uint8_t> bytes;
  std::vector<Piece> pieces;
  bool hasEnd = false;

  void add(std::uint64_t address, std::span<const std::uint8_t> data) {
    if (data.empty()) return;
    const bool goesOn = !pieces.empty() && pieces.back().address + pieces.back().size == address;
    if (goesOn) {
      pieces.back().size += data.size();
    } else {
      pieces.push_back({address, bytes.size(), data.size()});
    }
    bytes.insert(bytes.end(), data.begin(), data.end());
  }
};

constexpr std::size_t longestRecord = 260;  // bytes that one record's count can ask for, and more

// One line's digits as bytes.
class Record {
 public:
  Record(std::string_view digits, std::size_t line) : line_(line) {
    if (digits.size() % byteDigits != 0) fail("an odd number of digits");
    size_ = digits.size() / byteDigits;
    if (size_ > bytes_.size()) fail("more bytes than a record can have");
    if (!decodePairs(digits, bytes_.data())) fail("a character that is no hexadecimal digit");
    sum_ = lowSum(part(0, size_));
  }

  std::size_t size() const { return size_; }
  std::uint8_t operator[](std::size_t i) const { return bytes_[i]; }
  std::uint8_t sum() const { return sum_; }
  std::span<const std::uint8_t> part(std::size_t from, std::size_t count) const {
    return std::span(bytes_).subspan(from, count);
  }
  // High byte first.
  std::uint32_t number(std::size_t from, std::size_t count) const {
    std::uint32_t number = 0;
    for (const std::uint8_t byte : part(from, count)) number = number << 8 | byte;
    return number;
  }
  [[noreturn]] void fail(const char* what) const { throw ImageFault(line_, what); }

 private:
  std::array<std::uint8_t, longestRecord> bytes_;
  std::size_t size_ = 0;
  std::size_t line_;
  std::uint8_t sum_ = 0;
};

// Hands out the lines of a text, without blanks around them; CR LF, LF and CR end one.
class Lines {
 public:
  explicit Lines(std::string_view text)
      : text_(text), feed_(text.find('\n')), carriageReturn_(text.find('\r')) {}
  std::optional<std::string_view> next() {
    if (at_ == text_.size()) return {};
    ++number_;
    const std::size_t end = endOfLine();
    std::string_view line = text_.substr(at_, end - at_);
    const bool both = text_.substr(end).starts_with("\r\n");
    at_ = std::min(end + (both ? 2 : 1), text_.size());
    while (!line.empty() && isBlank(line.back())) line.remove_suffix(1);
    while (!line.empty() && isBlank(line.front())) line.remove_prefix(1);
    return line;
  }
  std::size_t number() const { return number_; }

 private:
  // What old programs end texts with counts as one, too.
  static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\0' || c == '\x1A'; }

  // Each kind of end is looked for once: a text may have one of them alone.
  std::size_t endOfLine() {
    if (feed_ < at_) feed_ = text_.find('\n', at_);
    if (carriageReturn_ < at_) carriageReturn_ = text_.find('\r', at_);
    return std::min({feed_, carriageReturn_, text_.size()});
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t feed_;            // the next one, or none
  std::size_t carriageReturn_;  // the same
  std::size_t number_ = 0;
};

class IntelHexRecords {
 public:
  // False behind the last record.
  bool take(std::string_view line, std::size_t number, Pieces& all) {
    if (line.front() != ':') throw ImageFault(number, "a line that does not begin with \":\"");
    const Record record(line.substr(1), number);
    constexpr std::size_t head = 4, checksum = 1;
    if (record.size() < head + checksum) record.fail("a record that is too short");
    const std::size_t count = record[0];
    if (record.size() != head + count + checksum) {
      record.fail("a byte count that is not the record's");
    }
    if (record.sum() != 0) record.fail("a wrong checksum");
    const auto data = record.part(head, count);
    switch (record[3]) {
      case 0:
        all.add(base_ + record.number(1, 2), data);
        return true;
      case 1:
        all.hasEnd = true;
        return false;
      case 2:
      case 4:
        if (count != 2) record.fail("an address record of another length than 2");
        base_ = std::uint64_t{record.number(head, 2)} << (record[3] == 2 ? 4 : 16);
        return true;
      case 3:
      case 5:
        return true;  // where a program starts
      default:
        record.fail("an unknown record type");
    }
  }

 private:
  std::uint64_t base_ = 0;
};

class SRecords {
 public:
  bool take(std::string_view line, std::size_t number, Pieces& all) {
    if (line.size() < 2 || (line.front() != 'S' && line.front() != 's')) {
      throw ImageFault(number, "a line that does not begin with \"S\"");
    }
    const int type = line[1] - '0';
    const Record record(line.substr(2), number);
    if (type < 0 || type > 9 || type == 4) record.fail("an unknown record type");
    const bool isData = type >= 1 && type <= 3;
    if (isData) ++dataRecords_;
    // Bytes of the address by type.
    constexpr std::array<std::size_t, 10> widths{2, 2, 3, 4, 0, 2, 3, 4, 3, 2};
    const std::size_t width = widths[static_cast<std::size_t>(type)];
    constexpr std::size_t head = 1, checksum = 1;
    if (record.size() < head + width + checksum) record.fail("a record that is too short");
    if (record[0] != record.size() - head) record.fail("a byte count that is not the record's");
    if (record.sum() != filler) record.fail("a wrong checksum");
    const std::uint32_t address = record.number(head, width);
    if (isData) {
      all.add(address, record.part(head + width, record.size() - head - width - checksum));
    } else if (type == 5 || type == 6) {
      const std::uint32_t counted = type == 5 ? dataRecords_ & 0xFFFF : dataRecords_ & 0xFFFFFF;
      if (address != counted) record.fail("a number of records that is not the file's");
    } else if (type >= 7) {
      all.hasEnd = true;
      return false;
    }
    return true;
  }

 private:
  std::uint32_t dataRecords_ = 0;
};

// `onFault` is told of a line that can't be taken, and whether to go on behind it.
template <class Records, class OnFault>
Pieces readRecords(std::string_view text, OnFault onFault) {
  Records records;
  Pieces all;
  all.bytes.reserve(text.size() / 2);
  Lines lines(text);
  while (const auto line = lines.next()) {
    if (line->empty()) continue;
    try {
      if (!records.take(*line, lines.number(), all)) break;
    } catch (const ImageFault& fault) {
      if (!onFault(fault)) break;
    }
  }
  return all;
}

template <class OnFault>
Pieces piecesOf(ImageFileForm form, std::string_view text, OnFault onFault) {
  return form == ImageFileForm::intelHex ? readRecords<IntelHexRecords>(text, onFault)
                                         : readRecords<SRecords>(text, onFault);
}

// The bytes in a row, those of later records over those of earlier ones.
void layOut(Pieces&& all, ImageContent& content) {
  if (all.pieces.empty()) throw ImageFault(0, "no byte of data");
  std::vector<AddressRange> ranges;
  ranges.reserve(all.pieces.size());
  for (const Piece& each : all.pieces) ranges.push_back({each.address, each.address + each.size});
  std::ranges::sort(ranges, {}, &AddressRange::from);
  std::uint64_t end = ranges.front().from;
  const std::uint64_t first = end;
  for (const AddressRange& each : ranges) {
    if (each.from > end) content.gaps.push_back({end, each.from});
    if (each.from < end) content.overlapping += std::min(end, each.to) - each.from;
    end = std::max(end, each.to);
  }
  if (end - first > largestSpan) {
    throw ImageFault(0, "more than 1 GiB between the first and the last byte");
  }
  content.base = static_cast<std::uint32_t>(first);
  if (all.pieces.size() == 1) {
    content.bytes = std::move(all.bytes);
    return;
  }
  content.bytes.assign(static_cast<std::size_t>(end - first), filler);
  for (const Piece& each : all.pieces) {
    const auto from = all.bytes.begin() + static_cast<std::ptrdiff_t>(each.start);
    std::copy(from, from + static_cast<std::ptrdiff_t>(each.size),
              content.bytes.begin() + static_cast<std::ptrdiff_t>(each.address - first));
  }
}

std::string_view asText(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool isText(std::string_view text) {
  constexpr std::size_t looked = 4096;
  return std::ranges::none_of(text.substr(0, looked), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x7F || (byte < 0x20 && c != '\t' && c != '\r' && c != '\n' && c != '\x1A');
  });
}

ImageFileForm formOfText(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos || !isText(text)) return ImageFileForm::raw;
  const std::string_view head = text.substr(first, 3);
  if (head.size() < 3 || digitValue(head[2]) == noDigit || digitValue(head[1]) == noDigit)
    return ImageFileForm::raw;
  if (head[0] == ':') return ImageFileForm::intelHex;
  const bool isS = (head[0] == 'S' || head[0] == 's') && head[1] <= '9';
  return isS ? ImageFileForm::sRecords : ImageFileForm::raw;
}

}  // namespace

ImageFileForm imageFileForm(std::span<const std::uint8_t> head) { return formOfText(asText(head)); }

ImageContent readImageContent(std::span<const std::uint8_t> fileBytes) {
  const std::string_view text = asText(fileBytes);
  ImageContent content;
  content.form = imageFileForm(fileBytes);
  if (content.form == ImageFileForm::raw) {
    if (fileBytes.empty()) throw ImageFault(0, "an empty file");
    content.bytes.assign(fileBytes.begin(), fileBytes.end());
    return content;
  }
  Pieces all = piecesOf(content.form, text,
                        [](const ImageFault& fault) -> bool { throw ImageFault(fault); });
  content.hasEnd = all.hasEnd;
  layOut(std::move(all), content);
  return content;
}

ImageContent readImageContent(std::vector<std::uint8_t>&& fileBytes) {
  const std::span<const std::uint8_t> bytes(fileBytes);
  if (bytes.empty() || imageFileForm(bytes) != ImageFileForm::raw) return readImageContent(bytes);
  ImageContent content;
  content.bytes = std::move(fileBytes);
  return content;
}

std::vector<ImageFault> imageFaults(std::span<const std::uint8_t> fileBytes, std::size_t most) {
  std::vector<ImageFault> faults;
  try {
    readImageContent(fileBytes);
  } catch (const ImageFault& first) {
    faults.push_back(first);
    if (first.line() == 0) return faults;
    faults.clear();
    piecesOf(imageFileForm(fileBytes), asText(fileBytes), [&](const ImageFault& fault) {
      faults.push_back(fault);
      return faults.size() < most;
    });
  }
  return faults;
}

std::optional<ImageFault> faultOfBase(const ImageContent& content, std::uint32_t base) {
  if (content.base < base) return ImageFault(0, "bytes before the base address");
  if (content.base - base + content.bytes.size() > largestSpan) {
    return ImageFault(0, "more than 1 GiB from the base address on");
  }
  return std::nullopt;
}

std::vector<std::uint8_t> bytesFrom(const ImageContent& content, std::uint32_t base) {
  if (const auto fault = faultOfBase(content, base)) throw ImageFault(*fault);
  std::vector<std::uint8_t> bytes(content.base - base, filler);
  bytes.insert(bytes.end(), content.bytes.begin(), content.bytes.end());
  return bytes;
}

std::vector<std::uint8_t> bytesFrom(ImageContent&& content, std::uint32_t base) {
  if (content.base == base) return std::move(content.bytes);
  return bytesFrom(static_cast<const ImageContent&>(content), base);
}

std::uint32_t usualBase(const ImageContent& content) {
  return content.base < offsetsReach ? 0 : content.base;
}
