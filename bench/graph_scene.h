// What the graph benchmarks look at: a map of 40 by 40 cells with its comparison, opened in the
// graph on the headless desktop.
#pragma once

#include <string>

#include "core/editor_state.h"
#include "core/form1.h"
#include "frontend/headless/headless_desktop.h"
#include "graphs/dr_graph.h"
#include "graphs/graph_3d.h"
#include "graphs/graph_3d_display.h"

inline int sceneValue(int column, int row) { return (column * 7 + row * 5) % 256; }

inline void openScene(HeadlessDesktop& desk) {
  useDesktop(&desk);
  editorState.image[0] = 1;
  editorState.gridColorRate = 1;
  editorState.graphFbMask = 128;
  editorState.graphFbThreshold = 125;
  editorState.graphStepX = 11;
  editorState.graphStepY = 5;
  editorState.graphRatioX = 1;
  editorState.graphRatioY = 2;
  editorState.graphShowCompare = 1;
  editorState.compareLoaded = 1;
  editorState.compareImage.assign(0x1000, 60);
  editorState.addressMap.map(HIGH_FUEL) = {0x100, graphCells, graphCells, 1600, 0, "map"};
  Grid& grid = form1().Grid1;
  grid.resize(graphCells + 1, graphCells + 1);
  grid.setText(1, 0, "0100");
  for (int row = 1; row <= graphCells; ++row) {
    for (int column = 1; column <= graphCells; ++column) {
      grid.setText(row, column, std::to_string(sceneValue(column, row)));
    }
  }
  form1().load();
  DISP_3D_Graph();
}

// What a key's release costs.
inline void redrawScene() { drawGraph3D(form1().Grid1, graphCells, graphCells, "map", 1); }
