// Going to a place of the main window, as the user would.
#pragma once

struct MapKind;

void showTab(int tab);
// The tab of the map, its cell selected alone, and the focus on it.
void showCell(const MapKind& kind, int row, int column);
