// What can be done to many cells of a map, an airflow row or a scale at once: set, changed by a
// percentage, filled between ends or corners. Every result is a number that the image can store,
// the nearest one to the exact value; of two equally near ones that farther from 0. The
// calculations themselves are in rom/cell_arithmetic.
#pragma once

#include <cstdint>
#include <optional>

#include "controls/grid.h"
#include "core/map_kinds.h"
#include "rom/cell_arithmetic.h"

// All of them change the cells of `block` that the image holds, and draw again what follows from
// them; the selection stays.

struct ChosenCells {
  const MapKind& kind;
  GridBlock block;
  std::optional<std::int32_t> below;  // only cells whose number is below it
};

void setCells(const ChosenCells& chosen, double number);
void changeCellsByPercentage(const ChosenCells& chosen, Percentage by, bool atLeastOneUnit);

// Across: each row between its ends; down: each column between its ends; both: all between the four
// corners. The ends, or the corners, stay as they are.
enum class Fill { across, down, both };
// Where a cell stands on its way: by the numbers of the scale, or one step for each cell.
enum class Spacing { byScale, even };
void interpolateCells(const ChosenCells& chosen, Fill fill, Spacing spacing);
// Whether the block has cells between its ends.
bool hasCellsBetween(const GridBlock& block, Fill fill);
// Whether scales tell the places of all its columns or rows: they rise or fall from end to end.
bool scalesTell(const MapKind& kind, const GridBlock& block, Fill fill);
