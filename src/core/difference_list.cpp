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
#include "rom/image_differences.h"
#include "rom/map_values.h"

namespace {

ComparedImages comparedWithReference(const RomImage& reference) {
  return {editorState.addressMap, reference, pendingImage.bytes()};
}

// A cell with the numbers that are stored for it.
struct DifferentCell {
  std::int64_t address;
  int row;
  int column;
  int former;
  int now;
};

// Calls `tell` for each cell that differs, of those that are drawn.
template <class Tell>
void forEachCell(const MapKind& kind, const StoredCells& cells, Tell tell) {
  const RomImage* const reference = referenceImage();
  if (!reference) return;
  forEachDifferentCell(comparedWithReference(*reference), kind.id, cells.drawnCount(),
                       [&](std::int64_t cell, std::int64_t address) {
                         tell({address, cells.rowOf(cell), cells.columnOf(cell),
                               storedIn(*reference, cells.cellBytes(), address),
                               storedIn(pendingImage.bytes(), cells.cellBytes(), address)});
                       });
}

// "" where it shows none.
std::string shownParam(const ParamKind& kind, const RomImage& image) {
  std::string text;
  trapFailure([&] { text = paramText(kind, image).value_or(""); });
  return text;
}

Difference of(const ImageDifference& each) {
  return {each.map ? findMapKind(*each.map) : nullptr,
          each.param ? &paramKinds()[static_cast<std::size_t>(*each.param)] : nullptr,
          each.from,
          each.to,
          each.count,
          each.up,
          each.down};
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
  const ComparedImages images = comparedWithReference(*reference);
  for (const MapPlace& place : placesByTab()) {
    const auto found = place.map ? mapDifference(images, place.map->id,
                                                 StoredCells(extentOf(*place.map)).drawnCount())
                                 : paramDifference(images, place.param->id);
    if (found) list.push_back(of(*found));
  }
  for (const ImageDifference& each : differencesOutside(images)) list.push_back(of(each));
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
