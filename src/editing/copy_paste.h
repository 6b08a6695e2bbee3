// Copy and paste: a rectangular block of cells goes from the grid of the current tab to the
// clipboard and from there into the grid of the current tab. The clipboard holds plain text: the
// cells' texts in reading order, then the block's last column and last row counted from 0, all
// separated by commas.
#pragma once

#include "controls/grid.h"
#include "core/map_kinds.h"

// The menu commands.
void CPY();
void PST();

// The selection of `grid` into the copy buffer and onto the clipboard.
void copyBlock(Grid& grid);

// The clipboard's block over the selection of a map's grid. A clipboard without text, or whose last
// two fields are no numbers, changes nothing. A cell for which the text has no field stays as it
// is.
void pasteBlock(const MapKind& kind);
