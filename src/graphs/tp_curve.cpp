#include "graphs/tp_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "core/boost.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/history.h"
#include "core/key_assignment.h"
#include "core/map_cells.h"
#include "core/map_kinds.h"
#include "graphs/edit_steps.h"
#include "graphs/tp_picture.h"
#include "platform/failure.h"
#include "platform/numbers.h"

TpGraphState tpGraphState;
D2Graph D2_GRAPH;

namespace {

using TpPoints = decltype(TpGraphState::pointY);

EditSteps<TpPoints> steps;

constexpr Colour orange = rgb(255, 128, 0);
constexpr Colour frameGreen = rgb(0, 128, 0);
constexpr Colour curveGreen = rgb(64, 255, 64);
constexpr Colour tickYellow = rgb(255, 255, 128);
constexpr Colour cursorRed = rgb(255, 0, 0);
constexpr int tickReach = 1;    // pixels up and down
constexpr int cursorReach = 2;  // pixels each way
constexpr const char* axisText = "min                  TP value                  max";

std::int32_t& pointY(int point) { return tpGraphState.pointY[static_cast<std::size_t>(point - 1)]; }

const MapKind* scaleOfTab() { return loadScaleBeside(editorState.currentTab); }

void drawBarAround(int point, int reachX, int reachY, Colour colour) {
  const int x = tpPointX(point);
  const std::int64_t y = pointY(point);
  D2_GRAPH.Picture1.drawBar(x - reachX, clampTo32Bits(y - reachY), x + reachX,
                            clampTo32Bits(y + reachY), colour);
}

void drawTick(int point) { drawBarAround(point, 0, tickReach, tickYellow); }

void drawCursor() {
  if (tpGraphState.pointCount < 1) return;
  drawBarAround(tpGraphState.cursorPoint, cursorReach, cursorReach, cursorRed);
}

void startPicture() {
  Canvas& canvas = D2_GRAPH.Picture1;
  canvas.clear();
  canvas.setVisible(false);
  canvas.drawOutline(10, 10, 531, 310, frameGreen);
}

void showPicture() {
  drawCursor();
  D2_GRAPH.Picture1.setVisible(true);
  D2_GRAPH.Picture1.repaint();
}

// Empty when the engine described in the settings gives no boost.
std::string boostLine(std::int32_t tp) {
  float boost = 0;
  const int number = trapFailure([&] { boost = boostFromTp(tp); });
  if (number != 0 || !std::isfinite(boost)) return {};
  return (editorState.english != 0 ? "Boost:" : "加給:") + formatFixed(boost, 2);
}

void showReadOut() {
  if (tpGraphState.pointCount < 1) return;
  const std::int32_t tp = roundClamped(tpOfPointY(pointY(tpGraphState.cursorPoint)));
  D2_GRAPH.Label1.setCaption(boostLine(tp) + "\nDATA : " + decimalText(tp));
}

void keyDown(int keyCode) {
  std::int32_t& point = tpGraphState.cursorPoint;
  if (keyCode == rightKey && point < tpGraphState.pointCount) ++point;
  if (keyCode == leftKey && point > 1) --point;
  drawCursor();
  D2_GRAPH.Picture1.repaint();
}

void movePoint(char32_t key, int times) {
  if (tpGraphState.pointCount < 1) return;
  std::int32_t& y = pointY(tpGraphState.cursorPoint);
  for (; times > 0; --times) {
    if (isAssignedKey(editorState.minusKey, key)) y = loweredTpPoint(y);
    if (isAssignedKey(editorState.plusKey, key)) y = raisedTpPoint(y);
  }
}

void keyUp(int /*keyCode*/) {
  startPicture();
  showReadOut();
  drawTpCurve();
  showPicture();
  steps.settle(tpGraphState.pointY);
}

void show(const std::optional<TpPoints>& points) {
  if (!points) return;
  tpGraphState.pointY = *points;
  keyUp(0);
}

void openTpGraph() {
  tpGraphState = {};
  D2_GRAPH.setCaption("");
  D2_GRAPH.Label1.setCaption("");
  D2_GRAPH.Label2.setCaption(axisText);
  D2_GRAPH.pictureMenu.takeWords();
  D2_GRAPH.Picture1.setOwnName(captioned({"TP スケール 2D グラフ", "TP scale 2D graph"}));
  D2_GRAPH.Picture1.clear();
  const MapKind* kind = scaleOfTab();
  if (!kind || !entryOf(*kind).present()) return;
  loadTpGraph(gridOf(*kind), entryOf(*kind).columns, entryOf(*kind).caption);
  steps.begin(tpGraphState.pointY);
}

void okTpGraph() {
  if (const MapKind* const scale = scaleOfTab()) {
    writeTpGraphToGrid(*scale, entryOf(*scale).columns);
    showAfterEffect(*scale);
  }
  nameStep({"TP カーブ", "TP curve"});
  closeDialog(D2_GRAPH);
}

Picture pictureOfCurve() { return canvasPicture(D2_GRAPH.Picture1, D2_GRAPH.labelsOnCanvas()); }

std::string nameOfCurve() {
  const MapKind* const scale = scaleOfTab();
  return scale ? scale->keyword : "2D";
}

}  // namespace

D2Graph::D2Graph() : Window("D2_GRAPH") {
  wireDialog(*this, {openTpGraph, &Command1, okTpGraph, &Command2, &Picture1});
  Label1.setColour(orange);
  Label2.setColour(orange);
  Picture1.describeBy({&Label1});
  Picture1.onKeyDown = keyDown;
  Picture1.onKey = [](char32_t key) { movePoint(key, 1); };
  Picture1.onControlKey = [](char32_t key) { movePoint(key, coarseSteps); };
  Picture1.onKeyUp = keyUp;
  pictureMenu.wire(Picture1, pictureOfCurve, nameOfCurve);
  onUndo = [] { show(steps.undo()); };
  onRedo = [] { show(steps.redo()); };
}

void loadTpGraph(Grid& grid, std::int32_t columns, const std::string& caption) {
  D2_GRAPH.setCaption(caption);
  tpGraphState = {};
  // A scale may say that it is longer than its grid.
  tpGraphState.pointCount = std::clamp(std::min(columns, grid.columns() - 1), 0, tpPoints);
  {
    const GridPause pause(grid, GridPause::Hide::yes);
    for (int point = 1; point <= tpGraphState.pointCount; ++point) {
      pointY(point) = tpPointY(cellNumber(grid.text(1, point)));
    }
  }
  startPicture();
  drawTpCurve();
  showPicture();
}

void drawTpCurve() {
  for (int point = 1; point <= tpGraphState.pointCount; ++point) {
    if (point < tpGraphState.pointCount) {
      D2_GRAPH.Picture1.drawLine(tpPointX(point), pointY(point), tpPointX(point + 1),
                                 pointY(point + 1), curveGreen);
    }
    drawTick(point);
  }
}

void writeTpGraphToGrid(const MapKind& scale, std::int32_t columns) {
  const GridPause pause(gridOf(scale), GridPause::Hide::yes);
  MapCells cells(scale);
  const int count = std::min(columns, tpGraphState.pointCount);
  for (int point = 1; point <= count; ++point) {
    cells.setText(1, point, plainNumber(std::max(tpOfPointY(pointY(point)), 0.0)));
  }
}

void TP_2D() { openDialog(D2_GRAPH); }
