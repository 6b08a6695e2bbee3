// The walk over a grid's selection that all cell commands share.
#pragma once

#include <functional>

#include "controls/grid.h"

// True for a cell that is no header.
bool isDataCell(const Grid& grid, int row, int column);

// Calls `step` once for each selected data cell: column by column from the current cell towards the
// opposite corner, down or up each. Repainting is held off meanwhile; the selection, direction
// included, and repainting are put back on every path.
void walkSelection(Grid& grid, const std::function<void(int row, int column)>& step);
