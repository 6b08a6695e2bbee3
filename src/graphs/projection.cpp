#include "graphs/projection.h"

#include <cmath>
#include <cstddef>

#include "platform/numbers.h"

namespace {

constexpr double baseline = 355;  // the y of row 0

double shift(std::int32_t step, int cells, float ratio) {
  const double divisor = ratio == 0 || std::isnan(ratio) ? 1 : static_cast<double>(ratio);
  return clampTo32Bits(static_cast<std::int64_t>(step) * cells) / divisor;
}

std::int32_t xOf(const Projection& projection, double dx, double dy) {
  return roundClamped(dx + projection.originX + dy * projection.direction);
}

std::int32_t yOf(double dy) { return roundClamped(baseline - dy); }

}  // namespace

CanvasPoint groundPoint(const Projection& projection, int column, int row) {
  const double dx = shift(projection.stepX, column, projection.ratioX);
  const double dy = shift(projection.stepY, row, projection.ratioY);
  return {xOf(projection, dx, dy), yOf(dy)};
}

Ground groundOf(const Projection& projection, int columns, int rows) {
  Ground ground;
  std::array<double, graphCells + 1> dx{};
  for (int column = 1; column <= columns; ++column) {
    dx[static_cast<std::size_t>(column)] = shift(projection.stepX, column, projection.ratioX);
  }
  for (int row = 1; row <= rows; ++row) {
    const auto r = static_cast<std::size_t>(row);
    const double dy = shift(projection.stepY, row, projection.ratioY);
    ground.y[r] = yOf(dy);
    for (std::size_t c = 1; c <= static_cast<std::size_t>(columns); ++c) {
      ground.x[c][r] = xOf(projection, dx[c], dy);
    }
  }
  return ground;
}

std::int32_t raised(std::int32_t groundY, std::int32_t height) {
  return clampTo32Bits(static_cast<std::int64_t>(groundY) - height);
}
