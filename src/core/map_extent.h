// Where and in which shape one map is drawn from the image or stored into it.
#pragma once

#include <cstdint>

#include "core/map_kinds.h"

struct MapExtent {
  const MapKind& kind;
  int columns;
  int rows;
  std::int64_t address;
  int bytes;  // the airflow map's length
};

// As the map's entry tells it.
inline MapExtent extentOf(const MapKind& kind) {
  const MapEntry& entry = entryOf(kind);
  return {kind, entry.columns, entry.rows, entry.address, entry.bytes};
}
