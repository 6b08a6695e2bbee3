#include "core/difference_list.h"

#include <algorithm>
#include <span>
#include <utility>

#include "core/differences.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/global_parameters.h"
#include "core/image_bytes.h"
#include "core/map_cells.h"
#include "core/map_extent.h"
#include "core/map_places.h"
#include "core/pending_image.h"
#include "core/shown_values.h"
#include "core/stored_bytes.h"
#include "core/wording.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

constexpr std::int64_t bytesBetweenStretches = 16;
constexpr std::size_t mostStretches = 500;

std::int64_t comparedBytes(const RomImage& reference) {
  return static_cast<std::int64_t>(std::min(reference.size(), pendingImage.bytes().size()));
}

bool differ(const RomImage& reference, std::int64_t address, int bytes) {
  if (address < 0 || address + bytes > comparedBytes(reference)) return false;
  const auto place = static_cast<std::ptrdiff_t>(address);
  const auto first = pendingImage.bytes().begin() + place;
  return !std::equal(first, first + bytes, reference.begin() + place);
}

// A cell with the numbers that are stored for it.
struct DifferentCell {
  std::int64_t address;
  int row;
  int column;
  int former;
  int now;
};

// Calls `tell` for each cell that differs.
template <class Tell>
void forEachCell(const MapKind& kind, const StoredCells& cells, Tell tell) {
  const RomImage* const reference = referenceImage();
  if (!reference || !entryOf(kind).present()) return;
  cells.visit([&](std::int64_t index, int row, int column) {
    if (!cells.drawn(index)) return false;
    const std::int64_t address = cells.addressOf(index);
    if (differ(*reference, address, cells.cellBytes())) {
      tell({address, row, column, storedIn(*reference, kind, address),
            storedIn(pendingImage.bytes(), kind, address)});
    }
    return true;
  });
}

void addMap(std::vector<Difference>& list, const MapKind& kind) {
  const StoredCells cells(extentOf(kind));
  const ShownValue shown(kind);
  Difference found{&kind};
  forEachCell(kind, cells, [&](const DifferentCell& cell) {
    const std::int64_t change = std::int64_t{shown(cell.now)} - shown(cell.former);
    if (found.count++ == 0) found.from = cell.address;
    found.to = cell.address + cells.cellBytes() - 1;
    found.up = std::max(found.up, change);
    found.down = std::min(found.down, change);
  });
  if (found.count > 0) list.push_back(found);
}

// "" where it shows none.
std::string shownParam(const ParamKind& kind, const RomImage& image) {
  std::string text;
  trapFailure([&] { text = paramText(kind, image).value_or(""); });
  return text;
}

void addParam(std::vector<Difference>& list, const ParamKind& kind, const RomImage& reference) {
  const ParamEntry& entry = editorState.addressMap.param(kind.id);
  if (!entry.present() || !differ(reference, entry.address, entry.bytes)) return;
  Difference found{nullptr, &kind, entry.address, std::int64_t{entry.address} + entry.bytes - 1, 1};
  if (kind.scaled()) {
    const std::int64_t change = std::int64_t{cellNumber(shownParam(kind, pendingImage.bytes()))} -
                                cellNumber(shownParam(kind, reference));
    (change > 0 ? found.up : found.down) = change;
  }
  list.push_back(found);
}

// What the address map names, by address.
std::vector<ByteStretch> namedStretches() {
  std::vector<ByteStretch> named;
  for (const MapKind& kind : mapKinds()) named.push_back(stretchOf(kind));
  for (const ParamKind& kind : paramKinds()) named.push_back(stretchOf(kind));
  std::sort(named.begin(), named.end(),
            [](const ByteStretch& a, const ByteStretch& b) { return a.from < b.from; });
  return named;
}

void addOutside(std::vector<Difference>& list, const RomImage& reference, ByteStretch gap,
                std::size_t& stretches) {
  const RomImage& now = pendingImage.bytes();
  bool open = false;
  auto at = static_cast<std::ptrdiff_t>(gap.from);
  const auto end = static_cast<std::ptrdiff_t>(gap.to);
  while (at < end) {
    at = std::mismatch(now.begin() + at, now.begin() + end, reference.begin() + at).first -
         now.begin();
    if (at == end) return;
    const bool joins =
        open && (at - list.back().to <= bytesBetweenStretches || stretches >= mostStretches);
    if (!joins) {
      list.push_back({nullptr, nullptr, at, at, 0});
      ++stretches;
      open = true;
    }
    list.back().to = at++;
    ++list.back().count;
  }
}

