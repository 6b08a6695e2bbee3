#include "graphs/graph_3d.h"

#include <algorithm>
#include <vector>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/map_kinds.h"
#include "core/settings_file.h"
#include "core/wording.h"
#include "graphs/dr_graph.h"
#include "graphs/projection.h"
#include "graphs/surface_picture.h"
#include "platform/numbers.h"

GraphState graphState;

namespace {

constexpr Colour comparedWire = rgb(192, 0, 0);
constexpr Colour groundGreen = rgb(0, 96, 0);
constexpr Colour editedWire = rgb(0, 255, 0);

constexpr Wording calculating{"グラフ計算中", "Are calculating graph."};
constexpr Wording warningTitle{"警告", "Warning"};
constexpr Wording compareMissing{
    "比較用データ表示のチェックが入っていますが、比較用データが読み込まれていません。\n"
    "チェックを外して編集用のデータのみを表示します。",
    "Although the check of the data display for comparison is contained, the data for comparison "
    "is not read.\nA check is removed and only the data for edit is displayed."};

std::size_t at(int index) { return static_cast<std::size_t>(index); }

Projection projectionInForce() {
  const bool toTheRight = DR_GRAPH.Option1.selected();
  return {editorState.graphStepX,  editorState.graphStepY, editorState.graphRatioX,
          editorState.graphRatioY, toTheRight ? 40 : 225,  toTheRight ? 1 : -1};
}

// What the window shows of a cell's value.
std::int32_t heightOf(std::int64_t value, bool flagged) {
  const std::int64_t shown = value - (flagged ? graphState.fbMask : 0);
  return clampTo32Bits(shown * graphState.magnification);
}

void drawSegments(const std::vector<Segment>& picture, Colour pen) {
  Canvas& canvas = DR_GRAPH.Picture1;
  canvas.setPen(pen);
  for (const Segment& segment : picture) {
    canvas.moveTo(segment.x1, segment.y1);
    canvas.lineTo(segment.x2, segment.y2);
  }
}

void drawWire(const GraphTable& x, const GraphTable& y, const SurfaceExtent& extent, Colour pen) {
  static std::vector<Segment> picture;
  surfaceWire(x, y, extent, picture);
  drawSegments(picture, pen);
}

void showLegend(bool edited, bool compared) {
  DR_GRAPH.Label19.setVisible(edited);
  DR_GRAPH.Line3.setVisible(edited);
  DR_GRAPH.Label20.setVisible(compared);
  DR_GRAPH.Line4.setVisible(compared);
}

void showBusyNotice() {
  DR_GRAPH.Label17.setCaption(worded(calculating));
  DR_GRAPH.Label17.setVisible(true);
  DR_GRAPH.refresh();
}

// A map may say that it is larger than its grid when its address file ended too early.
void takeShape(const Grid& grid, int columns, int rows) {
  graphState.columns = std::clamp(std::min(columns, grid.columns() - 1), 0, graphCells);
  graphState.rows = std::clamp(std::min(rows, grid.rows() - 1), 0, graphCells);
}

// The address of the map's first cell, as its row header tells it.
std::int64_t comparedAddress(const Grid& grid) {
  if (grid.rows() < 2 || grid.columns() < 1) return 0;
  return hexPrefix(grid.text(1, 0)) & 0xFFFF;
}

void projectCompared(std::int64_t address, const SurfaceExtent& extent, const Ground& ground) {
  const std::int32_t threshold = thresholdOfBox();
  graphState.compareScreenX = ground.x;
  for (int row = 1; row <= extent.rows; ++row) {
    for (int column = 1; column <= extent.columns; ++column) {
      const std::int64_t k = extent.stride * (row - 1) + column - 1;
      if (k >= extent.held) return;
      const int byte = editorState.compareImage[static_cast<std::size_t>(address + k)];
      graphState.compareScreenY[at(column)][at(row)] =
          raised(ground.y[at(row)], heightOf(byte, byte >= threshold));
    }
  }
}

void drawCompared(const Grid& grid, int columns, const Ground& ground) {
  const std::int64_t address = comparedAddress(grid);
  const auto imageBytes = static_cast<std::int64_t>(editorState.compareImage.size());
  const SurfaceExtent extent{graphState.columns, graphState.rows, columns,
                             std::max<std::int64_t>(imageBytes - address, 0)};
  projectCompared(address, extent, ground);
  DR_GRAPH.Picture1.clear();
  DR_GRAPH.Picture1.setVisible(false);
  drawWire(graphState.compareScreenX, graphState.compareScreenY, extent, comparedWire);
}

void giveUpComparison() {
  showLegend(true, false);
  desktop().showBox(
      {BoxIcon::information, BoxButtons::ok, worded(warningTitle), worded(compareMissing)});
  editorState.graphShowCompare = 0;
  saveSettingsOrTell("3D グラフ編集");
}

void readHeights(Grid& grid, const std::string& caption) {
  DR_GRAPH.Label1.setCaption(caption);
  const GridPause pause(grid, GridPause::Hide::yes);
  const std::int32_t threshold = thresholdOfBox();
  std::size_t k = 0;
  for (int row = 1; row <= graphState.rows; ++row) {
    for (int column = 1; column <= graphState.columns; ++column, ++k) {
      const std::int32_t value = cellNumber(grid.text(row, column));
      const bool flagged = value >= threshold;
      graphState.heights[at(column)][at(row)] = heightOf(value, flagged);
      graphState.fbFlags[k] = flagged ? 1 : 0;
    }
  }
}

void projectEdited(const Ground& ground) {
  graphState.screenX = ground.x;
  for (int row = 1; row <= graphState.rows; ++row) {
    for (int column = 1; column <= graphState.columns; ++column) {
      graphState.screenY[at(column)][at(row)] =
          raised(ground.y[at(row)], graphState.heights[at(column)][at(row)]);
    }
  }
}

void drawEdited(const Projection& projection) {
  if (editorState.graphShowCompare == 0) DR_GRAPH.Picture1.clear();
  const int columns = graphState.columns;
  const int rows = graphState.rows;
  drawSegments(groundFrame(projection, columns, rows), groundGreen);
  const SurfaceExtent whole{columns, rows, columns, static_cast<std::int64_t>(columns) * rows};
  drawWire(graphState.screenX, graphState.screenY, whole, editedWire);
}

}  // namespace

