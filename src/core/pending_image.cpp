#include "core/pending_image.h"

#include <algorithm>
#include <numeric>

#include "core/map_extent.h"
#include "core/stored_bytes.h"
#include "platform/failure.h"
#include "rom/image_differences.h"
#include "rom/map_values.h"

PendingImage pendingImage;

namespace {

constexpr std::size_t firstParam = mapCount;
constexpr std::int64_t nowhere = -1;

std::size_t entryNumber(const MapKind& kind) { return static_cast<std::size_t>(kind.id - 1); }

ByteStretch stretchOfEntry(std::size_t entry) {
  return entry < firstParam ? stretchOf(mapKinds()[entry])
                            : stretchOf(paramKinds()[entry - firstParam]);
}

}  // namespace

void PendingImage::joinGroups(std::size_t one, std::size_t other) {
  const std::size_t from = groups_[other];
  const std::size_t to = groups_[one];
  std::replace(groups_.begin(), groups_.end(), from, to);
}

void PendingImage::formGroups() {
  std::iota(groups_.begin(), groups_.end(), std::size_t{0});
  std::array<ByteStretch, mapCount + paramCount> stretches;
  for (std::size_t i = 0; i < stretches.size(); ++i) {
    stretches[i] = stretchOfEntry(i);
    if (i > firstParam) joinGroups(firstParam, i);
  }
  for (std::size_t i = 0; i < stretches.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const ByteStretch& one = stretches[i];
      const ByteStretch& other = stretches[j];
      if (std::max(one.from, other.from) < std::min(one.to, other.to)) joinGroups(i, j);
    }
  }
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    alone_[i] = std::count(groups_.begin(), groups_.end(), groups_[i]) == 1;
  }
}

std::vector<const MapKind*> PendingImage::mapsOf(std::size_t group) const {
  std::vector<const MapKind*> maps;
  for (const MapKind& kind : mapKinds()) {
    if (groups_[entryNumber(kind)] == group && entryOf(kind).present()) maps.push_back(&kind);
  }
  return maps;
}

void PendingImage::put(std::int64_t address, std::uint8_t byte) {
  const auto place = static_cast<std::size_t>(address);
  std::uint8_t& target = bytes_[place];
  if (target == byte) return;
  if (place < editorState.savedImage.size()) {
    const std::uint8_t saved = editorState.savedImage[place];
    unsaved_ += (byte != saved) - (target != saved);
  }
  target = byte;
}

void PendingImage::storeMap(const MapKind& kind) {
  const StoredCells cells(extentOf(kind));
  const auto store = [&](std::int64_t index, int row, int column) {
    const auto stored = cells.bytesOf(index, row, column);
    const std::int64_t address = cells.addressOf(index);
    if (!stored || !holdsBytes(bytes_, address, 1)) return false;
    put(address, stored->bytes[0]);
    if (stored->count == 1) return true;
    if (!holdsBytes(bytes_, address, 2)) return false;
    put(address + 1, stored->bytes[1]);
    return true;
  };
  const std::int64_t stop = cells.visit(store);
  stopsAt_[static_cast<std::size_t>(kind.id)] = stop;
  const bool refused = cells.drawn(stop) && stop < cells.count() &&
                       !cells.bytesOf(stop, cells.rowOf(stop), cells.columnOf(stop));
  refusesAt_[static_cast<std::size_t>(kind.id)] = refused ? stop : nowhere;
}

void PendingImage::storeAllParams() {
  trapFailure([this] {
    for (const ParamKind& kind : paramKinds()) {
      const ParamEntry& entry = editorState.addressMap.param(kind.id);
      if (entry.present() && !holdsBytes(bytes_, entry.address, entry.bytes))
        throw Failure(badSubscript);
      std::int64_t address = entry.address;
      for (const std::uint8_t byte : storedBytesOf(kind)) {
        put(address++, byte);
      }
    }
  });
}

void PendingImage::storeGroup(std::size_t group) {
  for (std::size_t entry = 0; entry < groups_.size(); ++entry) {
    if (groups_[entry] != group) continue;
    const ByteStretch stretch = stretchOfEntry(entry);
    const auto size = static_cast<std::int64_t>(bytes_.size());
    for (auto at = std::clamp<std::int64_t>(stretch.from, 0, size); at < std::min(stretch.to, size);
         ++at) {
      put(at, editorState.image[static_cast<std::size_t>(at)]);
    }
  }
  for (const MapKind* kind : mapsOf(group)) storeMap(*kind);
  if (groups_[firstParam] == group) storeAllParams();
}

void PendingImage::rebuild() {
  drawn_ = editorState.cellsDrawn;
  shown_ = editorState.paramShown;
  bytes_ = editorState.image;
  formGroups();
  stopsAt_.fill(0);
  refusesAt_.fill(nowhere);
  for (const MapKind& kind : mapKinds()) {
    if (entryOf(kind).present()) storeMap(kind);
  }
  storeAllParams();
  unsaved_ = differentBytes(bytes_, editorState.savedImage);
}

bool PendingImage::isInForce() const {
  return drawn_ == editorState.cellsDrawn && shown_ == editorState.paramShown &&
         bytes_.size() == editorState.image.size();
}

bool PendingImage::storeCell(const MapKind& kind, std::int64_t index, std::int64_t address,
                             const std::optional<StoredBytes>& stored) {
  const std::int64_t stop = stopsAt_[static_cast<std::size_t>(kind.id)];
  if (!alone_[entryNumber(kind)] || index == stop || (index < stop && !stored)) return false;
  if (index > stop) return true;
  for (int i = 0; i < stored->count; ++i) {
    put(address + i, stored->bytes[static_cast<std::size_t>(i)]);
  }
  return true;
}

std::vector<const MapKind*> PendingImage::storeAllAround(const MapKind& kind) {
  const std::size_t group = groups_[entryNumber(kind)];
  storeGroup(group);
  return mapsOf(group);
}

std::vector<const MapKind*> PendingImage::storeParams() {
  storeGroup(groups_[firstParam]);
  return mapsOf(groups_[firstParam]);
}

bool PendingImage::holdsEachCellOf(const MapKind& kind, const StoredCells& cells) const {
  return alone_[entryNumber(kind)] && stopsAt_[static_cast<std::size_t>(kind.id)] == cells.count();
}

std::optional<std::int64_t> PendingImage::firstRefused(const MapKind& kind) const {
  const std::int64_t index = refusesAt_[static_cast<std::size_t>(kind.id)];
  if (index == nowhere) return {};
  return index;
}
