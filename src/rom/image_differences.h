// How two images of one car model differ: by maps, scales and parameters, then by stretches of
// bytes outside the address map. Images of different length are compared as far as both go.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "rom/map_values.h"

struct ImageDifference {
  std::optional<MapId> map = {};      // of a map or a scale
  std::optional<ParamId> param = {};  // of a parameter; neither: bytes outside the address map
  std::int64_t from = 0;              // the first byte that differs
  std::int64_t to = 0;                // the last one
  std::int64_t count = 0;             // cells or, outside, bytes that differ; 1 for a parameter
  std::int64_t up = 0;                // the largest change upwards, in the numbers shown; 0: none
  std::int64_t down = 0;              // the largest change downwards, below 0; 0: none
};

// Two images, and what their bytes mean.
struct ComparedImages {
  const AddressMap& map;
  ImageView former;
  ImageView now;
};

constexpr std::int64_t allCells = std::numeric_limits<std::int64_t>::max();

// Of the map's first `cells` cells. Fails as shownNumber does.
std::optional<ImageDifference> mapDifference(const ComparedImages& images, MapId id,
                                             std::int64_t cells = allCells);
std::optional<ImageDifference> paramDifference(const ComparedImages& images, ParamId id);
// Stretches with fewer than 16 equal bytes between them are told as one, and behind the 500th all
// that no entry of the address map lies between.
std::vector<ImageDifference> differencesOutside(const ComparedImages& images);

// All of these, in the order of MapId, then ParamId.
std::vector<ImageDifference> imageDifferences(const ComparedImages& images);

// How many bytes are not the same; those that only one of the images has count too.
std::int64_t differentBytes(ImageView one, ImageView other);

// True where the bytes of one cell or parameter are held by both and differ.
bool differAt(const ComparedImages& images, std::int64_t address, std::int64_t bytes);

// Calls `tell(cell, address)` for each of the map's first `cells` cells that differs.
template <class Tell>
void forEachDifferentCell(const ComparedImages& images, MapId id, std::int64_t cells, Tell tell) {
  const MapShape shape = shapeOf(images.map, id);
  const std::int64_t count = std::min(cells, shape.count());
  for (std::int64_t cell = 0; cell < count; ++cell) {
    const std::int64_t address = shape.addressOf(cell);
    if (differAt(images, address, shape.cellBytes)) tell(cell, address);
  }
}
