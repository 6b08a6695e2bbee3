// Smoothing: the two passes over a selection in place.

#include "editing/smoothing.h"

#include <cmath>

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class Smoothing : public LoadedCarTest {
 protected:
  void apply(const std::string& threshold) {
    pick("smooth");
    typeOver(form10.Text1, threshold);
    form10.userEnter();
  }
};

// Of three by three cells only the middle of the top row and that of the left column may change.
TEST_F(Smoothing, WorkedExamples) {
  const std::tuple<const char*, int, int, int, const char*> table[] = {
      {"999999999999", 600, 601, -600, "600 255 601|0 7 7|-600 7 7"},
      {"120", 119, 120, 120, "119 7 120|7 7 7|120 7 7"},
      {"120", 10, 30, 50, "10 20 30|30 7 7|50 7 7"},
      {"120", 120, 119, 0, "120 7 119|7 7 7|0 7 7"},
      {"", 0, 0, 0, "0 7 0|7 7 7|0 7 7"},
      {"120", 3, 4, 2, "3 4 4|2 7 7|2 7 7"}};
  Grid& grid = form1().Grid1;
  for (const auto& [threshold, corner, right, below, expected] : table) {
    fill(grid, {{corner, 7, right}, {7, 7, 7}, {below, 7, 7}});
    drag(grid, 3, 3, 1, 1);
    apply(threshold);
    EXPECT_EQ(selected(grid), expected) << threshold;
  }
  EXPECT_EQ(grid.background(1, 2), cellColour(4));
  EXPECT_TRUE(desk.boxes.empty());
}

TEST_F(Smoothing, PropertyAnyThresholdOverAnySelection) {
  for (int trial = 0; trial < 400; ++trial) {
    auto [tab, grid, cells, block] = scrambleTab(randomByteTab());
    const int threshold = random(100, 550);
    // The rule: one pass along the rows and then one along the columns.
    for (const auto& [down, right] : {std::pair(0, 1), std::pair(1, 0)}) {
      for (int r = block.top; r <= block.bottom - 2; ++r) {
        for (int c = block.left; c <= block.right - 2; ++c) {
          const int a = cellOf(cells, r, c), b = cellOf(cells, r + 2 * down, c + 2 * right);
          if (std::max(a, b) >= threshold) continue;
          cellOf(cells, r + down, c + right) = std::min(int(std::lrint((a + b) / 2.0)), 255);
        }
      }
    }
    ASSERT_LE(repaintsOf(grid, [&] { apply(std::to_string(threshold)); }), 1);
    ASSERT_EQ(numbers(grid), cells) << "trial " << trial << " tab " << tab;
    ASSERT_EQ(grid.selection(), ordered(block));
  }
}

}  // namespace
