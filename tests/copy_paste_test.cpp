// Copy and paste between the maps: the clipboard's text, the copy buffer, and what a paste leaves.

#include "editing/copy_paste.h"

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class CopyPaste : public MapToolsTest {
 protected:
  // A 3 x 3 corner of the first map, 1 to 9, selected whole.
  void selectNine() {
    fill(form1().Grid1, {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    drag(form1().Grid1, 1, 1, 3, 3);
  }
  std::string nine() const {
    std::string cells;
    for (int r = 1; r <= 3; ++r) {
      for (int c = 1; c <= 3; ++c) cells += form1().Grid1.text(r, c) + (c < 3 ? " " : "|");
    }
    return cells;
  }
};

TEST_F(CopyPaste, ABlockTravelsAsOneLineWhicheverWayItWasDragged) {
  loadCar();
  Grid& grid = form1().Grid1;
  fill(grid, {{10, 20}, {30, 40}});
  for (const GridSelection& dragged :
       {GridSelection{1, 1, 2, 2}, {2, 2, 1, 1}, {1, 2, 2, 1}, {2, 1, 1, 2}}) {
    std::fill(editorState.copyBuffer.begin(), editorState.copyBuffer.end(), 7);
    drag(grid, dragged.row, dragged.column, dragged.rowSel, dragged.columnSel);
    pick("CPY");
    EXPECT_EQ(desk.clipboard, "10,20,30,40,1,1");
    EXPECT_EQ(grid.selection(), (GridSelection{1, 1, 2, 2}));
    EXPECT_EQ(editorState.copyBuffer[copyColumns + 1], 40);
    EXPECT_EQ(editorState.copyBuffer[2], 0);
    EXPECT_TRUE(grid.visible() && grid.redraw());
  }
  grid.setText(1, 2, "");
  drag(grid, 1, 2, 1, 2);
  pick("CPY");
  EXPECT_EQ(desk.clipboard, ",0,0");
}

TEST_F(CopyPaste, TakesWhateverTheClipboardHolds) {
  loadCar();
  const char* const untouched = "1 2 3|4 5 6|7 8 9|";
  struct Row {
    std::optional<std::string> clipboard;
    const char* expected;
  };
  const Row table[] = {
      {"10,20,30,40,1,1", "10 20 3|30 40 6|7 8 9|"},      // keeps its shape
      {"10,20,30,40,3,0", "10 20 30|4 5 6|7 8 9|"},       // wider than the selection
      {"300,-5,65535,2,0", "300 -5 65535|4 5 6|7 8 9|"},  // no limits
      {"1.5,2.5,3e2,2,0", "2 2 300|4 5 6|7 8 9|"},
      {" 12x,-,a,2,0", "12 0 0|4 5 6|7 8 9|"},
      {"99999999999,-1e300,,2,0", "2147483647 -2147483648 0|4 5 6|7 8 9|"},
      {"1,2,3", "1 2 3|4 5 6|7 8 9|"},
      {"50,2,3", "50 2 3|4 5 6|7 8 9|"},                 // fields missing
      {"10,20,30,40,50,1,1", "10 20 3|30 40 6|7 8 9|"},  // fields too many
      {"10,20,2147483647,2147483647", "10 20 3|4 5 6|7 8 9|"},
      {"10,20,30,1e9,1e9\r\n", "10 20 30|4 5 6|7 8 9|"},
      {"10,20,-1,0", untouched},
      {"10,20,-99999999999,1", untouched},
      {std::nullopt, untouched},
      {"", untouched},
      {"a,b,c", untouched},
      {"10,20,1,x", untouched},
      {"10\t20\r\n30\t40\r\n", untouched},
      {std::string(10'000'000, ',') + "2147483647,2147483647", "0 0 0|4 5 6|7 8 9|"},
      {std::string(10'000'000, ',') + "2,2147483647", "0 0 0|0 0 0|0 0 0|"},
  };
  for (const Row& row : table) {
    selectNine();
    desk.clipboard = row.clipboard;
    pick("PST");
    EXPECT_EQ(nine(), row.expected) << row.clipboard.value_or("no text").substr(0, 60);
    EXPECT_TRUE(form1().Grid1.visible() && form1().Grid1.redraw());
    EXPECT_EQ(form1().Grid1.selection(), (GridSelection{1, 1, 3, 3}));
  }
  EXPECT_TRUE(desk.boxes.empty());
}

// The rule on matrices: a target cell takes the block's cell at its own place where both exist.
TEST_F(CopyPaste, PropertyAnyBlockOverAnySelectionOnAnyTab) {
  loadCar();
  for (int trial = 0; trial < 400; ++trial) {
    const int from = random(1, 13);
    const int to = random(1, 13);
    Matrix source = scramble(tabGrid(from), 65535);
    selectTab(from);
    const GridBlock block = dragAtRandom(tabGrid(from));
    pick("CPY");
    selectTab(to);
    Matrix expected = to == from ? source : scramble(tabGrid(to), 255);
    const GridBlock target = dragAtRandom(tabGrid(to));
    EXPECT_EQ(repaintsOf(tabGrid(to), [this] { pick("PST"); }), 1);
    for (int r = 0; r < std::min(block.rows(), target.rows()); ++r) {
      for (int c = 0; c < std::min(block.columns(), target.columns()); ++c) {
        const int value = cellOf(source, block.top + r, block.left + c);
        cellOf(expected, target.top + r, target.left + c) = value;
        ASSERT_EQ(tabGrid(to).background(target.top + r, target.left + c), cellColour(value));
      }
    }
    ASSERT_EQ(numbers(tabGrid(to)), expected) << "trial " << trial;
    ASSERT_EQ(tabGrid(to).selection(), ordered(target));
  }
}

TEST_F(CopyPaste, ABlockBeyondTheBufferIsCutAndTheSelectionShowsIt) {
  startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("ADD_MAP1", "0", 520, 45, 23400, "1"));
  loadImage(patternImage(30000));
  selectTab(6);
  Grid& grid = form1().AddGrid1;
  drag(grid, 45, 520, 2, 3);
  pick("CPY");
  EXPECT_EQ(grid.selection(), (GridSelection{2, 3, 42, 515}));
  EXPECT_EQ(std::count(desk.clipboard->begin(), desk.clipboard->end(), ','), 513 * 41 + 1);
  EXPECT_TRUE(desk.clipboard->ends_with("," + grid.text(42, 515) + ",512,40"));
  EXPECT_EQ(std::to_string(editorState.copyBuffer.back()), grid.text(42, 515));
  // A column of 600 cells, over a selection that is wider than it.
  desk.clipboard = "";
  for (int i = 0; i < 600; ++i) *desk.clipboard += "999,";
  *desk.clipboard += "0,599";
  const std::string below = grid.text(42, 1);
  drag(grid, 1, 1, 45, 520);
  pick("PST");
  EXPECT_EQ(grid.text(41, 1), "999");
  EXPECT_EQ(grid.text(42, 1), below);
}

TEST_F(CopyPaste, PasteLeavesImageAndAirflowViewAlone) {
  loadCar();
  selectTab(airflowTab);
  const RomImage image = editorState.image;
  const auto view = form1().Picture2.items();
  desk.clipboard = "60000,0,0";
  drag(form1().Grid5, 1, 2, 1, 2);
  pick("PST");
  EXPECT_EQ(form1().Grid5.text(1, 2), "60000");
  EXPECT_EQ(form1().Grid5.background(1, 2), cellColour(60000));
  EXPECT_EQ(editorState.image, image);
  EXPECT_EQ(form1().Picture2.items(), view);
}

}  // namespace
