#include "core/map_cells.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "core/airflow_view.h"
#include "core/boost.h"
#include "core/map_colours.h"
#include "core/step.h"
#include "platform/numbers.h"

namespace {

// Nearly all cells hold a number of up to three digits: those texts are there once and for all.
struct ShortText {
  std::array<char, 3> digits;
  std::uint8_t length;
};

constexpr std::int32_t shortTextCount = 1000;

constexpr std::array<ShortText, shortTextCount> shortTexts = [] {
  std::array<ShortText, shortTextCount> texts{};
  for (int number = 0; number < shortTextCount; ++number) {
    ShortText& text = texts[static_cast<std::size_t>(number)];
    for (int part = 100; part > 0; part /= 10) {
      if (number < part && part > 1) continue;
      text.digits[text.length++] = static_cast<char>('0' + number / part % 10);
    }
  }
  return texts;
}();

}  // namespace

const Colour& colourOf(const MapKind& kind, std::int32_t number) {
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

void MapCells::set(int row, int column, std::int32_t number) {
  set(row, column, number, colourOf(kind_, number));
}

void MapCells::set(int row, int column, std::int32_t number, const Colour& colour) {
  const Colour* const background = painted_ ? &colour : nullptr;
  if (number < 0 || number >= shortTextCount) {
    return put(row, column, decimalText(number), background);
  }
  const ShortText& text = shortTexts[static_cast<std::size_t>(number)];
  put(row, column, {text.digits.data(), text.length}, background);
}

void MapCells::change(int row, int column, std::int32_t number) {
  if (bareNumber(grid_.text(row, column)) != number) set(row, column, number);
}

void MapCells::setText(int row, int column, std::string_view text) {
  put(row, column, text, nullptr);
}

void MapCells::clear() { grid_.clear(); }

void MapCells::put(int row, int column, std::string_view text, const Colour* colour) {
  if (!present_) return;
  if (stepNotes.on()) stepNotes.cell(kind_, row, column);
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
