#include "core/boost.h"

#include <string>

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "core/wording.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

constexpr float cycleConstant = 8640;
constexpr double loadPerTp = 0.125;
constexpr double injectionConstant = 60000;
constexpr double atmosphere = 1.035;  // kg/cm2

float quotient(double dividend, double divisor) {
  if (divisor == 0) throw Failure(divisionByZero);
  return static_cast<float>(dividend / divisor);
}

void showBoostRow(const MapKind& scale) {
  Grid& grid = gridOf(scale);
  const GridPause pause(grid);
  for (int c = 1; c <= columnsOf(entryOf(scale)); ++c) {
    grid.setText(0, c, formatFixed(boostFromTp(parseLong(grid.text(1, c))), 2));
  }
  grid.setText(0, 0, worded({"加給圧", "Boost"}));
}

}  // namespace

float boostFromTp(std::int32_t tp) {
  const auto load = static_cast<float>(tp * loadPerTp);
  const float perCylinder = quotient(editorState.displacement, editorState.cylinders);
  const float a = perCylinder / cycleConstant;
  const float b = quotient(a, editorState.injectorSize);
  const auto c = static_cast<float>(b * injectionConstant);
  const float ratio = quotient(load, c);
  return static_cast<float>(ratio * atmosphere - atmosphere);
}

void recalculateBoost() {
  trapFailure([] {
    for (const MapKind& kind : mapKinds()) {
      if (kind.rules().after == AfterEffect::boostRow) showBoostRow(kind);
    }
  });
}

void TP_BST_RECAL() {
  form1().Label13.setCaption("BOOST CALC.");
  form1().refresh();
  recalculateBoost();
  form1().Label13.setCaption("");
}
