// Changing single cells of the maps and scales: a double click asks for a value, two assignable
// keys step every selected cell. The image follows at the next write-back.
#pragma once

#include "core/map_kinds.h"

// Asks for the value of the current cell and stores it, limited to what the map's cells hold.
void editCell(const MapKind& kind);

// Steps the selected cells if `key` is `plusKey` or `minusKey`: engine speeds by the step of their
// scale, all others by 1.
void stepSelection(const MapKind& kind, char32_t key);

// Gives all grids of the main window their gestures.
void wireMapGrids();
