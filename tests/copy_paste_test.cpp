// Copy and paste between the maps: the clipboard's text, the copy buffer, and what a paste leaves.

#include "editing/copy_paste.h"

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class CopyPaste : public LoadedCarTest {};

TEST_F(CopyPaste, ABlockTravelsAsOneLineAndTheBufferHoldsNothingElse) {
  Grid& grid = form1().Grid1;
  fill(grid, {{10, 20}, {30, 40}});
  std::fill(editorState.copyBuffer.begin(), editorState.copyBuffer.end(), 7);
  drag(grid, 2, 1, 1, 2);
  pick("CPY");
  EXPECT_EQ(desk.clipboard, "10,20,30,40,1,1");
  EXPECT_EQ(editorState.copyBuffer[copyColumns + 1], 40);
  EXPECT_EQ(editorState.copyBuffer[2], 0);
  grid.setText(1, 2, "");
  drag(grid, 1, 2, 1, 2);
  pick("CPY");
  EXPECT_EQ(desk.clipboard, ",0,0");
}

TEST_F(CopyPaste, TakesWhateverTheClipboardHolds) {
  const std::string commas(10'000'000, ',');
  const std::pair<std::string, const char*> table[] = {
      {"10,20,30,40,50,1,1", "10 20|30 40"}, {"10,20,30,2,0", "10 20|3 4"},
      {commas + "1,2147483647", "0 0|0 0"},  {"300,-5,1,0", "300 -5|3 4"},
      {commas + "2147483647,9", "0 0|3 4"},  {"1.5,3e2,1,0", "2 300|3 4"},
      {"10,20,-99999999999,1", "1 2|3 4"},   {"10,20,0,1", "10 2|20 4"},
      {"10\t20\r\n30\t40\r\n", "1 2|3 4"},   {" 12x,-,1,0", "12 0|3 4"},
      {"-1e99,0,0", "-2147483648 2|3 4"},    {"10,20,-1,0", "1 2|3 4"},
      {"10,20,30,40,1,1", "10 20|30 40"},    {"10,20,1,x", "1 2|3 4"},
      {"10,20,1e9,1e9\r\n", "10 20|3 4"},    {"9,2,3", "9 2|3 4"},
      {"1e99,0,0", "2147483647 2|3 4"},      {"a,b,c", "1 2|3 4"},
      {"10,2147483647,9", "10 2|3 4"}};
  Grid& grid = form1().Grid1;
  pick("PST");  // no text at all
  EXPECT_EQ(grid.text(1, 1), std::to_string(editorState.image[0x100]));
  for (const auto& [text, expected] : table) {
    fill(grid, {{1, 2}, {3, 4}});
    drag(grid, 1, 1, 2, 2);
    desk.clipboard = text;
    pick("PST");
    EXPECT_EQ(selected(grid), expected) << text.substr(0, 60);
  }
  EXPECT_TRUE(desk.boxes.empty());
}

// The rule on matrices: a target cell takes the block's cell at its own place where both exist.
TEST_F(CopyPaste, PropertyAnyBlockOverAnySelectionOnAnyTab) {
  const RomImage image = editorState.image;
  for (int trial = 0; trial < 400; ++trial) {
    Scrambled source = scrambleTab(random(1, 13));
    pick("CPY");
    ASSERT_EQ(source.grid.selection(), ordered(source.block));
    auto [tab, grid, expected, target] = scrambleTab(random(1, 13));
    const auto view = form1().Picture2.items();
    ASSERT_EQ(repaintsOf(grid, [this] { pick("PST"); }), 1);
    for (int r = 0; r < std::min(source.block.rows(), target.rows()); ++r) {
      for (int c = 0; c < std::min(source.block.columns(), target.columns()); ++c) {
        const int value = cellOf(source.cells, source.block.top + r, source.block.left + c);
        cellOf(expected, target.top + r, target.left + c) = value;
        ASSERT_EQ(grid.background(target.top + r, target.left + c), cellColour(value));
      }
    }
    ASSERT_EQ(numbers(grid), expected) << "trial " << trial << " tab " << tab;
    ASSERT_EQ(grid.selection(), ordered(target));
    ASSERT_TRUE(grid.visible() && grid.redraw());
    ASSERT_EQ(form1().Picture2.items(), view);
  }
  EXPECT_EQ(editorState.image, image);
}

TEST_F(CopyPaste, ABlockBeyondTheBufferIsCutAndTheSelectionShowsIt) {
  startAnewWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("ADD_MAP1", "0", 520, 45, 23400, "1"));
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
  EXPECT_EQ(grid.text(41, 1) + grid.text(42, 1), "999" + below);
}

}  // namespace
