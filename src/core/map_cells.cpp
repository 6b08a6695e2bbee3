#include "core/map_cells.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

#include "core/airflow_view.h"
#include "core/boost.h"
#include "core/map_colours.h"
#include "platform/numbers.h"

namespace {

class NumberText {
 public:
  explicit NumberText(std::int64_t number)
      : end_(std::to_chars(digits_, digits_ + sizeof digits_, number).ptr) {}
  std::string_view view() const { return {digits_, static_cast<std::size_t>(end_ - digits_)}; }

 private:
  char digits_[24];
  char* end_;
};

}  // namespace

Colour colourOf(const MapKind& kind, std::int64_t number) {
  return kind.rules().colour == ColourRule::wordShade ? airflowCellColour(number)
                                                      : cellColour(number);
}

std::int32_t limitedTo(const MapKind& kind, double number) {
  return static_cast<std::int32_t>(std::clamp<double>(number, 0, kind.rules().limit));
}

MapCells::MapCells(const MapKind& kind)
    : kind_(kind),
      grid_(gridOf(kind)),
      present_(entryOf(kind).present()),
      painted_(kind.rules().colour != ColourRule::none) {}

std::int32_t MapCells::number(int row, int column) const {
  return cellNumber(grid_.text(row, column));
}

void MapCells::set(int row, int column, std::int64_t number) {
  set(row, column, number, colourOf(kind_, number));
}

void MapCells::set(int row, int column, std::int64_t number, Colour colour) {
  put(row, column, NumberText(number).view(), painted_ ? &colour : nullptr);
}

void MapCells::setText(int row, int column, std::string_view text) {
  put(row, column, text, nullptr);
}

void MapCells::clear() { grid_.clear(); }

void MapCells::put(int row, int column, std::string_view text, const Colour* colour) {
  if (!present_) return;
  if (colour) {
    grid_.setCell(row, column, text, *colour);
  } else {
    grid_.setText(row, column, text);
  }
}

void showAfterEffect(const MapKind& kind) {
  switch (kind.rules().after) {
    case AfterEffect::airflowView:
      return drawAirflowView(gridOf(kind), entryOf(kind).bytes);
    case AfterEffect::boostRow:
      return recalculateBoost();
    case AfterEffect::none:
      return;
  }
}
