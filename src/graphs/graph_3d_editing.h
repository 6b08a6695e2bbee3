// Editing on the surface of the 3D graph: the canvas's keys, the read-outs, the way of the edits
// into the map's grid, and how the window closes. The image is never touched here.
#pragma once

#include <cstdint>

#include "core/map_kinds.h"

// The keys of the canvas. A held key moves or changes without a redraw; that comes at its release.
void graphKeyDown(int keyCode);
void graphKey(char32_t key);
// The same with Ctrl: ten steps.
void graphControlKey(char32_t key);
void graphKeyUp(int keyCode);

// The cursor goes to the cell whose point is nearest.
void graphClick(int x, int y);

// Writes the heights into the map's cells with their colours, values limited to 0 to 255. A
// failure is logged; cells written so far stay.
void writeGraphToGrid(const MapKind& kind, std::int32_t columns, std::int32_t rows);
// The save before a redraw that reads the grid again: grid, mask, threshold, magnification and the
// settings file. Runs before a control changes, so that its old state counts.
void saveGraphEdits();

// Writes the edits back and closes the window.
void okGraph3D();

// A small red square at the cursor.
void DRAW_PUT();
