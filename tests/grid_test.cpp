// The grid record: the four corners of a selection, clip and resizing.
#include "controls/grid.h"

#include <gtest/gtest.h>

#include "controls/window.h"

namespace {

struct GridTest : testing::Test {
  GridTest() {
    window.load();
    for (int r = 0; r < grid.rows(); ++r) {
      for (int c = 0; c < grid.columns(); ++c) {
        grid.setText(r, c, std::to_string(r) + std::to_string(c));
      }
    }
  }

  Window window{"Form9"};
  Grid grid{window, 4, 5, 1, 1, Grid::Look{}};
};

TEST_F(GridTest, ADragIsKeptInsideTheDataCellsInAnyDirection) {
  const std::tuple<GridSelection, GridSelection, const char*> table[] = {
      {{2, 2, 1, 1}, {2, 2, 1, 1}, "11\t12\r21\t22"},
      {{0, 0, 1, 1}, {1, 1, 1, 1}, "11"},
      {{2, 1, 1, 2}, {2, 1, 1, 2}, "11\t12\r21\t22"},
      {{3, 4, 99, 99}, {3, 4, 3, 4}, "34"},
      {{-5, 3, 0, -7}, {1, 3, 1, 1}, "11\t12\t13"}};
  for (const auto& [drag, expected, clip] : table) {
    grid.userSelect(drag);
    EXPECT_TRUE(grid.selection() == expected) << clip;
    EXPECT_EQ(grid.clip(), clip);
  }
  grid.resize(1, 5);
  grid.userSelect({0, 0, 0, 3});
  EXPECT_EQ(grid.clip(), "01") << "no data cells, nothing to select";
}

TEST_F(GridTest, AWriteTellsItsOwnCell) {
  std::vector<std::pair<int, int>> told;
  grid.observer = [&](const Change& change) { told.emplace_back(change.row, change.column); };
  grid.setText(1, 3, "x");
  EXPECT_EQ(told, (std::vector{std::pair(1, 3)}));
}

TEST_F(GridTest, ResizingKeepsWhatLiesInBothSizes) {
  const std::tuple<int, int, GridSelection, const char*> table[] = {
      {4, 5, {1, 1, 1, 1}, "1011121314"}, {2, 3, {1, 1, 1, 1}, "101112"},
      {6, 2, {1, 1, 1, 1}, "1011"},       {2, 4, {1, 1, 1, 1}, "1011"},
      {1, 9, {0, 1, 0, 1}, ""},           {0, 0, {0, 0, 0, 0}, ""}};
  for (const auto& [rows, columns, selection, expected] : table) {
    grid.resize(rows, columns);
    EXPECT_TRUE(grid.selection() == selection) << rows;
    std::string texts;
    for (int c = 0; rows > 1 && c < columns; ++c) texts += grid.text(1, c);
    EXPECT_EQ(texts, expected) << rows << " x " << columns;
  }
}

}  // namespace
