// What can be done to many cells of a map, an airflow row or a scale at once: set, changed by a
// percentage, filled between ends or corners. Every result is a number that the image can store,
// the nearest one to the exact value; of two equally near ones that farther from 0.
#pragma once

#include <cstdint>
#include <optional>

#include "controls/grid.h"
#include "core/map_kinds.h"
#include "core/storable_numbers.h"

// The plain calculations.

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

// The commands. They change the cells of `block` that the image holds, and draw again what follows
// from them; the selection stays.

struct ChosenCells {
  const MapKind& kind;
  GridBlock block;
  std::optional<std::int32_t> below;  // only cells whose number is below it
};

void setCells(const ChosenCells& cells, double number);
void changeCellsByPercentage(const ChosenCells& cells, Percentage by, bool atLeastOneUnit);

// Across: each row between its ends; down: each column between its ends; both: all between the four
// corners. The ends, or the corners, stay as they are.
enum class Fill { across, down, both };
// Where a cell stands on its way: by the numbers of the scale, or one step for each cell.
enum class Spacing { byScale, even };
void interpolateCells(const ChosenCells& cells, Fill fill, Spacing spacing);
// Whether the block has cells between its ends.
bool hasCellsBetween(const GridBlock& block, Fill fill);
// Whether scales tell the places of all its columns or rows: they rise or fall from end to end.
bool scalesTell(const MapKind& kind, const GridBlock& block, Fill fill);
