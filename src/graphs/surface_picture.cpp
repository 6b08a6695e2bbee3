#include "graphs/surface_picture.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

// A quad's corners in the order of drawing: near left, near right, far right, far left. Side k runs
// from corner k to the next.
using Corners = std::array<CanvasPoint, 4>;
constexpr std::size_t nearSide = 0;
constexpr std::size_t leftSide = 3;

void appendSide(std::vector<Segment>& picture, const Corners& corners, std::size_t side) {
  const CanvasPoint& from = corners[side];
  const CanvasPoint& to = corners[(side + 1) % corners.size()];
  picture.push_back({from.x, from.y, to.x, to.y});
}

void appendQuad(std::vector<Segment>& picture, const Corners& corners) {
  for (std::size_t side = 0; side < corners.size(); ++side) appendSide(picture, corners, side);
}

// How many cells of the row, counted from 1, have a value.
int cellsHeld(const SurfaceExtent& extent, int row) {
  const std::int64_t before = extent.stride * (row - 1);
  return static_cast<int>(std::clamp<std::int64_t>(extent.held - before, 0, extent.columns));
}

}  // namespace

void surfaceWire(const GraphTable& x, const GraphTable& y, const SurfaceExtent& extent,
                 std::vector<Segment>& picture) {
  picture.clear();
  const auto corner = [&](int column, int row) {
    const auto c = static_cast<std::size_t>(column);
    const auto r = static_cast<std::size_t>(row);
    return CanvasPoint{x[c][r], y[c][r]};
  };
  const auto quad = [&](int column, int row) {
    return Corners{corner(column, row), corner(column + 1, row), corner(column + 1, row + 1),
                   corner(column, row + 1)};
  };
  for (int row = 1; row < extent.rows; ++row) {
    const int held = cellsHeld(extent, row);
    const int heldBehind = cellsHeld(extent, row + 1);
    for (int column = 1; column < heldBehind; ++column) appendQuad(picture, quad(column, row));
    // Where the cells end: the sides between those that are there.
    for (int column = std::max(heldBehind, 1); column < held; ++column) {
      appendSide(picture, quad(column, row), nearSide);
      if (column == heldBehind) appendSide(picture, quad(column, row), leftSide);
    }
  }
}

std::vector<Segment> groundFrame(const Projection& projection, int columns, int rows) {
  std::vector<Segment> picture;
  if (columns < 1 || rows < 1) return picture;
  const auto corner = [&](int column, int row) { return groundPoint(projection, column, row); };
  appendQuad(picture, {corner(1, 1), corner(columns, 1), corner(columns, rows), corner(1, rows)});
  return picture;
}
