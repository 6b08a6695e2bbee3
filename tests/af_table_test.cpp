// The air/fuel table: its guard, its formula, and the table it shows for each fuel map.

#include "calc/af_table.h"

#include "map_tools_bed.h"

namespace {

class AfTable : public LoadedCarTest {
 protected:
  const Grid& table = form5.Grid1;
};

TEST_F(AfTable, RefusesTabsWithoutFuelAndShowsAllOthers) {
  for (int tab = 1; tab <= 13; ++tab) {
    selectTab(tab);
    pick("AF_DISP_FORM");
    const bool refused = tab == 2 || tab == 4 || tab == 5;
    EXPECT_NE(told().empty(), refused) << tab;
    ASSERT_NE(form5.loaded(), refused) << tab;
    if (refused) continue;
    const Grid& grid = tabGrid(tab);
    const double cell = std::stod(grid.text(rows, columns));
    EXPECT_NEAR(std::stod(table.text(rows, columns)), 14.7 * 128 / (cell + 128), 0.05001) << tab;
    form5.Command1.userClick();
    EXPECT_TRUE(form1().enabled() && !form5.loaded());
  }
}

TEST_F(AfTable, WorkedExamples) {
  editorState.gridColorRate = 2;
  const std::tuple<const char*, const char*, int> cases[] = {
      {"0", "14.7", 0},     {"128", "7.3", 255}, {"64", "9.8", 128},
      {"1", "14.6", 2},     {"510", "2.9", 255}, {"", "14.7", 0},
      {"12.6", "13.4", 26}, {"-128", "inf", 0},  {"1e300", "0.0", 255}};
  for (const auto& [cell, expected, blue] : cases) {
    form1().Grid1.setText(2, 3, cell);
    pick("AF_DISP_FORM");
    EXPECT_EQ(table.text(2, 3), expected) << cell;
    EXPECT_EQ(table.text(1, 0) + table.text(2, 0), "01000108");
    EXPECT_EQ(table.background(2, 3), rgb(255 - blue, 0, blue)) << cell;
    form5.userClose();
  }
}

}  // namespace
