// Add/reduce and multiply: the two dialogs, their refusals, and the arithmetic on a selection.

#include "editing/add_multiply.h"

#include <cmath>
#include <sstream>
#include <tuple>

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class AddMultiply : public MapToolsTest {
 protected:
  void apply(const std::string& command, const std::string& threshold, const std::string& by) {
    pick(command);
    BulkChangeDialog& dialog = dialogOf(command);
    dialog.Text1.userFocus();
    dialog.Text1.userPaste(threshold);
    dialog.Text2.userFocus();
    dialog.Text2.userPaste(by);
    dialog.userEnter();
  }
  static BulkChangeDialog& dialogOf(const std::string& command) {
    return command == "add_dec" ? form7 : form8;
  }
};

TEST_F(AddMultiply, KeysAreFilteredAndEachOpeningStartsAnew) {
  loadCar();
  for (const auto& [command, typed] :
       {std::pair{"add_dec", "-115"}, std::pair{"kakeru", "1.15"}, std::pair{"kakeru", "1.15"}}) {
    BulkChangeDialog& dialog = dialogOf(command);
    pick(command);
    EXPECT_EQ(dialog.Text1.text() + "|" + dialog.Text2.text(), "110|");
    dialog.Text1.userType("x-1.2e3");  // over the selected text
    EXPECT_EQ(dialog.Text1.text(), "123");
    dialog.Text2.userFocus();
    dialog.Text2.userType("a-+1 .1e\b15");
    EXPECT_EQ(dialog.Text2.text(), typed);
    dialog.userClose();
  }
}

TEST_F(AddMultiply, RefusesBadEntriesAndStaysOpen) {
  loadCar();
  const Matrix before = numbers(form1().Grid1);
  const std::pair<const char*, const char*> table[] = {
      {"", "5"},       {"110", ""},      {"65537", "5"}, {"-1", "5"},
      {"110", "-256"}, {"65536.5", "1"}, {"1e99", "1"},  {"110", "-1e400"}};
  for (const char* command : {"add_dec", "kakeru"}) {
    BulkChangeDialog& dialog = dialogOf(command);
    for (const auto& [threshold, by] : table) {
      apply(command, threshold, by);
      EXPECT_TRUE(dialog.loaded()) << threshold << " " << by;
      EXPECT_EQ(lastBox(), "Wrong data are inputed.");
      dialog.userEscape();
    }
  }
  EXPECT_EQ(desk.boxes.size(), 2 * std::size(table));
  EXPECT_EQ(numbers(form1().Grid1), before);
}

TEST_F(AddMultiply, WorkedExamples) {
  loadCar();
  // Tab, add or multiply, threshold, by and the cell; what it becomes.
  const std::pair<const char*, const char*> table[] = {
      {"1 + 110 5 109", "114"},       {"1 + 110 5 110", "110"},     {"1 + 110 -5 3", "0"},
      {"1 + 110 300 10", "255"},      {"1 + 110 -2.5 10", "7"},     {"1 + 110 1e300 10", "255"},
      {"1 + 110 - 10", "10"},         {"1 + 65536 5 300", "255"},   {"1 + 110 5.0", "5"},
      {"1 + 110 5 -1e30", "0"},       {"1 + 110 5 1e30", "1e30"},   {"5 + 65536 5 65535", "65535"},
      {"5 + 65536 1 65534", "65535"}, {"1 * 110 1.15 100", "115"},  {"1 * 110 1.5 100", "151"},
      {"1 * 110 7.0 0", "1"},         {"1 * 110 1.1.1 100", "111"}, {"1 * 110 1e1 5", "51"},
      {"1 * 110 -0 100", "1"},        {"1 * 110 −0 100", "1"},      {"1 * 110 -1 100", "0"},
      {"1 * 110 1e400 0", "1"},       {"5 * 110 3.4e38 1", "65535"}};
  for (const auto& [given, expected] : table) {
    int tab = 0;
    std::string sign, threshold, by, cell;
    std::istringstream(given) >> tab >> sign >> threshold >> by >> cell;
    selectTab(tab);
    Grid& grid = tabGrid(tab);
    grid.setText(1, 3, cell);
    drag(grid, 1, 3, 1, 3);
    apply(sign == "+" ? "add_dec" : "kakeru", threshold, by);
    EXPECT_EQ(grid.text(1, 3), expected) << given;
    EXPECT_TRUE(form1().enabled());
  }
  EXPECT_TRUE(desk.boxes.empty());
}

