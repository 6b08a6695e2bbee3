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
  struct Row {
    const char* name;
    std::function<void(Grid&)> move;
    const char* expected;
  };
  const Row table[] = {{"row", [](Grid& g) { g.setRow(2); }, "2,4 2,4"},
                       {"column", [](Grid& g) { g.setColumn(2); }, "3,2 3,2"},
                       {"to a header", [](Grid& g) { g.setRow(0); }, "0,4 0,4"},
                       {"opposite row", [](Grid& g) { g.setRowSel(2); }, "3,4 2,1"},
                       {"opposite column", [](Grid& g) { g.setColumnSel(0); }, "3,4 1,0"},
                       {"the same row", [](Grid& g) { g.setRow(3); }, "3,4 3,4"}};
  for (const Row& row : table) {
    grid.setSelection({3, 4, 1, 1});
    row.move(grid);
    EXPECT_EQ(corners(grid), row.expected) << row.name;
  }
}

TEST_F(GridTest, AnIndexOutsideFailsAndChangesNothing) {
  const std::function<void(Grid&)> table[] = {[](Grid& g) { g.setRow(4); },
                                              [](Grid& g) { g.setRow(-1); },
                                              [](Grid& g) { g.setColumn(5); },
                                              [](Grid& g) { g.setColumnSel(-1); },
                                              [](Grid& g) { g.setRowSel(4); },
                                              [](Grid& g) {
                                                g.setSelection({1, 1, 1, 5});
                                              },
                                              [](Grid& g) { g.setText(4, 0, "x"); },
                                              [](Grid& g) { g.setCell(0, -1, "x", white); },
                                              [](Grid& g) { (void)g.text(0, 5); },
                                              [](Grid& g) { (void)g.background(-1, 0); },
                                              [](Grid& g) { g.setColumnWidth(5, 1); },
                                              [](Grid& g) { g.setRowHeight(-1, 1); },
                                              [](Grid& g) { g.resize(-1, 1); },
                                              [](Grid& g) { g.resize(1024, 1025); },
                                              [](Grid& g) { g.resize(2147483647, 2147483647); }};
  grid.setSelection({2, 3, 1, 2});
  taken();
  for (const auto& bad : table) {
    EXPECT_EQ(trapFailure([&] { bad(grid); }), badSubscript) << &bad - table;
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
  window.setEnabled(false);
  touch();
  window.setEnabled(true);
  desk.whileAsking = touch;
  desktop().showBox({});
  desk.whileAsking = nullptr;
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
