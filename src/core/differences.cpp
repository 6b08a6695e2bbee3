#include "core/differences.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "core/difference_list.h"
#include "core/form1.h"
#include "core/image_bytes.h"
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

void markMap(const MapKind& kind) {
  Grid& grid = gridOf(kind);
  const GridPause pause(grid);
  const StoredCells cells(extentOf(kind));
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
    grid.clearMarks();
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
