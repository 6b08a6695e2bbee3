// Drawing maps from the image into their grids: headers, cell texts, colours; the common redraw,
// the grid layout and the reset to the empty state.
#pragma once

#include "rom/map_entries.h"

// Draws one map; all numbers come from its MapEntry. `bytes` is the airflow map's length. A failure
// shows a box and leaves the grid hidden.
void map_draw(int columns, int rows, int address, int bytes, int mapId);
// The same with the entry's own numbers.
void drawMap(MapId mapId);
// Draws all present maps in MapId order.
void redrawAllMaps();

// Column widths and row heights of all grids.
void setGridLayout();
// The state before a load: all grids empty, all parameter boxes at "N/A".
void resetPanels();
// Stops or resumes the repainting of all 21 grids.
void setGridsRedraw(bool on);

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
