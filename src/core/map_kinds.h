// The maps and parameters of an address map as tables: where each stands on the main window and
// what holds for its cells there.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "rom/map_entries.h"
#include "rom/map_traits.h"

class Frame;
class Grid;
class Label;
class TextBox;
struct Form1;

// How a cell's background follows from its number.
enum class ColourRule { none, byteShade, wordShade };

// What is drawn again elsewhere once cells have changed.
enum class AfterEffect { none, airflowView, boostRow };

// What holds for every cell of a family: one row for each family.
struct CellRules {
  std::int32_t limit;       // the largest number that a cell takes
  std::int32_t entryBound;  // an entered number at or above it becomes `limit`
  std::int32_t stepLimit;   // where the step keys stop
  ColourRule colour;
  AfterEffect after;
  int columnWidth;  // twips
};

constexpr int airflowTab = 5;
// The tab of the single parameters, which shows no one map.
constexpr int globalTab = 14;

// One row for each map: its grid, where its caption goes and the tab on whose panel it stands.
struct MapKind : MapTraits {
  Grid Form1::*grid;
  Frame Form1::*frame;  // null: the caption goes to `label`, or nowhere
  Label Form1::*label;
  int tab;
  const CellRules& rules() const;
  // A tab shows it, and the commands of that tab work on it.
  bool ownsTab() const { return frame != nullptr; }
  bool countsProgress() const { return family != MapFamily::additional; }
  bool isByteMap() const { return ownsTab() && cellBytes() == 1; }
};

const std::array<MapKind, mapCount>& mapKinds();
// The kind of `mapId`, null outside 1 to 21.
const MapKind* findMapKind(int mapId);
Grid& gridOf(const MapKind& kind);
const MapEntry& entryOf(const MapKind& kind);
// Its caption, or its keyword where it has none.
std::string nameOf(const MapKind& kind);
// The map that tab 1 to 13 shows, null for tab 14.
const MapKind* mapKindOfTab(int tab);
// The map of `currentTab` and its grid, null on tab 14.
const MapKind* activeMap();
Grid* activeGrid();

// The scales of a map, null where it has none.
const MapKind* loadScaleOf(const MapKind& map);
const MapKind* speedScaleOf(const MapKind& map);
// The load scale that stands beside the map of `tab`, null on all tabs but two.
const MapKind* loadScaleBeside(int tab);

// A cell of a scale's grid; `scale` is null where there is none.
struct ScaleCell {
  const MapKind* scale = nullptr;
  int row = 0;
  int column = 0;
};
// The cells that tell what a map's column and its row stand for, both counted as in its grid. Only
// cells that the scale's entry holds count.
ScaleCell loadCellOf(const MapKind& map, int column);
ScaleCell speedCellOf(const MapKind& map, int row);

// One row for each parameter: its box and label, and whether its box is limited to the digits of
// its bytes.
struct ParamKind : ParamTraits {
  TextBox Form1::*box;
  Label Form1::*label;
  Label Form1::*unit;  // null for hexadecimal boxes
  bool limitedLength;
};

const std::array<ParamKind, paramCount>& paramKinds();
