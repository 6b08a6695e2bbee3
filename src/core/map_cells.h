// The one door through which a value comes into a cell of a map: text, colour, and what is drawn
// again elsewhere. Headers and the boost rows are no cells. The image follows at the next
// write-back.
#pragma once

#include <cstdint>
#include <string_view>

#include "controls/colour.h"
#include "controls/grid.h"
#include "core/map_kinds.h"

// The background of a cell that shows `number`, by the rule of its map.
const Colour& colourOf(const MapKind& kind, std::int32_t number);

// `number` as far as the map's cells hold it: 0 to their limit, its fraction cut off.
std::int32_t limitedTo(const MapKind& kind, double number);

// The cells of one map. An absent map takes no values. A place outside the grid fails with
// badSubscript.
class MapCells {
 public:
  explicit MapCells(const MapKind& kind);
  const MapKind& kind() const { return kind_; }

  // The number that stands in a cell, read leniently.
  std::int32_t number(int row, int column) const;
  // The number's text, and its colour by the rule of the map.
  void set(int row, int column, std::int32_t number);
  // The same in another colour, for what paints by a rule of its own. A scale stays unpainted.
  void set(int row, int column, std::int32_t number, const Colour& colour);
  // The same as the first for a cell that shows another number; one that shows it already stays as
  // it is, colour included.
  void change(int row, int column, std::int32_t number);
  // A text that is no whole number, unpainted.
  void setText(int row, int column, std::string_view text);
  // Takes all texts and colours of the map's grid away, headers included.
  void clear();

 private:
  void put(int row, int column, std::string_view text, const Colour* colour);

  const MapKind& kind_;
  Grid& grid_;
  const bool present_;
  const bool painted_;
};

// Draws again what shows the map's cells elsewhere: the airflow view, the boost rows, or nothing.
void showAfterEffect(const MapKind& kind);
