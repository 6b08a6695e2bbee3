// The maps and parameters of an address map as tables: what each is called in files, where it
// stands on the main window and what kind of numbers it holds.
#pragma once

#include <array>

#include "core/map_entries.h"

class Frame;
class Grid;
class Label;
class TextBox;
struct Form1;

// What kinds of cells a map has.
enum class MapFamily { main, airflow, tpScale, rpmScale, limitRow, additional };

// One row for each map: its keyword in address map files, its grid, where its caption goes, its tab
// (0: none), and whether the file's scale line counts.
struct MapKind {
  MapId id;
  const char* keyword;
  Grid Form1::*grid;
  MapFamily family;
  Frame Form1::*frame;  // null: the caption goes to `label`, or nowhere
  Label Form1::*label;
  int tab;
  bool scaled() const { return family == MapFamily::rpmScale || family == MapFamily::additional; }
};

const std::array<MapKind, mapCount>& mapKinds();
// The kind of `mapId`, null outside 1 to 21.
const MapKind* findMapKind(int mapId);
Grid& gridOf(const MapKind& kind);
// The map that tab 1 to 13 shows, null for tab 14.
const MapKind* mapKindOfTab(int tab);
// The grid of `currentTab`, null on tab 14.
Grid* activeGrid();

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
