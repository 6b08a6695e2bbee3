// The grid record: cells, the four corners of a selection, clip, resizing, and what is told to the
// screen.
#include "platform/grid.h"

#include <gtest/gtest.h>

#include "frontend/headless/headless_desktop.h"
#include "platform/failure.h"
#include "platform/window.h"

namespace {

std::string corners(const Grid& grid) {
  const GridSelection& s = grid.selection();
  return std::to_string(s.row) + "," + std::to_string(s.column) + " " + std::to_string(s.rowSel) +
         "," + std::to_string(s.columnSel);
}

class GridTest : public testing::Test {
 protected:
  GridTest() {
    useDesktop(&desk);
    window.load();
    for (int r = 0; r < grid.rows(); ++r) {
      for (int c = 0; c < grid.columns(); ++c) {
        grid.setText(r, c, std::to_string(r) + std::to_string(c));
      }
    }
    grid.observer = [this](const Change& change) { changes.push_back(change.kind); };
  }
  ~GridTest() override { useDesktop(nullptr); }
  std::vector<Change::Kind> taken() { return std::exchange(changes, {}); }

  HeadlessDesktop desk;
  Window window{"Form9"};
  Grid grid{window, 4, 5, 1, 1, Grid::Look{}};
  std::vector<Change::Kind> changes;
};

TEST_F(GridTest, MovingTheCurrentCellCollapsesTheSelection) {
  using Move = void (Grid::*)(int);
  const std::tuple<Move, int, const char*> table[] = {
      {&Grid::setRow, 2, "2,4 2,4"},    {&Grid::setColumn, 2, "3,2 3,2"},
      {&Grid::setRow, 0, "0,4 0,4"},    {&Grid::setRow, 3, "3,4 3,4"},
      {&Grid::setRowSel, 2, "3,4 2,1"}, {&Grid::setColumnSel, 0, "3,4 1,0"}};
  for (const auto& [move, index, expected] : table) {
    grid.setSelection({3, 4, 1, 1});
    (grid.*move)(index);
    EXPECT_EQ(corners(grid), expected);
  }
}

TEST_F(GridTest, AnIndexOutsideFailsAndChangesNothing) {
  grid.setSelection({2, 3, 1, 2});
  taken();
  for (const auto& [row, column] :
       {std::pair(4, 0), std::pair(-1, 0), std::pair(0, 5), std::pair(0, -1)}) {
    const std::function<void()> bad[] = {
        [&] {
          grid.setSelection({1, 1, row, column});
        },
        [&] { grid.setText(row, column, "x"); },
        [&] { grid.setCell(row, column, "x", white); },
        [&] { (void)grid.text(row, column); },
        [&] { row ? grid.setRow(row) : grid.setColumn(column); },
        [&] { row ? grid.setRowSel(row) : grid.setColumnSel(column); },
        [&] { row ? grid.setRowHeight(row, 1) : grid.setColumnWidth(column, 1); }};
    for (const auto& each : bad) EXPECT_EQ(trapFailure(each), badSubscript) << &each - bad;
  }
  for (const auto& [rows, columns] :
       {std::pair(-1, 1), std::pair(1024, 1025), std::pair(2147483647, 2147483647)}) {
    EXPECT_EQ(trapFailure([&] { grid.resize(rows, columns); }), badSubscript);
  }
  EXPECT_TRUE(taken().empty());
  EXPECT_EQ(corners(grid), "2,3 1,2");
  EXPECT_EQ(grid.rows() * 10 + grid.columns(), 45);
}

TEST_F(GridTest, ADragIsKeptInsideTheDataCellsInAnyDirection) {
  struct Row {
    GridSelection drag;
    const char* expected;
    const char* clip;
  };
  const Row table[] = {
      {{1, 1, 2, 2}, "1,1 2,2", "11\t12\r21\t22"}, {{2, 2, 1, 1}, "2,2 1,1", "11\t12\r21\t22"},
      {{2, 1, 1, 2}, "2,1 1,2", "11\t12\r21\t22"}, {{0, 0, 1, 1}, "1,1 1,1", "11"},
      {{3, 4, 99, 99}, "3,4 3,4", "34"},           {{-5, 3, 0, -7}, "1,3 1,1", "11\t12\t13"}};
  for (const Row& row : table) {
    grid.userSelect(row.drag);
    EXPECT_EQ(corners(grid), row.expected);
    EXPECT_EQ(grid.clip(), row.clip);
  }
  grid.resize(1, 5);
  grid.userSelect({0, 0, 0, 3});
  EXPECT_EQ(corners(grid), "0,1 0,1") << "no data cells, nothing to select";
}

TEST_F(GridTest, GesturesAreRefusedLikeAnyOther) {
  std::string done;
  grid.onDoubleClick = [&] { done += "d"; };
  grid.onKey = [&](char32_t key) { done += static_cast<char>(key); };
  grid.onKeyUp = [&] { done += "u"; };
  grid.onMouseDown = [&](MouseButton button) { done += button == MouseButton::right ? "r" : "l"; };
  const auto touch = [&] {
    grid.userSelect({2, 2, 3, 3});
    grid.userDoubleClick();
    grid.userKey(U'+');
    grid.userKeyUp();
    grid.userMouseDown(MouseButton::right);
  };
  grid.setEnabled(false);
  touch();
  grid.setEnabled(true);
  EXPECT_EQ(done + corners(grid), "1,1 1,1");
  touch();
  EXPECT_EQ(done + corners(grid), "d+ur2,2 3,3");
}

TEST_F(GridTest, WritesWhileRepaintingIsOffAreToldOnceWhenItGoesOn) {
  grid.setText(1, 1, "a");
  grid.setBackground(1, 1, white);
  grid.clear();
  EXPECT_EQ(taken(), (std::vector{Change::cell, Change::cell, Change::cells}));
  {
    const GridPause pause(grid);
    for (int r = 0; r < 4; ++r) grid.setCell(r, 2, "b", white);
    grid.clear();
    EXPECT_TRUE(taken().empty());
    grid.setRow(2);
    EXPECT_EQ(taken(), std::vector{Change::selection}) << "a view never shows a stale cell";
  }
  EXPECT_EQ(taken(), std::vector{Change::cells});
  { const GridPause pause(grid); }
  EXPECT_TRUE(taken().empty()) << "nothing was written";
}

TEST_F(GridTest, APausePutsBackWhatItFoundOnEveryPath) {
  for (const bool shown : {true, false}) {
    grid.setVisible(shown);
    const int number = trapFailure([this] {
      const GridPause outer(grid, GridPause::Hide::yes);
      const GridPause inner(grid);
      EXPECT_FALSE(grid.visible());
      throw Failure(overflow);
    });
    EXPECT_EQ(number, overflow);
    EXPECT_EQ(grid.visible(), shown);
    EXPECT_TRUE(grid.redraw());
  }
}

TEST_F(GridTest, ResizingKeepsWhatLiesInBothSizes) {
  struct Row {
    int rows, columns;
    const char* corner;  // the last cell that both sizes have
    const char* selection;
  };
  for (const Row& row :
       {Row{4, 5, "34", "1,1 1,1"}, Row{2, 3, "12", "1,1 1,1"}, Row{6, 2, "11", "1,1 1,1"},
        Row{1, 9, "01", "0,1 0,1"}, Row{0, 0, "", "0,0 0,0"}, Row{3, 3, "", "1,1 1,1"}}) {
    const int lastRow = std::min(row.rows, grid.rows()) - 1;
    const int lastColumn = std::min(row.columns, grid.columns()) - 1;
    const int oldRows = grid.rows();
    grid.resize(row.rows, row.columns);
    EXPECT_EQ(corners(grid), row.selection);
    EXPECT_EQ(lastRow < 0 ? "" : grid.text(lastRow, lastColumn), row.corner);
    for (int r = oldRows; r < row.rows; ++r) EXPECT_EQ(grid.text(r, 0), "");
  }
}

TEST_F(GridTest, OwnWidthsOutliveAResizeUntilAllAreSet) {
  grid.setColumnWidths(430);
  grid.setColumnWidth(0, 620);
  grid.setRowHeight(0, 194);
  grid.resize(9, 9);
  EXPECT_EQ(grid.columnWidth(0) + grid.columnWidth(8), 620 + 430);
  EXPECT_EQ(grid.rowHeight(0), 194);
  EXPECT_EQ(grid.rowHeight(1), Grid::designRowHeight);
  grid.setColumnWidths(550);
  EXPECT_EQ(grid.columnWidth(0), 550);
}

}  // namespace
