#include "changes/view_commands.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "controls/desktop.h"
#include "core/difference_list.h"
#include "core/differences.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "core/map_places.h"
#include "core/notices.h"

namespace {

constexpr const char* noticeSubject = "differences";

// A cell of a map, or a parameter's box.
struct Place : MapPlace {
  int row = 0;
  int column = 0;
};

bool bearsMark(const MapPlace& place) {
  if (place.param) return (form1().*place.param->box).mark() != Mark::none;
  const MarkedCells cells = markedCells(*place.map);
  return cells.differing + cells.unstorable > 0;
}

// Where the cursor is: on the control that has the focus, else on the map of the tab.
Place placeOfCursor() {
  const MapPlace focus = placeOfFocus();
  if (focus.param) return {focus};
  const bool inSight = focus.map && focus.map->tab == editorState.currentTab;
  const MapKind* const map = inSight ? focus.map : activeMap();
  if (!map) return {{nullptr, &paramKinds().front()}};
  return {{map}, gridOf(*map).row(), gridOf(*map).column()};
}

// The marked cell of the map next to `from`, counted row by row from `step` cells behind it; false
// at the grid's end.
bool findInMap(const MapKind& kind, std::int64_t from, int step, Place& found) {
  const Grid& grid = gridOf(kind);
  const std::int64_t count = std::int64_t{grid.rows()} * grid.columns();
  for (std::int64_t at = from; at >= 0 && at < count; at += step) {
    const auto row = static_cast<int>(at / grid.columns());
    const auto column = static_cast<int>(at % grid.columns());
    if (grid.mark(row, column) == Mark::none) continue;
    found = {{&kind}, row, column};
    return true;
  }
  return false;
}

bool findIn(const MapPlace& place, int step, Place& found) {
  if (!bearsMark(place)) return false;
  found = {place};
  if (place.param) return true;
  const Grid& grid = gridOf(*place.map);
  const std::int64_t last = std::int64_t{grid.rows()} * grid.columns() - 1;
  return findInMap(*place.map, step > 0 ? 0 : last, step, found);
}

// The next marked place behind the cursor's, or before it, round and round.
bool findNext(int step, Place& found) {
  const Place cursor = placeOfCursor();
  if (cursor.map) {
    const std::int64_t here =
        std::int64_t{cursor.row} * gridOf(*cursor.map).columns() + cursor.column;
    if (findInMap(*cursor.map, here + step, step, found)) return true;
  }
  const std::vector<MapPlace> places = placesByTab();
  const std::ptrdiff_t count = std::ssize(places);
  std::ptrdiff_t at =
      std::find(places.begin(), places.end(), static_cast<const MapPlace&>(cursor)) -
      places.begin();
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    at = (at + step + count) % count;
    if (findIn(places[static_cast<std::size_t>(at)], step, found)) return true;
  }
  return false;
}

void goTo(const Place& place) {
  if (place.map) return showCell(*place.map, place.row, place.column);
  showTab(globalTab);
  (form1().*place.param->box).setFocus();
}

void step(int direction) {
  Place found;
  if (findNext(direction, found)) return goTo(found);
  tellNotice(
      {noticeSubject, NoticeKind::information, {"相違するセルはありません。", "No cell differs."}});
}

// As many whole rows of 16 as the stretch needs and the image has.
void offerToAddressEditor(const Difference& difference) {
  constexpr std::int64_t rowBytes = 16;
  const std::int64_t size = editorState.imageSize;
  const std::int64_t bytes = difference.to + 1 - difference.from;
  const std::int64_t columns = std::min({rowBytes, bytes, size});
  const std::int64_t rows = std::min((bytes + columns - 1) / columns, size / columns);
  editorState.addressEditStart =
      static_cast<std::int32_t>(std::min(difference.from, size - rows * columns));
  editorState.addressEditColumns = static_cast<std::int32_t>(columns);
  editorState.addressEditRows = static_cast<std::int32_t>(rows);
  form1().menuBar.find("ADR_EDIT")->userPick();
}

void compare(Against which) {
  compareWith(which);
  withdrawNotice(noticeSubject);
}

}  // namespace

void compareWithNothing() { compare(Against::nothing); }

void compareWithFile() { compare(Against::file); }

void compareWithComparison() { compare(Against::comparison); }

void followReference(MenuItem& row) {
  const std::pair<const char*, Against> rows[] = {{"against_nothing", Against::nothing},
                                                  {"against_file", Against::file},
                                                  {"against_comparison", Against::comparison}};
  for (const auto& [name, which] : rows) {
    if (row.name() == name) row.setChecked(comparedWith() == which);
  }
  if (row.name() == "against_comparison") row.setEnabled(editorState.compareLoaded > 0);
}

void nextDifference() { step(1); }

void lastDifference() { step(-1); }

void goToDifference(const Difference& difference) {
  if (difference.isOutside()) return offerToAddressEditor(difference);
  Place place{{difference.map, difference.param}};
  if (place.map && !findIn(place, 1, place)) return;
  goTo(place);
  desktop().bringToFront(form1());
}
