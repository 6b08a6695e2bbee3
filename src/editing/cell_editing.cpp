#include "editing/cell_editing.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "controls/desktop.h"
#include "core/airflow_view.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_colours.h"
#include "core/map_kinds.h"
#include "editing/entry.h"
#include "editing/selection.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

const Wording byteQuestion{"データは？\r\n\r\n設定できるデータの大きさは、0-255",
                           "Data?\r\n\r\nFor a size of data that I can set up, 0 - 255"};
const Wording wordQuestion{"データは？\r\n\r\n設定できるデータの大きさは、0-65535",
                           "Data?\r\n\r\nFor a size of data that I can set up, 0 - 65535"};

bool isAirflow(const Grid& grid) { return &grid == &form1().Grid5; }

// An answer just below 65536 passes the limit of a word and rounds up to it.
double limited(double answer, bool airflow) {
  const double limit = airflow ? wordLimit + 1.0 : byteLimit;
  return std::max(answer >= limit ? (airflow ? wordLimit : byteLimit) : answer, 0.0);
}

Colour enteredColour(double value, bool airflow) {
  if (airflow) return shadeColour(static_cast<std::int64_t>(std::floor(value / 256)));
  return shadeColour(std::llrint(value * editorState.gridColorRate));
}

Colour steppedColour(std::int32_t value, bool airflow) {
  return airflow ? shadeColour(roundToLong(value / 256.0)) : cellColour(value);
}

void redrawView() { drawAirflowView(form1().Grid5, editorState.addressMap.map(VQ_MAP).bytes); }

void wireMapGrid(const MapKind& kind) {
  Grid& grid = gridOf(kind);
  grid.onDoubleClick = [&grid] { editCell(grid); };
  grid.onKey = [&grid](char32_t key) { stepSelection(grid, key); };
  if (kind.family == MapFamily::airflow) grid.onKeyUp = redrawView;
  if (kind.family == MapFamily::limitRow) return;
  grid.onMouseDown = [](MouseButton button) {
    MenuItem* edit = form1().menuBar.find("edit_0");
    if (button == MouseButton::right && edit) desktop().popUpMenu(*edit);
  };
}

}  // namespace

void editCell(Grid& grid) {
  const bool airflow = isAirflow(grid);
  const std::optional<double> answer = askForNumber(grid, airflow ? wordQuestion : byteQuestion);
  if (!answer) return;
  const double value = limited(*answer, airflow);
  editorState.cellValue = roundToLong(value);
  grid.setCell(grid.row(), grid.column(), decimalText(editorState.cellValue),
               enteredColour(value, airflow));
  if (airflow) redrawView();
}

void stepSelection(Grid& grid, char32_t key) {
  const bool airflow = isAirflow(grid);
  onStepKeys(key, [&](int direction) {
    walkSelection(grid, [&](int row, int column) {
      const std::int32_t value = stepped(cellNumber(grid.text(row, column)), direction, 1,
                                         airflow ? wordLimit : byteLimit);
      grid.setCell(row, column, decimalText(value), steppedColour(value, airflow));
    });
  });
}

void wireMapGrids() {
  for (const MapKind& kind : mapKinds()) {
    const bool scale = kind.family == MapFamily::tpScale || kind.family == MapFamily::rpmScale;
    if (!scale) wireMapGrid(kind);
  }
}
