// The maps and parameters of an address map as tables: what each is called in files, where it
// stands on the main window and what kind of numbers it holds.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/map_entries.h"

class Frame;
class Grid;
class Label;
class TextBox;
struct Form1;

// What kinds of cells a map has.
enum class MapFamily { main, airflow, tpScale, rpmScale, limitRow, additional };

// How a cell's background follows from its number.
enum class ColourRule { none, byteShade, wordShade };

// What is drawn again elsewhere once cells have changed.
enum class AfterEffect { none, airflowView, boostRow };

// What holds for every cell of a family: one row for each family.
struct CellRules {
  int cellBytes;            // in the image
  std::int32_t limit;       // the largest number that a cell takes
  std::int32_t entryBound;  // an entered number at or above it becomes `limit`
  std::int32_t stepLimit;   // where the step keys stop
  ColourRule colour;
  AfterEffect after;
  bool scaled;      // shown: the byte times the file's scale
  int columnWidth;  // twips
};

constexpr std::int32_t byteLimit = 255;
constexpr std::int32_t wordLimit = 65535;

constexpr int airflowTab = 5;
// The tab of the single parameters, which shows no one map.
constexpr int globalTab = 14;
constexpr MapId noMap{};

// One row for each map: its keyword in address map files, its grid, where its caption goes, the tab
// on whose panel it stands, and the scales that tell what its columns and rows stand for.
struct MapKind {
  MapId id;
  const char* keyword;
  Grid Form1::*grid;
  MapFamily family;
  Frame Form1::*frame;  // null: the caption goes to `label`, or nowhere
  Label Form1::*label;
  int tab;
  MapId loadScale = noMap;
  MapId speedScale = noMap;
  const CellRules& rules() const;
  bool scaled() const { return rules().scaled; }
  bool isScale() const { return family == MapFamily::tpScale || family == MapFamily::rpmScale; }
  // A tab shows it, and the commands of that tab work on it.
  bool ownsTab() const { return frame != nullptr; }
  bool countsProgress() const { return family != MapFamily::additional; }
  bool isByteMap() const { return ownsTab() && rules().cellBytes == 1; }
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

// One row for each parameter: its keyword, box and label, whether it is a scaled number, and
// whether its box is limited to the digits of its bytes.
struct ParamKind {
  ParamId id;
  const char* keyword;
  TextBox Form1::*box;
  Label Form1::*label;
  Label Form1::*unit;  // null for hexadecimal boxes
  bool limitedLength;
  bool scaled() const { return unit != nullptr; }
};

const std::array<ParamKind, paramCount>& paramKinds();
