#include "core/map_places.h"

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"

void showTab(int tab) {
  if (editorState.currentTab != tab) form1().TabStrip1.userSelect(tab);
}

void showCell(const MapKind& kind, int row, int column) {
  showTab(kind.tab);
  Grid& grid = gridOf(kind);
  grid.setSelection({row, column, row, column});
  grid.setFocus();
}
