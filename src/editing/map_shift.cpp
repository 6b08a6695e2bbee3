#include "editing/map_shift.h"

#include <algorithm>

#include "core/boost.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/file_command.h"
#include "core/form1.h"
#include "core/map_colours.h"
#include "core/map_kinds.h"
#include "editing/entry.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

constexpr std::int32_t airflowTab = 5;

// The load scale that belongs to a tab's map, null where there is none.
const MapKind* scaleOfTab(int tab) {
  if (tab == 1) return findMapKind(TP_SCALE_FUEL);
  if (tab == 2) return findMapKind(TP_SCALE_FIRE);
  return nullptr;
}

enum class Paint { no, yes };

void writeCell(Grid& grid, int row, int column, std::int32_t number, Paint paint) {
  grid.setText(row, column, decimalText(number));
  if (paint == Paint::yes) grid.setBackground(row, column, cellColour(number));
}

// `step` is the way from a cell to the one that it takes its number from: 1 shifts left, -1 right.
void shiftRow(Grid& grid, int row, int columns, int step, Paint paint) {
  int target = step > 0 ? 1 : columns;
  for (int moved = 1; moved < columns; ++moved, target += step) {
    writeCell(grid, row, target, cellNumber(grid.text(row, target + step)), paint);
  }
  writeCell(grid, row, target, 0, paint);
}

void shiftRows(Grid& grid, int columns, int rows, Paint paint) {
  columns = std::min(columns, grid.columns() - 1);
  rows = std::min(rows, grid.rows() - 1);
  if (!form11.directions.selected() || columns < 1 || rows < 1) return;
  const bool left = form11.Option1.selected();
  const GridPause pause(grid, GridPause::Hide::yes);
  for (int r = 1; r <= rows; ++r) shiftRow(grid, r, columns, left ? 1 : -1, paint);
  grid.setRow(rows);
  grid.setColumn(left ? columns : 1);
}

// The scale's part that lies under the map; cells behind its own end are none of the scale.
void shiftScale(const MapKind& scale, int mapColumns) {
  const int columns = columnsOf(editorState.addressMap.map(scale.id));
  shiftRows(gridOf(scale), std::min(mapColumns, columns), 1, Paint::no);
}

void shiftMapOfTab(int tab) {
  const MapKind* const kind = mapKindOfTab(tab);
  if (!kind || tab == airflowTab) return;
  const MapEntry& entry = editorState.addressMap.map(kind->id);
  if (!entry.present()) return;
  MAP_SHIFT(gridOf(*kind), entry.columns, entry.rows);
  const MapKind* const scale = scaleOfTab(tab);
  if (scale && form11.Check1.checked()) shiftScale(*scale, entry.columns);
}

}  // namespace

Form11 form11;

Form11::Form11() : Window("Form11") {
  wireDialog(*this, {[this] { fill(); }, &Command1, shiftCommand, &Command2, &Option1});
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
  Check1.setEnabled(scaleOfTab(editorState.currentTab) != nullptr);
}

void MAP_SHIFT(Grid& grid, int columns, int rows) { shiftRows(grid, columns, rows, Paint::yes); }

void shiftCommand() {
  showOperation("SHIFT");
  trapFailure([] { shiftMapOfTab(editorState.currentTab); });
  recalculateBoost();
  closeDialog(form11);
  form1().Label13.setCaption("");
  desktop().setBusyPointer(false);
}

void DT_SFT() { openDialog(form11); }
