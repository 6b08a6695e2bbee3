// What a cell's number becomes by a percentage, and between others: plain calculations, each with
// the nearest storable number as its result.
#pragma once

#include <cstdint>

#include "rom/storable_numbers.h"

// Thousandths of a percent; 2500 is 2.5 %.
using Percentage = std::int32_t;
constexpr Percentage wholePercent = 1000;
constexpr Percentage leastPercentage = -100 * wholePercent;
constexpr Percentage mostPercentage = 1000 * wholePercent;

// `number` grown or shrunk by a percentage. With `atLeastOneUnit` a change that rounding would
// swallow becomes one unit, as far as the numbers go. 0 stays 0.
std::int32_t changedByPercentage(std::int32_t number, Percentage by, bool atLeastOneUnit,
                                 const StorableNumbers& storable);

// The numbers in the corners of a block.
struct Corners {
  std::int32_t topLeft = 0;
  std::int32_t topRight = 0;
  std::int32_t bottomLeft = 0;
  std::int32_t bottomRight = 0;
};
// A place on the way from one end to the other: 2 of 5.
struct Way {
  std::int64_t part = 0;
  std::int64_t whole = 1;  // never 0
};
// The number at a place between the corners, by straight lines.
std::int32_t betweenCorners(const Corners& corners, const Way& right, const Way& down,
                            const StorableNumbers& storable);
