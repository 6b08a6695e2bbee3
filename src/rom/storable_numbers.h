// The numbers that a map's cells can show and the image can store without loss: multiples of a unit
// between two ends. A scaled map's unit is the file's scale.
#pragma once

#include <cstdint>

#include "rom/map_traits.h"

struct StorableNumbers {
  std::int32_t least = 0;
  std::int32_t most = byteLimit;
  std::int32_t unit = 1;

  // The storable number next to the quotient; of two that are equally near the one farther from 0.
  // Exact as long as both stay below 2^53; `divisor` is above 0.
  std::int32_t nearestTo(double dividend, double divisor = 1) const;
  bool isEnd(std::int32_t number) const { return number == least || number == most; }
};

StorableNumbers storableNumbers(const MapTraits& map, const MapEntry& entry);
