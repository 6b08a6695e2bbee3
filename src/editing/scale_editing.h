// Changing the load and engine-speed scales beside the two high-octane maps: the gestures of the
// map grids with other limits and steps, without colours; a changed load refreshes the boost row.
#pragma once

// Gives the four scale grids their gestures.
void wireScaleGrids();
