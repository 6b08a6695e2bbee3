#include "graphs/graph_3d_editing.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>

#include "controls/canvas.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/error_log.h"
#include "core/history.h"
#include "core/key_assignment.h"
#include "core/map_cells.h"
#include "core/map_kinds.h"
#include "core/settings_file.h"
#include "graphs/dr_graph.h"
#include "graphs/graph_3d.h"
#include "graphs/graph_3d_steps.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

const char* const operation = "3Dグラフデータ書込";

std::int32_t& heightAtCursor() {
  return graphState.heights[static_cast<std::size_t>(graphState.cursorColumn)]
                           [static_cast<std::size_t>(graphState.cursorRow)];
}

void moveCursor(int keyCode) {
  std::int32_t& row = graphState.cursorRow;
  std::int32_t& column = graphState.cursorColumn;
  if (keyCode == upKey && row < graphState.rows) ++row;
  if (keyCode == downKey && row > 1) --row;
  if (keyCode == rightKey && column < graphState.columns) ++column;
  if (keyCode == leftKey && column > 1) --column;
}

// Fails when a scale has no such column or row; the read-outs behind it then stay.
void showReadOuts(std::int32_t step) {
  const MapKind* const kind = activeMap();
  if (!kind || !kind->isByteMap()) return;
  if (const MapKind* const load = loadScaleOf(*kind)) {
    DR_GRAPH.Label2.setCaption(gridOf(*load).text(0, graphState.cursorColumn) + "kg");
  }
  if (const MapKind* const speed = speedScaleOf(*kind)) {
    DR_GRAPH.Label3.setCaption(gridOf(*speed).text(graphState.cursorRow - 1, 0) + "rpm");
  }
  DR_GRAPH.Label4.setCaption("DATA : " + plainNumber(static_cast<double>(heightAtCursor()) / step));
}

void showReadOutsAsFarAsTheyGo(std::int32_t step) {
  trapFailure([step] { showReadOuts(step); });
}

double cellValue(std::int32_t height, std::int32_t flag) {
  const std::int64_t added = flag == 1 ? graphState.magnification * graphState.fbMask : 0;
  return roundClamped(static_cast<double>(height + added) / graphState.magnification);
}

void writeCells(const MapKind& kind, int columns, int rows) {
  Grid& grid = gridOf(kind);
  const GridPause pause(grid, GridPause::Hide::yes);
  MapCells cells(kind);
  for (int row = 1; row <= rows; ++row) {
    for (int column = 1; column <= columns; ++column) {
      const auto k = static_cast<std::size_t>((row - 1) * graphState.columns + column - 1);
      const double value = cellValue(
          graphState.heights[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)],
          graphState.fbFlags[k]);
      cells.set(row, column, limitedTo(kind, value));
    }
  }
  if (columns < 1 || rows < 1) return;
  grid.setColumn(columns);
  grid.setRow(rows);
}

void writeMapOnShow() {
  const MapKind* kind = mapOnShow();
  if (!kind) return;
  writeGraphToGrid(*kind, entryOf(*kind).columns, entryOf(*kind).rows);
}

void takeParameters() {
  editorState.graphFbMask = maskOfBoxes();
  editorState.graphFbThreshold = thresholdOfBox();
  editorState.graphMagnification = selectedMagnification();
}

void changeHeight(char32_t key, int times) {
  const std::int32_t step = selectedMagnification();
  const std::int64_t change = std::int64_t{step} * times;
  std::int32_t& height = heightAtCursor();
  if (isAssignedKey(editorState.plusKey, key)) {
    height = std::min(clampTo32Bits(height + change), byteLimit * step);
  }
  if (isAssignedKey(editorState.minusKey, key)) height = clampTo32Bits(height - change);
  DR_GRAPH.Picture1.setFocus();
}

// Points far outside the picture are as good as one another.
std::int64_t squaredDistance(std::int32_t column, std::int32_t row, int x, int y) {
  constexpr std::int64_t farthest = 1'000'000;
  const auto c = static_cast<std::size_t>(column), r = static_cast<std::size_t>(row);
  const auto reach = [&](std::int64_t distance) {
    return std::clamp<std::int64_t>(distance, -farthest, farthest);
  };
  const std::int64_t right = reach(std::int64_t{graphState.screenX[c][r]} - x);
  const std::int64_t down = reach(std::int64_t{graphState.screenY[c][r]} - y);
  return right * right + down * down;
}

}  // namespace

void graphKeyDown(int keyCode) {
  const std::int32_t step = selectedMagnification();
  moveCursor(keyCode);
  showReadOutsAsFarAsTheyGo(step);
  markCursor(markerRed);
}

void graphKey(char32_t key) { changeHeight(key, 1); }

void graphControlKey(char32_t key) { changeHeight(key, coarseSteps); }

void graphClick(int x, int y) {
  std::int64_t nearest = std::numeric_limits<std::int64_t>::max();
  for (std::int32_t row = 1; row <= graphState.rows; ++row) {
    for (std::int32_t column = 1; column <= graphState.columns; ++column) {
      const std::int64_t distance = squaredDistance(column, row, x, y);
      if (distance >= nearest) continue;
      nearest = distance;
      graphState.cursorColumn = column;
      graphState.cursorRow = row;
    }
  }
  graphKeyUp(0);
}

void graphKeyUp(int /*keyCode*/) {
  showReadOutsAsFarAsTheyGo(selectedMagnification());
  if (const MapKind* kind = mapOnShow()) {
    const MapEntry& entry = entryOf(*kind);
    drawGraph3D(gridOf(*kind), entry.columns, entry.rows, entry.caption, 1);
  }
  markCursor(markerYellow);
  settleGraphSteps();
}

void writeGraphToGrid(const MapKind& kind, std::int32_t columns, std::int32_t rows) {
  const int shownColumns = std::min(columns, graphState.columns);
  const int shownRows = std::min(rows, graphState.rows);
  nameStep({"3D グラフ", "3D graph"});
  const int number = trapFailure([&] { writeCells(kind, shownColumns, shownRows); });
  logError(operation, number, failureText(number));
}

void saveGraphEdits() {
  writeMapOnShow();
  takeParameters();
  saveSettingsOrTell(operation);
}

void okGraph3D() {
  writeMapOnShow();
  takeParameters();
  editorState.graphShowCompare = DR_GRAPH.Check3.checked() ? 1 : 0;
  saveSettingsOrTell(operation);
  closeDialog(DR_GRAPH);
}

void DRAW_PUT() { drawCursorSquare(1, markerRed); }
