#include "rom/storable_numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/numbers.h"

std::int32_t StorableNumbers::nearestTo(double dividend, double divisor) const {
  const double units = std::round(dividend / (divisor * unit));
  return static_cast<std::int32_t>(std::clamp<double>(units * unit, least, most));
}

StorableNumbers storableNumbers(const MapTraits& map, const MapEntry& entry) {
  if (!map.scaled()) return {0, map.cellBytes() == 1 ? byteLimit : wordLimit, 1};
  const std::int64_t scale = entry.scale;
  const std::int32_t end = clampTo32Bits(byteLimit * scale);
  return {std::min(end, 0), std::max(end, 0), std::max(clampTo32Bits(std::abs(scale)), 1)};
}
