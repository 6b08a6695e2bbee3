#include "core/shown_values.h"

#include "rom/map_values.h"

int storedIn(const RomImage& image, const MapKind& kind, std::int64_t address) {
  return storedIn(image, kind.cellBytes(), address);
}
