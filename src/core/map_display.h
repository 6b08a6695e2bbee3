// Drawing maps from the image into their grids: headers, cell texts, colours; the common redraw,
// the grid layout, the reset to the empty state and the progress bar.
#pragma once

#include <cstdint>

#include "controls/colour.h"
#include "core/map_entries.h"

// Draws one map; all numbers come from its MapEntry. `bytes` is the airflow map's length. A failure
// shows a box and leaves the grid hidden.
void map_draw(int columns, int rows, int address, int bytes, int mapId);
// The same with the entry's own numbers.
void drawMap(MapId mapId);
// Draws all present maps in MapId order.
void redrawAllMaps();

// Low values red, high values blue: value times `gridColorRate`, 0 to 255.
Colour cellColour(std::int64_t value);
// The colour of an airflow word: value / 256 rounded down, 0 to 255.
Colour airflowCellColour(std::int64_t value);
// The colour of a shade, limited to 0 to 255.
Colour shadeColour(std::int64_t shade);

// Column widths and row heights of all grids.
void setGridLayout();
// The state before a load: all grids empty, all parameter boxes at "N/A".
void resetPanels();
// Stops or resumes the repainting of all 21 grids.
void setGridsRedraw(bool on);

// The bar at the whole part of count / 1170 * 100, plus 1, at most 100; -1 resets it to 0.
void setProgress(int count);
// The same for `done` of `total`.
void setProgressOf(std::int64_t done, std::int64_t total);
// One cell more of the operation under way.
void countProgress();

// Keeps all grids from repainting until the end of the scope, on every path. Of pauses within each
// other the outermost counts.
class GridsPause {
 public:
  GridsPause();
  ~GridsPause();
  GridsPause(const GridsPause&) = delete;
  GridsPause& operator=(const GridsPause&) = delete;

 private:
  bool outermost_;
};
