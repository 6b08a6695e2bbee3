// A map as a table for others: its cells with their colours, and its scales as first row and first
// column; and what is made of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/colour.h"
#include "controls/grid.h"
#include "controls/picture.h"
#include "core/map_kinds.h"

struct TableCell {
  std::string text;
  bool ofScale = false;
  std::optional<Colour> colour = {};  // as maps are shown now
};
using TableRow = std::vector<TableCell>;

struct MapTable {
  std::string title;
  std::vector<TableRow> rows;
};

// The cells that a map's entry holds, as far as its grid goes.
GridBlock storedBlock(const MapKind& kind);
// The cells of `block`; with the scales when that is the whole map. Of an empty block no rows.
MapTable tableOf(const MapKind& kind, const GridBlock& block);

// Whether the map has such a scale, and a scale's text; "" for none.
bool hasScale(const MapKind* scale);
std::string textOf(const ScaleCell& cell);

// Values alone, each row ended by a line feed.
std::string tabbedText(const MapTable& table);
// The same with commas and carriage returns, for files.
std::string csvText(const MapTable& table);
// How large a table is drawn; pixels.
struct TableSize {
  static constexpr int rowHeight = 20;
  int rows = 0;
  int columns = 0;
  int columnWidth = 0;
  int width() const { return columns * columnWidth; }
  int height() const { return rows * rowHeight; }
};
TableSize sizeOf(const MapTable& table);
// Its cells with scales and colours, from a point on.
void addCells(Picture& picture, const MapTable& table, int left, int top, int columnWidth);
// The table below its title.
Picture pictureOf(const MapTable& table);
// A table element.
std::string htmlTable(const MapTable& table);
