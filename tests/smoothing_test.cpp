// Smoothing: the dialog, and the two passes over a selection in place.

#include "editing/smoothing.h"

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class Smoothing : public MapToolsTest {
 protected:
  void apply(const std::string& threshold) {
    pick("smooth");
    typeOver(form10.Text1, threshold);
    form10.userEnter();
  }
};

TEST_F(Smoothing, TheThresholdTakesDigitsAloneAndStartsAnew) {
  loadCar();
  for (int opening = 0; opening < 2; ++opening) {
    pick("smooth");
    EXPECT_EQ(form10.Text1.text(), "120");
    form10.Text1.userType("-1.5x7");  // over the selected text
    EXPECT_EQ(form10.Text1.text(), "157");
    form10.userClose();
  }
}

TEST_F(Smoothing, WorkedExamples) {
  loadCar();
  struct Row {
    const char* threshold;
    Matrix cells;
    Matrix expected;
  };
  const Row table[] = {
      // The middle of the top row and the middle of the left column only.
      {"120",
       {{10, 99, 30}, {99, 99, 99}, {50, 99, 99}},
       {{10, 20, 30}, {30, 99, 99}, {50, 99, 99}}},
      {"120", {{100, 200, 100}, {0, 9, 0}, {0, 9, 0}}, {{100, 100, 100}, {50, 9, 0}, {0, 9, 0}}},
      {"120", {{3, 0, 4}, {9, 9, 9}, {2, 0, 0}}, {{3, 4, 4}, {2, 9, 9}, {2, 0, 0}}},
      {"120", {{119, 7, 120}, {7, 7, 7}, {120, 7, 7}}, {{119, 7, 120}, {7, 7, 7}, {120, 7, 7}}},
      {"", {{0, 7, 0}, {7, 7, 7}, {0, 7, 7}}, {{0, 7, 0}, {7, 7, 7}, {0, 7, 7}}},
      {"99999999999",
       {{600, 7, 601}, {7, 7, 7}, {-600, 7, 7}},
       {{600, 255, 601}, {0, 7, 7}, {-600, 7, 7}}},
  };
  for (const Row& row : table) {
    fill(form1().Grid1, Matrix(rows, std::vector<int>(columns, 5)));
    fill(form1().Grid1, row.cells);
    drag(form1().Grid1, static_cast<int>(row.cells.size()), static_cast<int>(row.cells[0].size()),
         1, 1);
    apply(row.threshold);
    Matrix corner = numbers(form1().Grid1);
    corner.resize(row.cells.size());
    for (auto& line : corner) line.resize(row.cells[0].size());
    EXPECT_EQ(corner, row.expected) << testing::PrintToString(row.cells);
  }
  EXPECT_TRUE(desk.boxes.empty());

  fill(form1().Grid1, {{10, 0, 30}, {0, 0, 0}, {0, 0, 0}});
  drag(form1().Grid1, 1, 1, 3, 3);
  apply("120");
  EXPECT_EQ(form1().Grid1.background(1, 2), cellColour(20));
}

int evenMean(int a, int b) {
  const int sum = a + b;
  return sum % 2 == 0 ? sum / 2 : (sum + 1) / 2 - (sum + 1) / 2 % 2;
}

// The rule for one pass over a block of a matrix: first along its rows, then along its columns.
void smoothPass(Matrix& cells, const GridBlock& block, int threshold, bool alongRows) {
  const int down = alongRows ? 0 : 1;
  const int right = alongRows ? 1 : 0;
  for (int r = block.top; r <= block.bottom - 2; ++r) {
    for (int c = block.left; c <= block.right - 2; ++c) {
      const int a = cellOf(cells, r, c);
      const int b = cellOf(cells, r + 2 * down, c + 2 * right);
      if (std::max(a, b) < threshold)
        cellOf(cells, r + down, c + right) = std::min(evenMean(a, b), 255);
    }
  }
}

TEST_F(Smoothing, PropertyAnyThresholdOverAnySelection) {
  loadCar();
  for (int trial = 0; trial < 400; ++trial) {
    int tab = random(1, 13);
    if (tab == airflowTab) tab = 1;
    selectTab(tab);
    Grid& grid = tabGrid(tab);
    Matrix expected = scramble(grid, tab == 7 ? 510 : 255);
    const GridBlock block = dragAtRandom(grid);
    const int threshold = random(100, 550);
    smoothPass(expected, block, threshold, true);
    smoothPass(expected, block, threshold, false);
    ASSERT_LE(repaintsOf(grid, [&] { apply(std::to_string(threshold)); }), 1);
    ASSERT_EQ(numbers(grid), expected) << "trial " << trial;
    ASSERT_EQ(grid.selection(), ordered(block));
  }
}

TEST_F(Smoothing, TabsWithoutAnEightBitMapAreRefusedOnlyAtOk) {
  loadCar();
  const Matrix airflow = numbers(form1().Grid5);
  drag(form1().Grid5, 1, 1, 1, 16);
  for (const int tab : {airflowTab, globalTab, 0, 15}) {
    editorState.currentTab = tab;
    const std::size_t boxes = desk.boxes.size();
    apply("120");
    EXPECT_EQ(desk.boxes.size(), boxes + 1);
    EXPECT_EQ(lastBox(), tab == 0 || tab == 15
                             ? "There is an exception for a parameter of SMOOTH_DATA."
                             : "With this screen, smooth function can be useful.");
    EXPECT_TRUE(form1().enabled() && !form10.loaded());
  }
  EXPECT_EQ(numbers(form1().Grid5), airflow);
}

}  // namespace
