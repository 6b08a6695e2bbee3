// What a write-back stores: the bytes that a cell's or a box's text stands for, and where they go.
// Values of more than one byte are stored high byte first.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "core/map_extent.h"
#include "platform/numbers.h"

// Small enough to be handed over in a register: there is one for each cell of a write-back.
struct StoredBytes {
  std::array<std::uint8_t, 2> bytes{};
  std::uint8_t count = 1;
};

// Bytes of the image that belong together.
struct ByteStretch {
  std::int64_t from = 0;
  std::int64_t to = 0;  // past the last byte
};

// The cells of a map in the order in which they are stored, row by row, counted from 0.
class StoredCells {
 public:
  explicit StoredCells(const MapExtent& extent);
  int top() const { return top_; }
  int left() const { return left_; }
  int rows() const { return rows_; }
  int columns() const { return columns_; }
  std::int64_t count() const { return std::int64_t{rows_} * columns_; }
  int rowOf(std::int64_t index) const { return top_ + static_cast<int>(index / columns_); }
  int columnOf(std::int64_t index) const { return left_ + static_cast<int>(index % columns_); }
  // -1 for a cell that is never stored.
  std::int64_t indexOf(int row, int column) const;
  std::int64_t addressOf(std::int64_t index) const { return address_ + index * cellBytes_; }
  int cellBytes() const { return cellBytes_; }

  // Nothing for a text that the image can't take, and for a cell that no draw has filled.
  std::optional<StoredBytes> bytesOf(std::int64_t index, int row, int column) const {
    if (!drawn(index)) return {};
    const std::string& text = grid_.text(row, column);
    const auto whole = bareDigits_ ? bareNumber(text) : std::nullopt;
    return whole ? byteOf(scaled_ ? *whole / scale_ : *whole) : bytesOfAny(text);
  }
  bool drawn(std::int64_t index) const { return index < drawn_; }
  std::int64_t drawnCount() const { return drawn_; }
  // Calls `visit(index, row, column)` for each cell in storing order, as long as it gives true.
  // Gives the index at which it ended, `count` at the end.
  template <class Visit>
  std::int64_t visit(Visit each) const {
    std::int64_t index = 0;
    const std::int64_t below = std::int64_t{top_} + rows_;  // as many as a file may ask for
    const std::int64_t beside = std::int64_t{left_} + columns_;
    for (int row = top_; row < below; ++row) {
      for (int column = left_; column < beside; ++column, ++index) {
        if (!each(index, row, column)) return index;
      }
    }
    return index;
  }

 private:
  static std::optional<StoredBytes> byteOf(std::int32_t number) {
    if (number < 0 || number > byteLimit) return {};
    return StoredBytes{{static_cast<std::uint8_t>(number), 0}, 1};
  }
  // Of a text that is more than bare digits, or of a word.
  std::optional<StoredBytes> bytesOfAny(const std::string& text) const;

  const Grid& grid_;
  bool words_;
  bool scaled_;
  std::int32_t scale_;
  bool bareDigits_;  // say without real numbers which byte is stored
  std::int32_t drawn_;
  int top_;
  int left_;
  int rows_;
  int columns_;
  int cellBytes_;
  std::int64_t address_;
};

// Where the cells of a map and the bytes of a parameter are stored; empty for an absent entry.
ByteStretch stretchOf(const MapKind& kind);
ByteStretch stretchOf(const ParamKind& kind);

// The bytes of a parameter's box, as many as its entry has; none for a box that never showed the
// image's bytes, which has nothing to say about them. A text that is no number the image can take
// fails.
std::vector<std::uint8_t> storedBytesOf(const ParamKind& kind);
