#include "rom/map_values.h"

#include <cmath>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "rom/map_traits.h"

namespace {

std::string storedDigits(const ParamEntry& entry, ImageView image) {
  std::string digits;
  for (int i = 0; i < entry.bytes; ++i) {
    digits += hexDigits(byteOf(image, std::int64_t{entry.address} + i), 1);
  }
  return digits;
}

// The big-endian number; eight digits with the top bit set make it negative.
std::int32_t storedNumber(const ParamEntry& entry, ImageView image) {
  std::uint32_t number = 0;
  for (int i = 0; i < entry.bytes; ++i) {
    number =
        number << 8 | static_cast<std::uint32_t>(byteOf(image, std::int64_t{entry.address} + i));
  }
  return static_cast<std::int32_t>(number);
}

}  // namespace

MapShape shapeOf(const AddressMap& map, MapId id) {
  const MapEntry& entry = map.map(id);
  const MapTraits& traits = traitsOf(id);
  if (!entry.present()) return {};
  MapShape shape{entry.rows, entry.columns, traits.cellBytes(), entry.address};
  if (traits.family == MapFamily::rpmScale) {
    shape.rows = entry.columns;
    shape.columns = 1;
  } else if (traits.family == MapFamily::airflow) {
    shape.columns = entry.bytes / 2;
  }
  if (shape.rows <= 0 || shape.columns <= 0) shape.rows = shape.columns = 0;
  return shape;
}

int storedIn(ImageView image, int cellBytes, std::int64_t address) {
  const int high = byteOf(image, address);
  return cellBytes == 1 ? high : high * 256 + byteOf(image, address + 1);
}

std::int32_t shownNumber(const AddressMap& map, MapId id, int stored) {
  const std::int64_t scale = traitsOf(id).scaled() ? map.map(id).scale : 1;
  const std::int64_t shown = stored * scale;
  if (shown != static_cast<std::int32_t>(shown)) throw Failure(overflow);
  return static_cast<std::int32_t>(shown);
}

std::optional<std::string> paramText(const AddressMap& map, ParamId id, ImageView image) {
  const ParamEntry& entry = map.param(id);
  if (!entry.present()) return {};
  if (!traitsOf(id).scaled()) return storedDigits(entry, image);
  byteOf(image, std::int64_t{entry.address} + entry.bytes - 1);
  if (entry.bytes > maximumScaledBytes) return {};
  return plainNumber(std::floor(double{entry.scale} * storedNumber(entry, image)));
}
