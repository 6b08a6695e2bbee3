// The window of the TP curve: the scale of the current tab with one point for each TP value, which
// the keys raise and lower. It edits the grid; the image follows at the next write-back.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "controls/button.h"
#include "controls/canvas.h"
#include "controls/canvas_picture.h"
#include "controls/controls.h"
#include "controls/grid.h"
#include "controls/window.h"
#include "core/map_kinds.h"
#include "graphs/graph_export.h"

constexpr int tpPoints = 129;  // of a longer scale the first ones are shown and written back

// Outlives the window; every opening rebuilds it.
struct TpGraphState {
  std::int32_t cursorPoint = 1;  // counted from 1
  std::int32_t pointCount = 0;
  std::array<std::int32_t, tpPoints> pointY{};  // pixels; the edit buffer
};

struct D2Graph : Window {
  D2Graph();

  static constexpr int canvasWidth = 545;
  static constexpr int canvasHeight = 337;

  Canvas Picture1{*this, canvasWidth, canvasHeight};
  // On the canvas: read-out and axis text.
  Label Label1{*this}, Label2{*this};
  std::array<PlacedLabel, 2> labelsOnCanvas() {
    return {{{&Label1, 24, 24}, {&Label2, 10, 312, 521, 18}}};
  }
  PictureMenu pictureMenu{*this};
  Button Command1{*this, "OK"}, Command2{*this, "CANCEL"};
};

extern TpGraphState tpGraphState;
extern D2Graph D2_GRAPH;

// Takes the scale's row of TP values over and draws it; the title becomes `caption`.
void loadTpGraph(Grid& grid, std::int32_t columns, const std::string& caption);
// Lines and ticks.
void drawTpCurve();
// Brings the points into the grid's row, values below 0 as 0.
void writeTpGraphToGrid(const MapKind& scale, std::int32_t columns);

// The menu command.
void TP_2D();
