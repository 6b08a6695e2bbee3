#include "core/differences.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "controls/grid.h"
#include "core/difference_list.h"
#include "core/form1.h"
#include "core/map_extent.h"
#include "core/map_places.h"
#include "core/notices.h"
#include "core/pending_image.h"
#include "core/step.h"
#include "core/stored_bytes.h"
#include "core/wording.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "rom/map_values.h"

namespace {

Against against = Against::file;
bool outdated = false;
std::uint64_t changes = 0;
RomImage state;
std::string stateName;
std::array<MarkedCells, mapCount + 1> marked{};
std::vector<MarkedCells> noted;  // by tab

constexpr const char* unstorableSubject = "unstorable";
struct RefusedCell {
  const MapKind* kind;
  std::int64_t index;
  std::string text;
  bool operator==(const RefusedCell&) const = default;
};
std::optional<RefusedCell> noticed;

MarkedCells& markedIn(const MapKind& kind) { return marked[static_cast<std::size_t>(kind.id)]; }

bool sameBytes(const RomImage& one, const RomImage& other, const ByteStretch& stretch) {
  const auto from = static_cast<std::ptrdiff_t>(stretch.from);
  const auto to = static_cast<std::ptrdiff_t>(stretch.to);
  return holdsBytes(one, from, to - from) && holdsBytes(other, from, to - from) &&
         std::equal(one.begin() + from, one.begin() + to, other.begin() + from);
}

// Of few bytes, most often one.
bool standsIn(const RomImage& image, std::int64_t address, std::span<const std::uint8_t> bytes) {
  std::size_t at = static_cast<std::size_t>(address);
  for (const std::uint8_t byte : bytes) {
    if (image[at++] != byte) return false;
  }
  return true;
}

// Of something that should be stored as `own` from `address` on.
Mark markOf(std::int64_t address, std::span<const std::uint8_t> own) {
  const std::int64_t count = std::ssize(own);
  if (own.empty() || !holdsBytes(pendingImage.bytes(), address, count)) return Mark::none;
  if (!standsIn(pendingImage.bytes(), address, own)) return Mark::unstorable;
  const RomImage* const reference = referenceImage();
  if (!reference || !holdsBytes(*reference, address, count)) return Mark::none;
  return standsIn(*reference, address, own) ? Mark::none : Mark::differs;
}

Mark markOf(const StoredCells& cells, std::int64_t index, const std::optional<StoredBytes>& own) {
  if (!cells.drawn(index)) return Mark::none;
  if (!own) return Mark::unstorable;
  return markOf(cells.addressOf(index),
                std::span(own->bytes).first(static_cast<std::size_t>(own->count)));
}

void count(MarkedCells& cells, Mark mark, std::int32_t change) {
  if (mark == Mark::differs) cells.differing += change;
  if (mark == Mark::unstorable) cells.unstorable += change;
}

void markCell(MarkedCells& sums, Grid& grid, int row, int column, Mark mark) {
  const Mark former = grid.mark(row, column);
  if (former == mark) return;
  count(sums, former, -1);
  count(sums, mark, 1);
  grid.setMark(row, column, mark);
}

void clearMarks(const MapKind& kind) {
  MarkedCells& sums = markedIn(kind);
  if (sums == MarkedCells{}) return;
  sums = {};
  gridOf(kind).clearMarks();
}

// Of a map whose bytes tell all that its texts tell.
void markByBytes(const MapKind& kind, const StoredCells& cells) {
  const RomImage* const reference = referenceImage();
  const ByteStretch all{cells.addressOf(0), cells.addressOf(cells.count())};
  if (!reference || sameBytes(*reference, pendingImage.bytes(), all)) {
    return clearMarks(kind);
  }
  MarkedCells& sums = markedIn(kind);
  Grid& grid = gridOf(kind);
  const std::int64_t bytes = cells.cellBytes();
  cells.visit([&](std::int64_t index, int row, int column) {
    const std::int64_t at = cells.addressOf(index);
    const bool same = !holdsBytes(*reference, at, bytes) ||
                      sameBytes(*reference, pendingImage.bytes(), {at, at + bytes});
    markCell(sums, grid, row, column, same ? Mark::none : Mark::differs);
    return true;
  });
}

void markMap(const MapKind& kind) {
  Grid& grid = gridOf(kind);
  const GridPause pause(grid);
  const StoredCells cells(extentOf(kind));
  if (pendingImage.holdsEachCellOf(kind, cells)) return markByBytes(kind, cells);
  MarkedCells& sums = markedIn(kind);
  cells.visit([&](std::int64_t index, int row, int column) {
    if (!cells.drawn(index)) return false;
    markCell(sums, grid, row, column, markOf(cells, index, cells.bytesOf(index, row, column)));
    return true;
  });
}

void markParams() {
  for (const ParamKind& kind : paramKinds()) {
    Mark mark = Mark::unstorable;
    trapFailure(
        [&] { mark = markOf(editorState.addressMap.param(kind.id).address, storedBytesOf(kind)); });
    (form1().*kind.box).setMark(mark);
  }
}

MarkedCells markedOn(int tab) {
  MarkedCells sum;
  for (const MapKind& kind : mapKinds()) {
    if (kind.tab != tab) continue;
    sum.differing += markedIn(kind).differing;
    sum.unstorable += markedIn(kind).unstorable;
  }
  if (tab != globalTab) return sum;
  for (const ParamKind& kind : paramKinds()) count(sum, (form1().*kind.box).mark(), 1);
  return sum;
}

std::string noteOf(const MarkedCells& cells) {
  const auto line = [](std::int32_t number, const Wording& words) {
    return number > 0 ? captioned(words) + decimalText(number) : std::string();
  };
  const std::string differing = line(cells.differing, {"相違: ", "Different: "});
  const std::string unstorable = line(cells.unstorable, {"保存できない値: ", "Not storable: "});
  return differing + (differing.empty() || unstorable.empty() ? "" : ", ") + unstorable;
}

// Names the first cell that stops its map's write-back; the same one once, also when the user has
// closed the notice.
void noticeUnstorable() {
  const auto stops = [](const MapKind& kind) {
    return pendingImage.firstRefused(kind).has_value();
  };
  const auto kind = std::find_if(mapKinds().begin(), mapKinds().end(), stops);
  if (kind == mapKinds().end()) {
    if (!noticed) return;
    noticed.reset();
    return withdrawNotice(unstorableSubject);
  }
  const std::int64_t index = *pendingImage.firstRefused(*kind);
  const StoredCells cells(extentOf(*kind));
  const int row = cells.rowOf(index);
  const int column = cells.columnOf(index);
  const std::string text = gridOf(*kind).text(row, column);
  const RefusedCell refused{&*kind, index, text};
  if (noticed == refused) return;
  noticed = refused;
  const std::string place = addressText(cells.addressOf(index));
  const std::string name = nameOf(*kind);
  tellNotice({unstorableSubject,
              NoticeKind::warning,
              {name + "、" + place + "の「" + text +
                   "」は保存できません。このマップのそれより後も保存されません。",
               name + ", " + place + ": \"" + text +
                   "\" can't be stored, and nothing behind it in this map will be saved."},
              {{{"移動", "Go there"}, [kind, row, column] { showCell(*kind, row, column); }}}});
}

void noteTabs() {
  TabStrip& tabs = form1().TabStrip1;
  noted.resize(static_cast<std::size_t>(tabs.count()) + 1);
  for (int tab = 1; tab <= tabs.count(); ++tab) {
    const MarkedCells now = markedOn(tab);
    MarkedCells& before = noted[static_cast<std::size_t>(tab)];
    if (now == before) continue;
    before = now;
    tabs.setNote(tab, noteOf(now));
  }
}

void markAll() {
  outdated = false;
  pendingImage.rebuild();
  for (const MapKind& kind : mapKinds()) {
    const GridPause pause(gridOf(kind));
    clearMarks(kind);
    if (entryOf(kind).present()) markMap(kind);
  }
  markParams();
}

void markMaps(const std::vector<const MapKind*>& maps) {
  for (const MapKind* kind : maps) markMap(*kind);
}

void followCells(const CellsOfStep& part) {
  const MapKind& kind = *part.kind;
  Grid& grid = gridOf(kind);
  const GridPause pause(grid);
  const StoredCells cells(extentOf(kind));
  MarkedCells& sums = markedIn(kind);
  for (const std::int32_t number : part.places) {
    const int row = number / grid.columns();
    const int column = number % grid.columns();
    const std::int64_t index = cells.indexOf(row, column);
    if (index < 0) continue;
    const auto own = cells.bytesOf(index, row, column);
    if (!pendingImage.storeCell(kind, index, cells.addressOf(index), own)) {
      return markMaps(pendingImage.storeAllAround(kind));
    }
    markCell(sums, grid, row, column, markOf(cells, index, own));
  }
}

}  // namespace

