// What a write-back stores: the bytes that a cell's or a box's text stands for, and where they go.
// Values of more than one byte are stored high byte first.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/map_extent.h"

class Grid;

struct StoredBytes {
  std::array<std::uint8_t, 2> bytes{};
  int count = 1;
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
  std::optional<StoredBytes> bytesOf(std::int64_t index, int row, int column) const;
  bool drawn(std::int64_t index) const { return index < drawn_; }

 private:
  const Grid& grid_;
  bool words_;
  bool scaled_;
  std::int32_t scale_;
  std::int32_t drawn_;
  int top_;
  int left_;
  int rows_;
  int columns_;
  int cellBytes_;
  std::int64_t address_;
};

// The bytes of a parameter's box, as many as its entry has; none for a box that never showed the
// image's bytes, which has nothing to say about them. A text that is no number the image can take
// fails.
std::vector<std::uint8_t> storedBytesOf(const ParamKind& kind);
