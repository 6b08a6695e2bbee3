// Changing cells of the map grids: a double click asks for a value, two assignable keys step every
// selected cell. Only cell texts and colours change; the image follows at the next write-back.
#pragma once

#include "controls/grid.h"

// Asks for the value of the current cell and stores it, limited to what the grid's cells hold.
void editCell(Grid& grid);

// Steps the selected cells if `key` is `plusKey` or `minusKey`.
void stepSelection(Grid& grid, char32_t key);

// Gives all map grids of the main window their gestures.
void wireMapGrids();
