#include "graphs/projection.h"

#include <cmath>

#include "platform/numbers.h"

namespace {

constexpr double baseline = 355;  // the y of row 0

double shift(std::int32_t step, int cells, float ratio) {
  const double divisor = ratio == 0 || std::isnan(ratio) ? 1 : static_cast<double>(ratio);
  return clampTo32Bits(static_cast<std::int64_t>(step) * cells) / divisor;
}

}  // namespace

CanvasPoint groundPoint(const Projection& projection, int column, int row) {
  const double dx = shift(projection.stepX, column, projection.ratioX);
  const double dy = shift(projection.stepY, row, projection.ratioY);
  return {roundClamped(dx + projection.originX + dy * projection.direction),
          roundClamped(baseline - dy)};
}

std::int32_t raised(std::int32_t groundY, std::int32_t height) {
  return clampTo32Bits(static_cast<std::int64_t>(groundY) - height);
}
