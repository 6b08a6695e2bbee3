// The grid record: cells, the four corners of a selection, clip, resizing, and what is told to the
// screen.
#include "platform/grid.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/window.h"

namespace {

struct GridTest : testing::Test {
  GridTest() {
    window.load();
    for (int r = 0; r < grid.rows(); ++r) {
      for (int c = 0; c < grid.columns(); ++c) {
        grid.setText(r, c, std::to_string(r) + std::to_string(c));
      }
    }
    grid.observer = [this](const Change& change) { changes.push_back(change.kind); };
  }
  std::vector<Change::Kind> told() { return std::exchange(changes, {}); }

  Window window{"Form9"};
  Grid grid{window, 4, 5, 1, 1, Grid::Look{}};
  std::vector<Change::Kind> changes;
};

TEST_F(GridTest, AnIndexOutsideFailsAndChangesNothing) {
  for (const auto& [row, column] :
       {std::pair(4, 0), std::pair(-1, 0), std::pair(0, 5), std::pair(0, -1)}) {
    const std::function<void()> bad[] = {
        [&] { grid.setSelection(GridSelection(1, 1, row, column)); },
        [&] { grid.setSelection(GridSelection(row, column, 1, 1)); },
        [&] { grid.setCell(row, column, "x", white); },
        [&] { row ? grid.setRow(row) : grid.setColumn(column); },
        [&] { row ? grid.setRowHeight(row, 1) : grid.setColumnWidth(column, 1); }};
    for (const auto& each : bad) EXPECT_EQ(trapFailure(each), badSubscript) << &each - bad;
  }
  for (const auto& [rows, columns] :
       {std::pair(-1, 1), std::pair(1024, 1025), std::pair(2147483647, 2147483647)}) {
    EXPECT_EQ(trapFailure([&] { grid.resize(rows, columns); }), badSubscript);
  }
  EXPECT_TRUE(told().empty());
}

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

TEST_F(GridTest, APauseTellsItsWritesAtItsEndEvenIfAFailureEndsIt) {
  EXPECT_EQ(trapFailure([this] {
              const GridPause outer(grid);
              { const GridPause inner(grid); }
              grid.setCell(2, 2, "b", white);
              EXPECT_TRUE(told().empty());
              throw Failure(overflow);
            }),
            overflow);
  EXPECT_EQ(told(), std::vector{Change::cells});
  EXPECT_TRUE(grid.visible() && grid.redraw());
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
