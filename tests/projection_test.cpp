// The projection of the 3D graph in plain numbers.
#include "graphs/projection.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace {

using Numbers = std::numeric_limits<std::int32_t>;
constexpr std::int32_t lowest = Numbers::min(), highest = Numbers::max();

TEST(Projection, PutsCellsOnTheGroundAndStaysInside32Bits) {
  const float none = std::numeric_limits<float>::quiet_NaN();
  const float endless = std::numeric_limits<float>::infinity();
  const std::tuple<Projection, int, int, CanvasPoint> cases[] = {
      {{30, 14, 1, 2, 40, 1}, 3, 2, {144, 341}},
      {{30, 14, 1, 2, 225, -1}, 3, 2, {301, 341}},
      {{30, 14, none, none, 40, 1}, 3, 2, {158, 327}},
      {{30, 14, endless, endless, 40, 1}, 3, 2, {40, 355}},
      // Ties go to the even number: 40.5 and 354.5, then 41.5 and 353.5.
      {{0, 1, 1, 2, 40, 1}, 1, 1, {40, 354}},
      {{0, 3, 1, 2, 40, 1}, 1, 1, {42, 354}},
      {{highest, highest, 1, 1, 40, 1}, 40, 40, {highest, lowest + 356}},
      {{lowest, lowest, 1, 1, 225, -1}, 40, 40, {225, highest}},
      {{1, 1, 1e-45F, 1e-45F, 225, -1}, 40, 40, {0, lowest}},
  };
  for (const auto& [projection, column, row, expected] : cases) {
    const CanvasPoint point = groundPoint(projection, column, row);
    EXPECT_EQ(std::pair(point.x, point.y), std::pair(expected.x, expected.y));
  }
  EXPECT_EQ(raised(341, 100), 241);
  EXPECT_EQ(raised(355, lowest), highest);
  EXPECT_EQ(raised(-10, highest), lowest);
}

}  // namespace
