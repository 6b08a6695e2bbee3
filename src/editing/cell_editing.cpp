#include "editing/cell_editing.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "controls/desktop.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/key_assignment.h"
#include "core/map_cells.h"
#include "core/map_colours.h"
#include "core/map_places.h"
#include "core/refusals.h"
#include "core/wording.h"
#include "editing/entry.h"
#include "editing/selection.h"
#include "platform/numbers.h"

namespace {

const Wording byteQuestion{"データは？\r\n\r\n設定できるデータの大きさは、0-255",
                           "Data?\r\n\r\nFor a size of data that I can set up, 0 - 255"};
const Wording wordQuestion{"データは？\r\n\r\n設定できるデータの大きさは、0-65535",
                           "Data?\r\n\r\nFor a size of data that I can set up, 0 - 65535"};
const Wording openQuestion{"データは？\r\n\r\n", "Data?\r\n\r\n"};

const Wording& questionFor(const MapKind& kind) {
  switch (kind.rules().limit) {
    case byteLimit:
      return byteQuestion;
    case wordLimit:
      return wordQuestion;
    default:
      return openQuestion;
  }
}

double limited(double answer, const CellRules& rules) {
  return std::max<double>(answer >= rules.entryBound ? rules.limit : answer, 0);
}

// An answer paints by what was typed, not by what it is rounded to.
const Colour& enteredColour(const MapKind& kind, double value) {
  const bool word = kind.rules().colour == ColourRule::wordShade;
  return shadeColour(word ? static_cast<std::int64_t>(std::floor(value / 256))
                          : std::llrint(value * editorState.gridColorRate));
}

// A stepped word paints by the nearest shade.
const Colour& steppedColour(const MapKind& kind, std::int32_t value) {
  const bool word = kind.rules().colour == ColourRule::wordShade;
  return word ? shadeColour(roundToLong(value / 256.0)) : cellColour(value);
}

// A held key leaves the airflow view as it is until the key's release.
bool followsAtRelease(const MapKind& kind) {
  return kind.rules().after == AfterEffect::airflowView;
}

void stepCells(const MapKind& kind, int direction, int times) {
  Grid& grid = gridOf(kind);
  const bool speeds = kind.family == MapFamily::rpmScale;
  const std::int32_t step = clampTo32Bits(std::int64_t{speeds ? entryOf(kind).scale : 1} * times);
  MapCells cells(kind);
  const GridPause pause(grid);
  nameStep(direction > 0 ? Wording{"増加キー", "step up"} : Wording{"減少キー", "step down"});
  walkSelection(grid, [&](int row, int column) {
    const std::int32_t value =
        stepped(cells.number(row, column), direction, step, kind.rules().stepLimit);
    cells.set(row, column, value, steppedColour(kind, value));
  });
}

void stepCoarsely(int direction) {
  const MapKind* const kind = mapOfCursor();
  if (!kind) return showRefusal(nothingSelected);
  stepCells(*kind, direction, coarseSteps);
  showAfterEffect(*kind);
}

void wireMapGrid(const MapKind& kind) {
  Grid& grid = gridOf(kind);
  grid.onDoubleClick = [&kind] { editCell(kind); };
  grid.onKey = [&kind](char32_t key) { stepSelection(kind, key); };
  grid.onControlKey = [&kind](char32_t key) { stepSelection(kind, key, coarseSteps); };
  if (followsAtRelease(kind)) grid.onKeyUp = [&kind] { showAfterEffect(kind); };
  if (!kind.ownsTab()) return;
  grid.onMouseDown = [](MouseButton button) {
    MenuItem* edit = form1().menuBar.find("edit_0");
    if (button == MouseButton::right && edit) desktop().popUpMenu(*edit);
  };
}

}  // namespace

void editCell(const MapKind& kind) {
  const Grid& grid = gridOf(kind);
  const std::optional<double> answer = askForNumber(grid, questionFor(kind));
  if (!answer) return;
  const double value = limited(*answer, kind.rules());
  editorState.cellValue = roundToLong(value);
  MapCells(kind).set(grid.row(), grid.column(), editorState.cellValue, enteredColour(kind, value));
  showAfterEffect(kind);
  nameStep({"入力", "entry"}, decimalText(editorState.cellValue));
}

void stepSelection(const MapKind& kind, char32_t key, int times) {
  onStepKeys(key, [&](int direction) {
    stepCells(kind, direction, times);
    if (!followsAtRelease(kind)) showAfterEffect(kind);
  });
}

void stepCoarselyUp() { stepCoarsely(1); }

void stepCoarselyDown() { stepCoarsely(-1); }

void followCoarseKeys(MenuItem& row) {
  const bool up = row.name() == "coarse_up";
  const std::string& key = up ? editorState.plusKey : editorState.minusKey;
  const std::string caption = captioned(up ? Wording{"10 段階増やす", "Ten steps up"}
                                           : Wording{"10 段階減らす", "Ten steps down"});
  row.setCaption(key.empty() ? caption : caption + " (Ctrl " + key + ")");
}

void wireMapGrids() {
  for (const MapKind& kind : mapKinds()) wireMapGrid(kind);
}
