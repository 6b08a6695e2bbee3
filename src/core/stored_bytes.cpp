#include "core/stored_bytes.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "controls/controls.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/utf8.h"

namespace {

// The whole part of `number` / `scale`, rounded down.
std::int32_t unscaled(double number, double scale) {
  if (scale == 0) throw Failure(divisionByZero);
  return roundToLong(std::floor(number / scale));
}

std::uint8_t digitPair(std::string_view digits, std::size_t pair) {
  const std::size_t start = 2 * pair;
  if (start >= digits.size()) return 0;
  return static_cast<std::uint8_t>(hexPrefix(digits.substr(start, 2)));
}

StoredBytes wordOf(std::int32_t value) {
  const std::string digits = hexDigits(value, 2);
  return {{digitPair(digits, 0), digitPair(digits, 1)}, 2};
}

// One byte for each character, so that pairs count characters.
std::string oneBytePerCharacter(const std::string& text) {
  std::string bytes;
  for (const char32_t character : utf32(text)) {
    bytes.push_back(character < 0x80 ? static_cast<char>(character) : '?');
  }
  return bytes;
}

std::string digitsOf(const ParamKind& kind, const ParamEntry& entry) {
  const std::string& text = (form1().*kind.box).text();
  if (!kind.scaled()) return oneBytePerCharacter(text);
  const std::int32_t value = unscaled(parseNumber(text), entry.scale);
  return hexDigits(value, entry.bytes);
}

int columnsStored(const MapExtent& extent) {
  if (extent.kind.family == MapFamily::rpmScale) return 1;
  return extent.kind.family == MapFamily::airflow ? extent.bytes / 2 : extent.columns;
}

// Rows without cells are none, so that a file can't ask for billions of empty ones.
int rowsStored(const MapExtent& extent, int columns) {
  const int rows = extent.kind.family == MapFamily::rpmScale ? extent.columns : extent.rows;
  return columns > 0 && rows > 0 ? rows : 0;
}

}  // namespace

StoredCells::StoredCells(const MapExtent& extent)
    : grid_(gridOf(extent.kind)),
      words_(extent.kind.family == MapFamily::airflow),
      scaled_(extent.kind.scaled()),
      scale_(entryOf(extent.kind).scale),
      bareDigits_(!words_ && (!scaled_ || scale_ > 0)),
      drawn_(editorState.cellsDrawn[static_cast<std::size_t>(extent.kind.id)]),
      top_(grid_.fixedRows()),
      left_(grid_.fixedColumns()),
      columns_(columnsStored(extent)),
      cellBytes_(extent.kind.cellBytes()),
      address_(extent.address) {
  rows_ = rowsStored(extent, columns_);
}

std::int64_t StoredCells::indexOf(int row, int column) const {
  const int line = row - top_;
  const int place = column - left_;
  if (line < 0 || line >= rows_ || place < 0 || place >= columns_) return -1;
  return std::int64_t{line} * columns_ + place;
}

std::optional<StoredBytes> StoredCells::bytesOfAny(const std::string& text) const {
  try {
    const double number = parseNumber(text);
    if (words_) return wordOf(roundToLong(number));
    return byteOf(scaled_ ? unscaled(number, scale_) : roundToLong(number));
  } catch (const Failure&) {
    return {};
  }
}

ByteStretch stretchOf(const MapKind& kind) {
  if (!entryOf(kind).present()) return {};
  const StoredCells cells(extentOf(kind));
  return {cells.addressOf(0), cells.addressOf(cells.count())};
}

ByteStretch stretchOf(const ParamKind& kind) {
  const ParamEntry& entry = editorState.addressMap.param(kind.id);
  if (!entry.present()) return {};
  return {entry.address, std::int64_t{entry.address} + entry.bytes};
}

std::vector<std::uint8_t> storedBytesOf(const ParamKind& kind) {
  const ParamEntry& entry = editorState.addressMap.param(kind.id);
  if (!entry.present() || !editorState.paramShown[static_cast<std::size_t>(kind.id)]) return {};
  const std::string digits = digitsOf(kind, entry);
  std::vector<std::uint8_t> bytes;
  bytes.reserve(static_cast<std::size_t>(entry.bytes));
  for (int i = 0; i < entry.bytes; ++i) {
    bytes.push_back(digitPair(digits, static_cast<std::size_t>(i)));
  }
  return bytes;
}
