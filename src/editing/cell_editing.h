// Changing single cells of the maps and scales: a double click asks for a value, two assignable
// keys step every selected cell. The image follows at the next write-back.
#pragma once

#include "core/map_kinds.h"

class MenuItem;

// Asks for the value of the current cell and stores it, limited to what the map's cells hold.
void editCell(const MapKind& kind);

// Steps the selected cells if `key` is `plusKey` or `minusKey`: engine speeds by the step of their
// scale, all others by 1, each of them `times` over.
void stepSelection(const MapKind& kind, char32_t key, int times = 1);
// The menu commands: ten steps in the grid with the focus, else in that of the tab. The keys do the
// same together with Ctrl.
void stepCoarselyUp();
void stepCoarselyDown();
// The menu rows tell the keys.
void followCoarseKeys(MenuItem& row);

// Gives all grids of the main window their gestures.
void wireMapGrids();
