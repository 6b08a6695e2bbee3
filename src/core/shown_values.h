// What the bytes of an image show as in a map's cells.
#pragma once

#include <cstdint>

#include "core/editor_state.h"
#include "core/map_cells.h"
#include "core/map_colours.h"
#include "core/map_kinds.h"
#include "platform/failure.h"

// What stands for a stored number of the map: the number, or its product with the file's scale.
// Fails with overflow where that is no 32-bit number.
class ShownValue {
 public:
  explicit ShownValue(const MapKind& kind)
      : scale_(kind.scaled() ? entryOf(kind).scale : 1), bytes_(kind.cellBytes() == 1) {}
  std::int32_t operator()(int stored) const {
    const std::int64_t shown = stored * scale_;
    if (shown != static_cast<std::int32_t>(shown)) throw Failure(overflow);
    return static_cast<std::int32_t>(shown);
  }
  bool ofBytes() const { return bytes_; }

 private:
  std::int64_t scale_;
  bool bytes_;
};

// The byte or word of a cell that an image holds at `address`, high byte first. Fails with
// badSubscript outside the image.
int storedIn(const RomImage& image, const MapKind& kind, std::int64_t address);

// Writes into a cell what a stored number shows as. A scaled map is coloured by its bytes.
inline void showStored(MapCells& cells, const ShownValue& shown, int row, int column, int stored) {
  shown.ofBytes() ? cells.set(row, column, shown(stored), cellColour(stored))
                  : cells.set(row, column, shown(stored));
}
