// The walk over a grid's selection that all cell commands share.
#pragma once

#include "controls/grid.h"

// True for a cell that is no header.
inline bool isDataCell(const Grid& grid, int row, int column) {
  return row >= grid.fixedRows() && column >= grid.fixedColumns();
}

// Calls `step(row, column)` once for each selected data cell: column by column from the current
// cell towards the opposite corner, down or up each. Repainting is held off meanwhile; the
// selection, direction included, and repainting are put back on every path.
template <class Step>
void walkSelection(Grid& grid, Step step) {
  const GridPause pause(grid);
  const GridSelection around = grid.selection();
  const int columnStep = around.column > around.columnSel ? -1 : 1;
  const int rowStep = around.row > around.rowSel ? -1 : 1;
  for (int c = around.column; c != around.columnSel + columnStep; c += columnStep) {
    for (int r = around.row; r != around.rowSel + rowStep; r += rowStep) {
      if (isDataCell(grid, r, c)) step(r, c);
    }
  }
}
