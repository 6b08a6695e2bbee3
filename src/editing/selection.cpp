#include "editing/selection.h"

bool isDataCell(const Grid& grid, int row, int column) {
  return row >= grid.fixedRows() && column >= grid.fixedColumns();
}

void walkSelection(Grid& grid, const std::function<void(int row, int column)>& step) {
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
