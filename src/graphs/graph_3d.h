// The 3D graph's state and its drawing: the map of the current tab as a wire-frame surface over
// load and engine speed, before it the same map of the comparison image in red.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "controls/colour.h"
#include "controls/grid.h"
#include "core/map_kinds.h"
#include "graphs/projection.h"

// Outlives the window. Cells are counted from 1.
struct GraphState {
  std::int32_t cursorColumn = 1;
  std::int32_t cursorRow = 1;
  // The part of the map on show: at most `graphCells` each way.
  std::int32_t columns = 0;
  std::int32_t rows = 0;
  std::int32_t fbMask = 0;         // 192, 128, 64 or 0
  std::int32_t magnification = 1;  // 1 to 5
  // What the keys edit: cell value times magnification, less the mask where the cell is flagged.
  GraphTable heights{};
  GraphTable screenX{};
  GraphTable screenY{};
  GraphTable compareScreenX{};
  GraphTable compareScreenY{};
  // For each cell on show in reading order: 1 when it was at or above the threshold at the last
  // reading of the grid.
  std::array<std::int32_t, std::size_t{graphCells} * graphCells> fbFlags{};
};

extern GraphState graphState;

// The FB/learning bits that the boxes name.
std::int32_t maskOfBoxes();
// The threshold in the text box.
std::int32_t thresholdOfBox();
// The number in the selected line of the magnification list.
std::int32_t selectedMagnification();

// The map of the current tab; null on the tabs without a graph and for a map that the model lacks.
const MapKind* mapOnShow();

// Reads the map of the current tab from its grid and draws it; nothing without a map.
void redrawGraph3D();
// One whole draw. `keepHeights` 1: the heights stay as they are; else the grid is read first.
void drawGraph3D(Grid& grid, std::int32_t columns, std::int32_t rows, const std::string& caption,
                 std::int32_t keepHeights);

constexpr Colour markerYellow = rgb(255, 255, 0);
constexpr Colour markerRed = rgb(255, 0, 0);
// A filled square around the cursor cell's point.
void drawCursorMarker(Colour colour);
// The same, and shows it.
void markCursor(Colour colour);
// A filled square of `reach` pixels each way around the same point; nothing without a map.
void drawCursorSquare(int reach, Colour colour);
