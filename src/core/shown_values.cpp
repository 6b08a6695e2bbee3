#include "core/shown_values.h"

#include "core/image_bytes.h"

int storedIn(const RomImage& image, const MapKind& kind, std::int64_t address) {
  const int high = byteOf(image, address);
  return kind.cellBytes() == 1 ? high : high * 256 + byteOf(image, address + 1);
}
