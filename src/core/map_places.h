// Going to a place of the main window, as the user would.
#pragma once

#include <vector>

struct MapKind;
struct ParamKind;

// A map or a parameter; neither: no place.
struct MapPlace {
  const MapKind* map = nullptr;
  const ParamKind* param = nullptr;
  bool operator==(const MapPlace&) const = default;
};

// All maps and parameters in the order of the tabs.
std::vector<MapPlace> placesByTab();
// What the main window's focus is on.
MapPlace placeOfFocus();

// The map or scale on which the commands of many cells work: the one with the focus, else the map
// of the tab. Null where the tab shows neither and for a map that the model lacks.
const MapKind* mapOfCursor();

void showTab(int tab);
// The tab of the map, its cell selected alone, and the focus on it.
void showCell(const MapKind& kind, int row, int column);
