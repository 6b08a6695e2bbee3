#include "editing/smoothing.h"

#include <cmath>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/history.h"
#include "core/map_cells.h"
#include "core/map_kinds.h"
#include "platform/numbers.h"

namespace {

constexpr const char* firstThreshold = "120";

// The cell between the one at (row, column) and the one two steps on takes their mean.
void smoothBetween(MapCells& cells, int row, int column, int down, int right,
                   std::int32_t threshold) {
  const std::int32_t a = cells.number(row, column);
  const std::int32_t b = cells.number(row + 2 * down, column + 2 * right);
  if (a >= threshold || b >= threshold) return;
  const double mean = std::nearbyint((double{0} + a + b) / 2);
  cells.set(row + down, column + right, limitedTo(cells.kind(), mean));
}

void passAlongRows(MapCells& cells, const GridBlock& block, std::int32_t threshold) {
  for (int r = block.top; r <= block.bottom - 2; ++r) {
    for (int c = block.left; c <= block.right - 2; ++c) smoothBetween(cells, r, c, 0, 1, threshold);
  }
}

void passAlongColumns(MapCells& cells, const GridBlock& block, std::int32_t threshold) {
  for (int c = block.left; c <= block.right - 2; ++c) {
    for (int r = block.top; r <= block.bottom - 2; ++r) smoothBetween(cells, r, c, 1, 0, threshold);
  }
}

void smoothOnTab(std::int32_t tab, std::int32_t threshold) {
  const MapKind* const kind = mapKindOfTab(tab);
  if (kind && kind->isByteMap()) {
    SMOOTH_DATA(*kind, threshold);
  } else if (kind || tab == globalTab) {
    showRefusal({"この画面で、スムージング機能は使用できません。",
                 "With this screen, smooth function can be useful."});
  } else {
    showRefusal({"SMOOTH_DATA のパラメーターに例外がある。",
                 "There is an exception for a parameter of SMOOTH_DATA."});
  }
}

}  // namespace

Form10 form10;

Form10::Form10() : Window("Form10") {
  wireDialog(*this, {[this] { fill(); }, &Command1, [this] { accept(); }, &Command2, &Text1});
  escapeCancels = false;
  Text1.nameAfter({&Label1});
  Text1.keyFilter = digitKey;
}

void Form10::fill() {
  setCaption(captioned({"スムージング", "Smooth"}));
  Label1.setCaption(captioned({"しきい値", "Marginal value"}));
  Label2.setCaption(captioned({"しきい値より大きい値は変更されません。",
                               "A more large value aren't changed than a value."}));
  Text1.setText(firstThreshold);
}

void Form10::accept() {
  smoothOnTab(editorState.currentTab, cellNumber(Text1.text()));
  nameStep({"スムージング", "smoothing"});
  closeDialog(*this);
}

void SMOOTH_DATA(const MapKind& kind, std::int32_t threshold) {
  Grid& grid = gridOf(kind);
  const GridPause pause(grid);
  const GridBlock block = grid.block();
  MapCells cells(kind);
  passAlongRows(cells, block, threshold);
  passAlongColumns(cells, block, threshold);
  grid.setSelection({block.top, block.left, block.bottom, block.right});
}

void smooth() { openDialog(form10); }