void addAllOutside(std::vector<Difference>& list, const RomImage& reference) {
  const std::int64_t size = comparedBytes(reference);
  std::int64_t at = 0;
  std::size_t stretches = 0;
  std::vector<ByteStretch> named = namedStretches();
  named.push_back({size, size});
  for (const ByteStretch& each : named) {
    const std::int64_t end = std::clamp<std::int64_t>(each.from, at, size);
    addOutside(list, reference, {at, end}, stretches);
    at = std::clamp<std::int64_t>(std::max(at, each.to), 0, size);
  }
}

std::string lineOf(const Difference& each) {
  std::string line = nameOf(each);
  if (!each.param) {
    line += ": " + std::to_string(each.count) +
            captioned(each.map ? Wording{"個のセル", " cell"} : Wording{"バイト", " byte"}) +
            captioned({"", each.count == 1 ? "" : "s"});
  }
  return line + ", " + addressText(each.from) + "-" + addressText(each.to);
}

std::string sizeText(const std::string& name, std::size_t bytes) {
  return name + ", " + std::to_string(bytes) + captioned({"バイト", " bytes"}) + "\r\n";
}

}  // namespace

std::vector<Difference> differences() {
  std::vector<Difference> list;
  const RomImage* const reference = referenceImage();
  if (!reference) return list;
  for (const MapPlace& place : placesByTab()) {
    place.map ? addMap(list, *place.map) : addParam(list, *place.param, *reference);
  }
  addAllOutside(list, *reference);
  return list;
}

void forEachPlace(const Difference& difference,
                  const std::function<void(const DifferentPlace&)>& tell) {
  const RomImage* const reference = referenceImage();
  if (!reference) return;
  if (difference.map) {
    const StoredCells cells(extentOf(*difference.map));
    const ShownValue shown(*difference.map);
    return forEachCell(*difference.map, cells, [&](const DifferentCell& cell) {
      tell({cell.address, decimalText(shown(cell.former)), decimalText(shown(cell.now)), cell.row,
            cell.column});
    });
  }
  if (difference.param) {
    return tell({difference.from, shownParam(*difference.param, *reference),
                 shownParam(*difference.param, pendingImage.bytes()), 0, 0});
  }
  for (std::int64_t at = difference.from; at <= difference.to; ++at) {
    const int former = byteOf(*reference, at);
    const int now = byteOf(pendingImage.bytes(), at);
    if (former != now) tell({at, hexDigits(former, 1), hexDigits(now, 1), 0, 0});
  }
}

void takeOver(const Difference& difference) {
  const RomImage* const reference = referenceImage();
  if (!reference) return;
  if (difference.map) {
    const MapKind& kind = *difference.map;
    MapCells target(kind);
    const StoredCells cells(extentOf(kind));
    const ShownValue shown(kind);
    const GridPause pause(gridOf(kind));
    forEachCell(kind, cells, [&](const DifferentCell& cell) {
      showStored(target, shown, cell.row, cell.column, cell.former);
    });
    showAfterEffect(kind);
  } else if (difference.param) {
    if (const auto text = paramText(*difference.param, *reference)) {
      (form1().*difference.param->box).setText(*text);
    }
  } else {
    const auto from = static_cast<std::size_t>(difference.from);
    const auto count = static_cast<std::size_t>(difference.to + 1 - difference.from);
    setImageBytes(difference.from, std::span(*reference).subspan(from, count));
  }
}

std::string nameOf(const Difference& difference) {
  if (difference.map) return nameOf(*difference.map);
  if (difference.param) return (form1().*difference.param->label).caption();
  return captioned({"アドレスマップの外", "Outside the address map"});
}

std::string referenceName() {
  if (comparedWith() == Against::state) return comparedStateName();
  return comparedWith() == Against::file ? captioned({"ファイル", "the file"})
                                         : editorState.compareTitle;
}

std::string addressText(std::int64_t address) { return "&H" + hexDigits(address, 2); }

std::string differenceReport() {
  const RomImage* const reference = referenceImage();
  if (!reference) return {};
  std::string text = sizeText(editorState.imageTitle, pendingImage.bytes().size()) +
                     sizeText(referenceName(), reference->size());
  for (const Difference& each : differences()) {
    text += "\r\n" + lineOf(each) + "\r\n";
    forEachPlace(each, [&text](const DifferentPlace& place) {
      text += "  " + addressText(place.address) + ": " + place.former + " -> " + place.now + "\r\n";
    });
  }
  return text;
}
