#include "core/rom_image.h"

#include <cstdint>
#include <vector>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/image_bytes.h"
#include "core/map_display.h"
#include "core/map_extent.h"
#include "core/map_kinds.h"
#include "core/progress.h"
#include "core/step.h"
#include "core/stored_bytes.h"
#include "platform/failure.h"

namespace {

// The cells in storing order; the first that can't be stored ends it.
void storeCells(const MapExtent& extent) {
  const StoredCells cells(extent);
  const bool counts = extent.kind.countsProgress();
  cells.visit([&](std::int64_t index, int row, int column) {
    const auto stored = cells.bytesOf(index, row, column);
    if (!stored) throw Failure(overflow);
    const std::int64_t address = cells.addressOf(index);
    setImageByte(address, stored->bytes[0]);
    if (stored->count > 1) setImageByte(address + 1, stored->bytes[1]);
    if (counts) countProgress();
    return true;
  });
}

void checkInsideImage(const ParamEntry& entry) {
  imageByte(entry.address);
  imageByte(std::int64_t{entry.address} + entry.bytes - 1);
}

void storeParam(const ParamKind& kind) {
  const ParamEntry& entry = editorState.addressMap.param(kind.id);
  if (!entry.present()) return;
  const std::vector<std::uint8_t> bytes = storedBytesOf(kind);
  if (bytes.empty()) return checkInsideImage(entry);
  std::int64_t place = entry.address;
  for (const std::uint8_t byte : bytes) setImageByte(place++, byte);
}

}  // namespace

void Set_Memory(int columns, int rows, int address, int bytes, int mapId) {
  const MapKind* kind = findMapKind(mapId);
  if (!kind) {
    return showUnknownMap({"Set_Memoryのパラメーターに例外がある。",
                           "There is an exception for a parameter of Set_Memory."});
  }
  int number = 0;
  {
    const GridPause pause(gridOf(*kind), GridPause::Hide::yes);
    const StepPause following;
    number = trapFailure([&] { storeCells({*kind, columns, rows, address, bytes}); });
  }
  if (number != 0) showRoutineError("SET_MEMORY");
}

void writeMapBack(int mapId) {
  const MapEntry& entry = editorState.addressMap.map(mapId);
  Set_Memory(entry.columns, entry.rows, entry.address, entry.bytes, mapId);
}

void ANY_SET_MEMORY() {
  const StepPause following;
  const int number = trapFailure([] {
    for (const ParamKind& kind : paramKinds()) storeParam(kind);
  });
  if (number != 0) showRoutineError("ANY_SET_MEMORY");
}

void writeBackAll() {
  const GridsPause pause;
  form1().refresh();
  for (const MapKind& kind : mapKinds()) {
    if (entryOf(kind).present()) writeMapBack(kind.id);
  }
  ANY_SET_MEMORY();
}
