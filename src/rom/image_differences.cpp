#include "rom/image_differences.h"

#include <algorithm>
#include <cstddef>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "rom/map_traits.h"

namespace {

constexpr std::int64_t bytesBetweenStretches = 16;
constexpr std::size_t mostStretches = 500;

struct Stretch {
  std::int64_t from;
  std::int64_t to;  // past the last byte
};

std::int64_t comparedBytes(const ComparedImages& images) {
  return std::min(std::ssize(images.former), std::ssize(images.now));
}

// What the address map names, by address.
std::vector<Stretch> namedStretches(const AddressMap& map) {
  std::vector<Stretch> named;
  for (const MapTraits& each : mapTraits) {
    const MapShape shape = shapeOf(map, each.id);
    named.push_back({shape.address, shape.end()});
  }
  for (const ParamEntry& entry : map.params) {
    if (entry.present())
      named.push_back({entry.address, std::int64_t{entry.address} + entry.bytes});
  }
  std::ranges::sort(named, {}, &Stretch::from);
  return named;
}

void addOutside(std::vector<ImageDifference>& list, const ComparedImages& images, Stretch gap) {
  bool open = false;
  auto at = static_cast<std::ptrdiff_t>(gap.from);
  const auto end = static_cast<std::ptrdiff_t>(gap.to);
  while (at < end) {
    const auto now = images.now.begin();
    at = std::mismatch(now + at, now + end, images.former.begin() + at).first - now;
    if (at == end) return;
    const bool joins =
        open && (at - list.back().to <= bytesBetweenStretches || list.size() >= mostStretches);
    if (!joins) {
      list.push_back({.from = at, .to = at});
      open = true;
    }
    list.back().to = at++;
    ++list.back().count;
  }
}

// 0 where a parameter shows no number.
std::int64_t numberOf(const ComparedImages& images, ParamId id, ImageView image) {
  std::int64_t number = 0;
  trapFailure(
      [&] { number = cellNumber(paramText(images.map, id, image).value_or(std::string())); });
  return number;
}

// How many bytes of two blocks are not the same; most often none.
std::int64_t differentInBlock(ImageView one, ImageView other) {
  if (std::ranges::equal(one, other)) return 0;
  std::int64_t count = 0;
  for (std::size_t i = 0; i < one.size(); ++i) count += one[i] != other[i];
  return count;
}

}  // namespace

bool differAt(const ComparedImages& images, std::int64_t address, std::int64_t bytes) {
  if (!holdsBytes(images.former, address, bytes) || !holdsBytes(images.now, address, bytes)) {
    return false;
  }
  const auto place = static_cast<std::ptrdiff_t>(address);
  const auto first = images.now.begin() + place;
  return !std::equal(first, first + static_cast<std::ptrdiff_t>(bytes),
                     images.former.begin() + place);
}

std::optional<ImageDifference> mapDifference(const ComparedImages& images, MapId id,
                                             std::int64_t cells) {
  const int cellBytes = traitsOf(id).cellBytes();
  ImageDifference found{.map = id};
  forEachDifferentCell(images, id, cells, [&](std::int64_t, std::int64_t address) {
    const auto shown = [&](ImageView image) {
      return std::int64_t{shownNumber(images.map, id, storedIn(image, cellBytes, address))};
    };
    const std::int64_t change = shown(images.now) - shown(images.former);
    if (found.count++ == 0) found.from = address;
    found.to = address + cellBytes - 1;
    found.up = std::max(found.up, change);
    found.down = std::min(found.down, change);
  });
  if (found.count == 0) return {};
  return found;
}

std::optional<ImageDifference> paramDifference(const ComparedImages& images, ParamId id) {
  const ParamEntry& entry = images.map.param(id);
  if (!entry.present() || !differAt(images, entry.address, entry.bytes)) return {};
  ImageDifference found{.param = id,
                        .from = entry.address,
                        .to = std::int64_t{entry.address} + entry.bytes - 1,
                        .count = 1};
  if (traitsOf(id).scaled()) {
    const std::int64_t change =
        numberOf(images, id, images.now) - numberOf(images, id, images.former);
    (change > 0 ? found.up : found.down) = change;
  }
  return found;
}

std::vector<ImageDifference> differencesOutside(const ComparedImages& images) {
  std::vector<ImageDifference> list;
  const std::int64_t size = comparedBytes(images);
  std::int64_t at = 0;
  std::vector<Stretch> named = namedStretches(images.map);
  named.push_back({size, size});
  for (const Stretch& each : named) {
    const std::int64_t end = std::clamp<std::int64_t>(each.from, at, size);
    addOutside(list, images, {at, end});
    at = std::clamp<std::int64_t>(std::max(at, each.to), 0, size);
  }
  return list;
}

std::vector<ImageDifference> imageDifferences(const ComparedImages& images) {
  std::vector<ImageDifference> list;
  for (const MapTraits& each : mapTraits) {
    if (const auto found = mapDifference(images, each.id)) list.push_back(*found);
  }
  for (const ParamTraits& each : paramTraits) {
    if (const auto found = paramDifference(images, each.id)) list.push_back(*found);
  }
  const std::vector<ImageDifference> outside = differencesOutside(images);
  list.insert(list.end(), outside.begin(), outside.end());
  return list;
}

std::int64_t differentBytes(ImageView one, ImageView other) {
  constexpr std::size_t blockBytes = 4096;
  const std::size_t common = std::min(one.size(), other.size());
  auto count = static_cast<std::int64_t>(std::max(one.size(), other.size()) - common);
  for (std::size_t from = 0; from < common; from += blockBytes) {
    const std::size_t size = std::min(blockBytes, common - from);
    count += differentInBlock(one.subspan(from, size), other.subspan(from, size));
  }
  return count;
}
