// What the bytes of an image show as under an address map: cells of maps and scales, and single
// parameters. Values of more than one byte stand high byte first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/failure.h"
#include "rom/map_entries.h"

using ImageView = std::span<const std::uint8_t>;

inline bool holdsBytes(ImageView image, std::int64_t offset, std::int64_t count) {
  return offset >= 0 && offset + count <= std::ssize(image);
}

// A single byte; an offset outside fails with badSubscript.
inline int byteOf(ImageView image, std::int64_t offset) {
  if (offset < 0 || offset >= std::ssize(image)) throw Failure(badSubscript);
  return image[static_cast<std::size_t>(offset)];
}

// The cells of a map as they lie in an image, row by row, both counted from 0. A speed scale is one
// column; an airflow map has as many words as its bytes hold.
struct MapShape {
  int rows = 0;
  int columns = 0;
  int cellBytes = 1;
  std::int64_t address = 0;

  std::int64_t count() const { return std::int64_t{rows} * columns; }
  std::int64_t addressOf(std::int64_t cell) const { return address + cell * cellBytes; }
  std::int64_t end() const { return addressOf(count()); }
};
// Without cells for an absent entry.
MapShape shapeOf(const AddressMap& map, MapId id);

// The byte or word at `address`. Fails with badSubscript outside the image.
int storedIn(ImageView image, int cellBytes, std::int64_t address);

// What stands for a stored number of the map: the number, or its product with the file's scale.
// Fails with overflow where that is no 32-bit number.
std::int32_t shownNumber(const AddressMap& map, MapId id, int stored);

// Up to how many bytes a scaled parameter can be shown: 32 bits.
constexpr int maximumScaledBytes = 4;

// The bytes of a parameter in hexadecimal, or its scaled number; nothing for an absent one and for
// a number of more than 32 bits. Fails with badSubscript outside the image.
std::optional<std::string> paramText(const AddressMap& map, ParamId id, ImageView image);
