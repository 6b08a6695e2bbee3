#include "core/shown_values.h"

#include "core/image_bytes.h"
#include "core/map_colours.h"
#include "platform/failure.h"

std::int32_t ShownValue::operator()(int stored) const {
  const std::int64_t shown = stored * scale_;
  if (shown != static_cast<std::int32_t>(shown)) throw Failure(overflow);
  return static_cast<std::int32_t>(shown);
}

int storedIn(const RomImage& image, const MapKind& kind, std::int64_t address) {
  const int high = byteOf(image, address);
  return kind.rules().cellBytes == 1 ? high : high * 256 + byteOf(image, address + 1);
}

void showStored(MapCells& cells, const ShownValue& shown, int row, int column, int stored) {
  // A scaled map is coloured by its bytes.
  if (cells.kind().scaled()) return cells.set(row, column, shown(stored), cellColour(stored));
  cells.set(row, column, shown(stored));
}
