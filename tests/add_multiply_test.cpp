// Add/reduce and multiply: the entries that both dialogs refuse, and the arithmetic on a selection.

#include "editing/add_multiply.h"

#include <cmath>

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class AddMultiply : public LoadedCarTest {
 protected:
  BulkChangeDialog& apply(bool adds, const std::string& threshold, const std::string& by) {
    pick(adds ? "add_dec" : "kakeru");
    BulkChangeDialog& dialog = adds ? form7 : form8;
    for (const auto& [box, text] : {std::pair(&dialog.Text1, threshold), {&dialog.Text2, by}}) {
      box->userFocus();
      box->userPaste(text);
    }
    dialog.userEnter();
    return dialog;
  }
};

TEST_F(AddMultiply, WorkedExamplesAndEntriesThatAreRefused) {
  // Tab, add or multiply, threshold, by and the cell; what it becomes, or "no".
  const std::pair<const char*, const char*> table[] = {
      {"1,+,110,5,109", "114"},       {"1,+,110,5,110", "110"},      {"1,+,110,-5,3", "0"},
      {"1,+,110,300,10", "255"},      {"1,+,110,-2.5,10", "7"},      {"1,+,110,1e300,10", "255"},
      {"1,+,110,-,10", "10"},         {"1,+,65536,5,300", "255"},    {"1,+,110,5.0,", "5"},
      {"1,+,110,5,-1e30", "0"},       {"1,+,110,5,1e30", "1e30"},    {"5,+,65536,5,65535", "65535"},
      {"5,+,65536,1,65534", "65535"}, {"1,*,110,1.15,100", "115"},   {"1,*,110,1.5,100", "151"},
      {"1,*,110,7.0,0", "1"},         {"1,*,110,1.1.1,100", "111"},  {"1,*,110,1e1,5", "51"},
      {"1,*,110,-0,100", "1"},        {"1,*,110,−0,100", "1"},       {"1,*,110,-1,100", "0"},
      {"1,*,110,1e400,0", "1"},       {"5,*,110,3.4e38,1", "65535"}, {"1,+,,5,1", "no"},
      {"1,*,110,,1", "no"},           {"1,+,65537,5,1", "no"},       {"1,*,-1,5,1", "no"},
      {"1,+,110,-256,1", "no"},       {"1,*,65536.5,1,1", "no"},     {"1,+,1e99,1,1", "no"},
      {"1,*,110,-1e400,1", "no"}};
  for (const auto& [given, expected] : table) {
    const std::vector<std::string> parts = fields(given);
    const bool refused = expected == std::string("no");
    selectTab(std::stoi(parts[0]));
    Grid& grid = *activeGrid();
    grid.setText(1, 3, parts[4]);
    drag(grid, 1, 3, 1, 3);
    BulkChangeDialog& dialog = apply(parts[1] == "+", parts[2], parts[3]);
    EXPECT_EQ(grid.text(1, 3), refused ? parts[4] : expected) << given;
    EXPECT_EQ(told(), refused ? "Wrong data are inputed." : "") << given;
    EXPECT_EQ(dialog.loaded(), refused) << "stays open";
    dialog.userClose();
  }
}

TEST_F(AddMultiply, PropertyAnyThresholdAndAmountOverAnySelection) {
  for (int trial = 0; trial < 400; ++trial) {
    auto [tab, grid, expected, block] = scrambleTab(random(1, 13));
    const GridSelection dragged = grid.selection();
    const auto view = form1().Picture2.items();
    const int highest = tab == airflowTab ? 65535 : 255;
    const int threshold = random(0, highest + 1);
    const bool adds = random(0, 1) == 0;
    const double by = (adds ? random(-4 * 255, 4 * 300) : random(0, 12)) / 4.0;
    int row = 0, column = 0;  // of the last cell that changes
    for (int r = block.top; r <= block.bottom; ++r) {
      for (int c = block.left; c <= block.right; ++c) {
        int& cell = cellOf(expected, r, c);
        if (cell >= threshold) continue;
        const double moved = adds ? cell + std::floor(by) : std::floor(cell * by) + 1;
        cell = static_cast<int>(std::clamp(moved, 0.0, double(highest)));
        row = r;
        column = c;
      }
    }
    const auto command = [&] { apply(adds, std::to_string(threshold), std::to_string(by)); };
    ASSERT_EQ(repaintsOf(grid, command), row > 0);
    ASSERT_EQ(numbers(grid), expected) << "trial " << trial << " by " << by;
    ASSERT_EQ(grid.selection(), dragged);
    ASSERT_EQ(form1().Picture2.items() != view, tab == airflowTab);
    if (row == 0) continue;
    const auto colour = tab == airflowTab ? airflowCellColour : cellColour;
    ASSERT_EQ(grid.background(row, column), colour(cellOf(expected, row, column)));
  }
}

}  // namespace
