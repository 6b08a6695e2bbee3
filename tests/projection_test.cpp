// The projection and the pictures of the 3D graph in plain numbers.
#include "graphs/projection.h"

#include <gtest/gtest.h>

#include <limits>

#include "graphs/surface_picture.h"

namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

TEST(Projection, PutsCellsOnTheGroundAndStaysInside32Bits) {
  const float none = std::numeric_limits<float>::quiet_NaN();
  const float endless = std::numeric_limits<float>::infinity();
  const struct {
    Projection projection;
    int column;
    int row;
    CanvasPoint expected;
  } cases[] = {
      {{30, 14, 1, 2, 40, 1}, 3, 2, {144, 341}},
      {{30, 14, 1, 2, 225, -1}, 3, 2, {301, 341}},
      {{30, 14, 0, 0, 40, 1}, 3, 2, {158, 327}},
      {{30, 14, none, none, 40, 1}, 3, 2, {158, 327}},
      {{30, 14, endless, endless, 40, 1}, 3, 2, {40, 355}},
      {{-30, -14, 1, 2, 40, 1}, 3, 2, {-64, 369}},
      // Ties go to the even number: 40.5 and 354.5, then 41.5 and 353.5.
      {{0, 1, 1, 2, 40, 1}, 1, 1, {40, 354}},
      {{0, 3, 1, 2, 40, 1}, 1, 1, {42, 354}},
      {{highest, highest, 1, 1, 40, 1}, 40, 40, {highest, lowest + 356}},
      {{lowest, lowest, 1, 1, 225, -1}, 40, 40, {225, highest}},
      {{1, 1, 1e-45F, 1e-45F, 225, -1}, 40, 40, {0, lowest}},
  };
  for (const auto& each : cases) {
    const CanvasPoint point = groundPoint(each.projection, each.column, each.row);
    const auto number = &each - cases;
    EXPECT_EQ(point.x, each.expected.x) << "case " << number;
    EXPECT_EQ(point.y, each.expected.y) << "case " << number;
  }
  EXPECT_EQ(raised(341, 100), 241);
  EXPECT_EQ(raised(355, lowest), highest);
  EXPECT_EQ(raised(-10, highest), lowest);
}

std::vector<Segment> wireOf(const GraphTable& x, const GraphTable& y, const SurfaceExtent& extent) {
  std::vector<Segment> picture(3);
  surfaceWire(x, y, extent, picture);
  return picture;
}

TEST(SurfacePicture, DrawsEachQuadAroundItsFourCells) {
  GraphTable x{};
  GraphTable y{};
  for (std::size_t column = 1; column <= 3; ++column) {
    for (std::size_t row = 1; row <= 2; ++row) {
      x[column][row] = static_cast<std::int32_t>(100 * column + row);
      y[column][row] = static_cast<std::int32_t>(10 * column + row);
    }
  }
  const std::vector<Segment> expected = {{101, 11, 201, 21}, {201, 21, 202, 22}, {202, 22, 102, 12},
                                         {102, 12, 101, 11}, {201, 21, 301, 31}, {301, 31, 302, 32},
                                         {302, 32, 202, 22}, {202, 22, 201, 21}};
  EXPECT_EQ(wireOf(x, y, {3, 2, 3, 6}), expected);
}

TEST(SurfacePicture, LeavesOutQuadsWithACellWithoutValue) {
  const struct {
    SurfaceExtent extent;
    std::size_t quads;
  } cases[] = {
      {{1, 1, 1, 1}, 0},         {{1, 9, 1, 9}, 0},          {{9, 1, 9, 9}, 0},
      {{0, 0, 0, 0}, 0},         {{40, 40, 40, 1600}, 1521}, {{4, 3, 4, 0}, 0},
      {{4, 3, 4, 5}, 0},         {{4, 3, 4, 6}, 1},          {{4, 3, 4, 8}, 3},
      {{4, 3, 4, 9}, 3},         {{4, 3, 4, 11}, 5},         {{4, 3, 4, 12}, 6},
      {{40, 16, 64, 1024}, 585}, {{40, 16, 64, 66}, 1},      {{40, 16, 64, 64 + 50}, 39},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(wireOf({}, {}, each.extent).size(), 4 * each.quads)
        << each.extent.columns << " x " << each.extent.rows << ", " << each.extent.held;
  }
}

TEST(SurfacePicture, FramesTheGroundThroughItsCorners) {
  const Projection projection{30, 14, 1, 2, 40, 1};
  const std::vector<Segment> expected = {
      {77, 348, 167, 348}, {167, 348, 181, 334}, {181, 334, 91, 334}, {91, 334, 77, 348}};
  EXPECT_EQ(groundFrame(projection, 4, 3), expected);
  EXPECT_EQ(groundFrame(projection, 1, 1), std::vector<Segment>(4, {77, 348, 77, 348}));
  EXPECT_TRUE(groundFrame(projection, 0, 3).empty());
}

}  // namespace
