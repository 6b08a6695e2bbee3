#include "editing/map_shift.h"

#include <algorithm>

#include "core/boost.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/file_command.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/map_cells.h"
#include "core/map_kinds.h"
#include "platform/failure.h"

namespace {

// `step` is the way from a cell to the one that it takes its number from: 1 shifts left, -1 right.
void shiftRow(MapCells& cells, int row, int columns, int step) {
  int target = step > 0 ? 1 : columns;
  for (int moved = 1; moved < columns; ++moved, target += step) {
    cells.set(row, target, cells.number(row, target + step));
  }
  cells.set(row, target, 0);
}

// The scale's part that lies under the map; cells behind its own end are none of the scale.
void shiftScale(const MapKind& scale, int mapColumns) {
  MAP_SHIFT(scale, std::min(mapColumns, columnsOf(entryOf(scale))), 1);
}

void shiftMapOfTab(int tab) {
  const MapKind* const kind = mapKindOfTab(tab);
  if (!kind || !kind->isByteMap() || !entryOf(*kind).present()) return;
  shiftMap(*kind, form11.Check1.checked());
}

}  // namespace

Form11 form11;

Form11::Form11() : Window("Form11") {
  wireDialog(*this, {[this] { fill(); }, &Command1, shiftCommand, &Command2, &Option1});
  Option1.nameAfter({&Label1});
  Option2.nameAfter({&Label2});
  Label1.onClick = [this] { Option1.userSelect(); };
  Label2.onClick = [this] { Option2.userSelect(); };
}

void Form11::fill() {
  setCaption(captioned({"マップシフト", "Data shift"}));
  Label1.setCaption(captioned({"左へ一列詰めます。", "I stuff 1 line left."}));
  Label2.setCaption(captioned({"右へ一列詰めます。", "I stuff 1 line right."}));
  Check1.setCaption(captioned({"TPも一緒に詰める", "TP also stuffs it together."}));
  directions.select(&Option1);
  Check1.setChecked(true);
  Check1.setEnabled(loadScaleBeside(editorState.currentTab) != nullptr);
}

void shiftMap(const MapKind& kind, bool alongScale) {
  const MapEntry& entry = entryOf(kind);
  MAP_SHIFT(kind, entry.columns, entry.rows);
  const MapKind* const scale = loadScaleBeside(kind.tab);
  if (scale && alongScale) shiftScale(*scale, entry.columns);
}

void MAP_SHIFT(const MapKind& kind, int columns, int rows) {
  Grid& grid = gridOf(kind);
  columns = std::min(columns, grid.columns() - 1);
  rows = std::min(rows, grid.rows() - 1);
  if (!form11.directions.selected() || columns < 1 || rows < 1) return;
  const bool left = form11.Option1.selected();
  const GridPause pause(grid, GridPause::Hide::yes);
  MapCells cells(kind);
  for (int r = 1; r <= rows; ++r) shiftRow(cells, r, columns, left ? 1 : -1);
  grid.setRow(rows);
  grid.setColumn(left ? columns : 1);
}

void shiftCommand() {
  showOperation("SHIFT");
  nameStep({"マップシフト", "shift"});
  trapFailure([] { shiftMapOfTab(editorState.currentTab); });
  recalculateBoost();
  closeDialog(form11);
  form1().Label13.setCaption("");
  desktop().setBusyPointer(false);
}

void DT_SFT() { openDialog(form11); }