TEST_F(AddMultiply, PropertyAnyThresholdAndAmountOverAnySelection) {
  loadCar();
  for (int trial = 0; trial < 400; ++trial) {
    const int tab = random(1, 13);
    const int highest = tab == airflowTab ? 65535 : 255;
    selectTab(tab);
    Grid& grid = tabGrid(tab);
    Matrix expected = scramble(grid, highest);
    const GridBlock block = dragAtRandom(grid);
    const GridSelection dragged = grid.selection();
    const int threshold = random(0, highest + 1);
    const bool adds = random(0, 1) == 0;
    const int quarters = adds ? random(-4 * 255, 4 * 300) : random(0, 12);
    int changes = 0;
    for (int r = block.top; r <= block.bottom; ++r) {
      for (int c = block.left; c <= block.right; ++c) {
        int& cell = cellOf(expected, r, c);
        if (cell >= threshold) continue;
        const double moved =
            adds ? cell + std::floor(quarters / 4.0) : std::floor(cell * quarters / 4.0) + 1;
        cell = static_cast<int>(std::clamp(moved, 0.0, double(highest)));
        ++changes;
      }
    }
    const std::string by = std::to_string(quarters / 4.0);
    const auto command = [&] { apply(adds ? "add_dec" : "kakeru", std::to_string(threshold), by); };
    ASSERT_EQ(repaintsOf(grid, command), changes > 0 ? 1 : 0);
    ASSERT_EQ(numbers(grid), expected) << "trial " << trial << " by " << by;
    ASSERT_EQ(grid.selection(), dragged);
  }
}

TEST_F(AddMultiply, PaintsWhatItChangesAndTheAirflowViewFollows) {
  loadCar();
  selectTab(airflowTab);
  Grid& airflow = form1().Grid5;
  airflow.setText(1, 1, "1000");
  drag(airflow, 1, 1, 1, 1);
  const auto view = form1().Picture2.items();
  apply("add_dec", "65536", "40000");
  EXPECT_EQ(airflow.background(1, 1), airflowCellColour(41000));
  EXPECT_NE(form1().Picture2.items(), view);

  selectTab(1);
  editorState.gridColorRate = 2;
  Grid& grid = form1().Grid1;
  grid.setCell(1, 1, "50", black);
  grid.setCell(1, 2, "200", black);
  drag(grid, 1, 1, 1, 2);
  apply("add_dec", "110", "10");
  EXPECT_EQ(grid.background(1, 1), rgb(135, 0, 120));
  EXPECT_EQ(grid.background(1, 2), black);
}

TEST_F(AddMultiply, OtherTabsAreRefusedOnlyAtOk) {
  loadCar();
  const char* const unknown = "There is an exception for a parameter of DEC_DATA.";
  const std::tuple<const char*, int, const char*> table[] = {
      {"add_dec", 14,
       "With this screen(GLOBAL), this function(addition and reduction) can be useful."},
      {"kakeru", 14, "With this screen(GLOBAL), this function(multiplication) can be useful."},
      {"add_dec", 15, unknown},
      {"kakeru", 0, unknown}};
  for (const auto& [command, tab, refusal] : table) {
    editorState.currentTab = tab;
    const std::size_t boxes = desk.boxes.size();
    apply(command, "110", "5");
    EXPECT_EQ(desk.boxes.size(), boxes + 1);
    EXPECT_EQ(lastBox(), refusal);
    EXPECT_TRUE(form1().enabled());
  }
}

}  // namespace