Against comparedWith() { return against; }

void compareWith(Against which) {
  against = which;
  differencesOutdated();
}

void compareWithState(RomImage bytes, std::string name) {
  state = std::move(bytes);
  stateName = std::move(name);
  compareWith(Against::state);
}

const std::string& comparedStateName() { return stateName; }

const RomImage* referenceImage() {
  if (editorState.imageSize == 0) return nullptr;
  switch (against) {
    case Against::file:
      return &editorState.savedImage;
    case Against::comparison:
      return editorState.compareLoaded > 0 ? &editorState.compareImage : nullptr;
    case Against::state:
      return &state;
    case Against::nothing:
      break;
  }
  return nullptr;
}

void differencesOutdated() { outdated = true; }

void followStep(const Step& step) {
  if (editorState.imageSize == 0 && !outdated) return;
  if (outdated || !step.bytes.empty() || !pendingImage.isInForce()) {
    markAll();
  } else if (step.empty()) {
    return;
  } else {
    for (const CellsOfStep& part : step.cells) followCells(part);
    if (!step.boxes.empty()) {
      markMaps(pendingImage.storeParams());
      markParams();
    }
  }
  ++changes;
  noteTabs();
  noticeUnstorable();
}

std::uint64_t changesOfDifferences() { return changes; }

MarkedCells markedCells(const MapKind& kind) { return markedIn(kind); }

void resetDifferences() {
  against = Against::file;
  state.clear();
  outdated = false;
  marked = {};
  noted.clear();
  noticed.reset();
}
