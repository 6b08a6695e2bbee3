#include "core/map_places.h"

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"

std::vector<MapPlace> placesByTab() {
  std::vector<MapPlace> places;
  for (int tab = 1; tab <= globalTab; ++tab) {
    if (tab == globalTab) {
      for (const ParamKind& kind : paramKinds()) places.push_back({nullptr, &kind});
    }
    for (const MapKind& kind : mapKinds()) {
      if (kind.tab == tab) places.push_back({&kind});
    }
  }
  return places;
}

MapPlace placeOfFocus() {
  const Control* const focus = form1().focus();
  for (const MapPlace& place : placesByTab()) {
    const Control* const control =
        place.map ? static_cast<const Control*>(&gridOf(*place.map)) : &(form1().*place.param->box);
    if (control == focus) return place;
  }
  return {};
}

const MapKind* mapOfCursor() {
  const MapKind* const focus = placeOfFocus().map;
  const bool inSight = focus && focus->tab == editorState.currentTab;
  const MapKind* const map = inSight ? focus : activeMap();
  return map && entryOf(*map).present() ? map : nullptr;
}

void showTab(int tab) {
  if (editorState.currentTab != tab) form1().TabStrip1.userSelect(tab);
}

void showCell(const MapKind& kind, int row, int column) {
  showTab(kind.tab);
  Grid& grid = gridOf(kind);
  grid.setSelection({row, column, row, column});
  grid.setFocus();
}
