// The pictures of the 3D graph as plain line segments in the order of drawing: the wire of a
// surface and the frame of its ground.
#pragma once

#include <cstdint>
#include <vector>

#include "graphs/projection.h"

struct Segment {
  std::int32_t x1 = 0;
  std::int32_t y1 = 0;
  std::int32_t x2 = 0;
  std::int32_t y2 = 0;
  bool operator==(const Segment&) const = default;
};

// The cells of a surface. `columns` and `rows` are shown, `stride` cells lie in a row of the map,
// and only the first `held` cells of the map, in reading order, have a value.
struct SurfaceExtent {
  int columns = 0;
  int rows = 0;
  std::int64_t stride = 0;
  std::int64_t held = 0;
};

// Four segments for each four neighbouring cells, without those that have an end in a cell without
// a value; inner edges come twice.
// `picture` is emptied first; a picture that is handed in again needs no new memory.
void surfaceWire(const GraphTable& x, const GraphTable& y, const SurfaceExtent& extent,
                 std::vector<Segment>& picture);
// Four segments through the corners of the ground; nothing for a map without cells.
std::vector<Segment> groundFrame(const Projection& projection, int columns, int rows);
