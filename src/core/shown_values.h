// What the bytes of an image show as in a map's cells.
#pragma once

#include <cstdint>

#include "core/editor_state.h"
#include "core/map_cells.h"
#include "core/map_kinds.h"

// What stands for a stored number of the map: the number, or its product with the file's scale.
// Fails with overflow where that is no 32-bit number.
class ShownValue {
 public:
  explicit ShownValue(const MapKind& kind) : scale_(kind.scaled() ? entryOf(kind).scale : 1) {}
  std::int32_t operator()(int stored) const;

 private:
  std::int64_t scale_;
};

// The byte or word of a cell that an image holds at `address`, high byte first. Fails with
// badSubscript outside the image.
int storedIn(const RomImage& image, const MapKind& kind, std::int64_t address);

// Writes into a cell what a stored number shows as.
void showStored(MapCells& cells, const ShownValue& shown, int row, int column, int stored);
