#include "editing/scale_editing.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "core/boost.h"
#include "core/editor_state.h"
#include "core/map_kinds.h"
#include "editing/entry.h"
#include "editing/selection.h"
#include "platform/numbers.h"

namespace {

constexpr std::int32_t rpmStepLimit = 15000;

const Wording tpQuestion{"データは？\r\n\r\n設定できるデータの大きさは、0-255",
                         "Data?\r\n\r\nFor a size of data that I can set up, 0 - 255"};
const Wording rpmQuestion{"データは？\r\n\r\n", "Data?\r\n\r\n"};

bool isTp(const MapKind& kind) { return kind.family == MapFamily::tpScale; }

void editScaleCell(const MapKind& kind) {
  Grid& grid = gridOf(kind);
  const std::optional<double> answer = askForNumber(grid, isTp(kind) ? tpQuestion : rpmQuestion);
  if (!answer) return;
  const double limit = isTp(kind) ? byteLimit : std::numeric_limits<std::int32_t>::max();
  editorState.cellValue = roundToLong(std::clamp(*answer, 0.0, limit));
  grid.setText(grid.row(), grid.column(), decimalText(editorState.cellValue));
  if (isTp(kind)) recalculateBoost();
}

void stepScaleSelection(const MapKind& kind, char32_t key) {
  Grid& grid = gridOf(kind);
  const std::int32_t step = isTp(kind) ? 1 : editorState.addressMap.map(kind.id).scale;
  const std::int32_t limit = isTp(kind) ? byteLimit : rpmStepLimit;
  onStepKeys(key, [&](int direction) {
    const GridPause pause(grid);
    walkSelection(grid, [&](int row, int column) {
      const std::int32_t value = cellNumber(grid.text(row, column));
      grid.setText(row, column, decimalText(stepped(value, direction, step, limit)));
    });
    if (isTp(kind)) recalculateBoost();
  });
}

}  // namespace

void wireScaleGrids() {
  for (const MapKind& kind : mapKinds()) {
    if (!isTp(kind) && kind.family != MapFamily::rpmScale) continue;
    Grid& grid = gridOf(kind);
    grid.onDoubleClick = [&kind] { editScaleCell(kind); };
    grid.onKey = [&kind](char32_t key) { stepScaleSelection(kind, key); };
  }
}
