#include "core/differences.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
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

namespace {

Against against = Against::file;
bool outdated = false;
constexpr const char* unstorableSubject = "unstorable";
std::array<MarkedCells, mapCount + 1> marked{};

MarkedCells& markedIn(const MapKind& kind) { return marked[static_cast<std::size_t>(kind.id)]; }

// Nothing where `image` doesn't hold all of them.
std::span<const std::uint8_t> bytesIn(const RomImage& image, std::int64_t address,
                                      std::size_t count) {
  const auto size = static_cast<std::int64_t>(image.size());
  if (address < 0 || address > size || static_cast<std::size_t>(size - address) < count) return {};
  return std::span(image).subspan(static_cast<std::size_t>(address), count);
}

// Of something that should be stored as `own` from `address` on.
Mark markOf(std::int64_t address, std::span<const std::uint8_t> own) {
  const auto pending = bytesIn(pendingImage.bytes(), address, own.size());
  if (pending.empty()) return Mark::none;
  if (!std::equal(own.begin(), own.end(), pending.begin())) return Mark::unstorable;
  const RomImage* const reference = referenceImage();
  if (!reference) return Mark::none;
  const auto former = bytesIn(*reference, address, own.size());
  const bool same = former.empty() || std::equal(own.begin(), own.end(), former.begin());
  return same ? Mark::none : Mark::differs;
}

Mark markOf(const StoredCells& cells, std::int64_t index) {
  if (!cells.drawn(index)) return Mark::none;
  const auto own = cells.bytesOf(index, cells.rowOf(index), cells.columnOf(index));
  if (!own) return Mark::unstorable;
  return markOf(cells.addressOf(index),
                std::span(own->bytes).first(static_cast<std::size_t>(own->count)));
}

void count(MarkedCells& cells, Mark mark, std::int32_t change) {
  if (mark == Mark::differs) cells.differing += change;
  if (mark == Mark::unstorable) cells.unstorable += change;
}

void markCell(const MapKind& kind, Grid& grid, const StoredCells& cells, std::int64_t index) {
  const int row = cells.rowOf(index);
  const int column = cells.columnOf(index);
  const Mark mark = markOf(cells, index);
  count(markedIn(kind), grid.mark(row, column), -1);
  count(markedIn(kind), mark, 1);
  grid.setMark(row, column, mark);
}

void markMap(const MapKind& kind) {
  Grid& grid = gridOf(kind);
  const GridPause pause(grid);
  const StoredCells cells(extentOf(kind));
  const std::int64_t count = std::min<std::int64_t>(
      cells.count(), editorState.cellsDrawn[static_cast<std::size_t>(kind.id)]);
  for (std::int64_t index = 0; index < count; ++index) markCell(kind, grid, cells, index);
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

// Names the first cell that stops its map's write-back.
void noticeUnstorable() {
  const auto stops = [](const MapKind& kind) {
    return pendingImage.firstRefused(kind).has_value();
  };
  const auto kind = std::find_if(mapKinds().begin(), mapKinds().end(), stops);
  if (kind == mapKinds().end()) return withdrawNotice(unstorableSubject);
  const auto [row, column] = *pendingImage.firstRefused(*kind);
  const std::string text = gridOf(*kind).text(row, column);
  const StoredCells cells(extentOf(*kind));
  const std::string place = addressText(cells.addressOf(cells.indexOf(row, column)));
  const std::string name = nameOf(*kind);
  tellNotice({unstorableSubject,
              NoticeKind::warning,
              {name + "、" + place + "の「" + text +
                   "」は保存できません。このマップのそれより後も保存されません。",
               name + ", " + place + ": \"" + text +
                   "\" can't be stored, and nothing behind it in this map will be saved."},
              {{{"移動", "Go there"},
                [kind, row = row, column = column] { showCell(*kind, row, column); }}}});
}

void noteTabs() {
  TabStrip& tabs = form1().TabStrip1;
  for (int tab = 1; tab <= tabs.count(); ++tab) tabs.setNote(tab, noteOf(markedOn(tab)));
}

void markAll() {
  outdated = false;
  pendingImage.rebuild();
  marked = {};
  for (const MapKind& kind : mapKinds()) {
    Grid& grid = gridOf(kind);
    const GridPause pause(grid);
    for (int row = 0; row < grid.rows(); ++row) {
      for (int column = 0; column < grid.columns(); ++column) {
        grid.setMark(row, column, Mark::none);
      }
    }
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
  for (const std::int32_t place : part.places) {
    const std::int64_t index = cells.indexOf(place / grid.columns(), place % grid.columns());
    if (index < 0) continue;
    if (!pendingImage.storeCell(kind, cells, index)) {
      return markMaps(pendingImage.storeAllAround(kind));
    }
    markCell(kind, grid, cells, index);
  }
}

}  // namespace

Against comparedWith() { return against; }

void compareWith(Against which) {
  against = which;
  differencesOutdated();
}

const RomImage* referenceImage() {
  if (editorState.imageSize == 0) return nullptr;
  switch (against) {
    case Against::file:
      return &editorState.savedImage;
    case Against::comparison:
      return editorState.compareLoaded > 0 ? &editorState.compareImage : nullptr;
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
  noteTabs();
  noticeUnstorable();
}

MarkedCells markedCells(const MapKind& kind) { return markedIn(kind); }

void resetDifferences() {
  against = Against::file;
  outdated = false;
  marked = {};
}