std::int32_t maskOfBoxes() {
  return (DR_GRAPH.Check1.checked() ? 128 : 0) + (DR_GRAPH.Check2.checked() ? 64 : 0);
}

std::int32_t thresholdOfBox() { return cellNumber(DR_GRAPH.Text2.text()); }

std::int32_t selectedMagnification() { return DR_GRAPH.List1.index() + 1; }

const MapKind* mapOnShow() {
  const MapKind* const kind = activeMap();
  return kind && kind->isByteMap() && entryOf(*kind).present() ? kind : nullptr;
}

void redrawGraph3D() {
  const MapKind* kind = mapOnShow();
  if (!kind) return;
  const MapEntry& entry = entryOf(*kind);
  drawGraph3D(gridOf(*kind), entry.columns, entry.rows, entry.caption, 0);
}

void drawGraph3D(Grid& grid, std::int32_t columns, std::int32_t rows, const std::string& caption,
                 std::int32_t keepHeights) {
  showBusyNotice();
  const Projection projection = projectionInForce();
  takeShape(grid, columns, rows);
  const Ground ground = groundOf(projection, graphState.columns, graphState.rows);
  if (editorState.graphShowCompare == 0) {
    showLegend(true, false);
  } else if (editorState.compareLoaded > 0) {
    showLegend(true, true);
    drawCompared(grid, columns, ground);
  } else {
    giveUpComparison();
  }
  if (keepHeights != 1) readHeights(grid, caption);
  projectEdited(ground);
  drawEdited(projection);
  DR_GRAPH.Picture1.setVisible(true);
  DR_GRAPH.Label17.setVisible(false);
}

void drawCursorMarker(Colour colour) { drawCursorSquare(2, colour); }

void markCursor(Colour colour) {
  drawCursorMarker(colour);
  DR_GRAPH.Picture1.repaint();
}

void drawCursorSquare(int reach, Colour colour) {
  if (!mapOnShow()) return;
  const std::int64_t x = graphState.screenX[at(graphState.cursorColumn)][at(graphState.cursorRow)];
  const std::int64_t y = graphState.screenY[at(graphState.cursorColumn)][at(graphState.cursorRow)];
  DR_GRAPH.Picture1.drawBar(clampTo32Bits(x - reach), clampTo32Bits(y - reach),
                            clampTo32Bits(x + reach), clampTo32Bits(y + reach), colour);
}
