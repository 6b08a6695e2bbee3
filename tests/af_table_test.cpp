// The air/fuel table: its guard, its formula, and the table it shows for each fuel map.

#include "calc/af_table.h"

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class AfTable : public LoadedCarTest {
 protected:
  const Grid& table = form5.Grid1;
};

TEST_F(AfTable, RefusesTabsWithoutFuelAndOpensOnAllOthers) {
  for (int tab = 1; tab <= 13; ++tab) {
    selectTab(tab);
    pick("AF_DISP_FORM");
    const bool refused = tab == 2 || tab == 4 || tab == 5;
    EXPECT_NE(told().empty(), refused) << tab;
    ASSERT_NE(form5.loaded(), refused) << tab;
    if (refused) continue;
    EXPECT_EQ(form5.Frame1.caption(),
              "Result of calculating A/F  - about " + std::string(mapKindOfTab(tab)->keyword));
    form5.Command1.userClick();
    EXPECT_TRUE(form1().enabled() && !form5.loaded());
  }
}

TEST_F(AfTable, WorkedExamples) {
  editorState.gridColorRate = 2;
  const struct {
    const char *cell, *expected;
    int blue;
  } cases[] = {{"0", "14.7", 0},     {"128", "7.3", 255}, {"64", "9.8", 128},
               {"1", "14.6", 2},     {"510", "2.9", 255}, {"", "14.7", 0},
               {"12.6", "13.4", 26}, {"-128", "inf", 0},  {"1e300", "0.0", 255}};
  for (const auto& each : cases) {
    form1().Grid1.setText(2, 3, each.cell);
    pick("AF_DISP_FORM");
    EXPECT_EQ(table.text(2, 3), each.expected) << each.cell;
    EXPECT_EQ(table.background(2, 3), rgb(255 - each.blue, 0, each.blue)) << each.cell;
    form5.userClose();
  }
}

TEST_F(AfTable, ShowsEachCellOfTheGridAsItStands) {
  selectTab(doubledTab);
  Matrix cells = scramble(form1().AddGrid2, 510);
  pick("AF_DISP_FORM");
  for (int r = 1; r <= rows; ++r) {
    for (int c = 1; c <= columns; ++c) {
      const int cell = cellOf(cells, r, c);
      EXPECT_NEAR(std::stod(table.text(r, c)), 14.7 * 128 / (cell + 128), 0.05001);
      EXPECT_EQ(table.background(r, c), cellColour(cell));
    }
  }
  EXPECT_EQ(table.text(0, 1) + table.text(0, 8) + table.text(0, 9), "+0+7");
  EXPECT_EQ(table.text(1, 0) + " " + table.text(2, 0), "02C0 02C8");
}

TEST_F(AfTable, OfALargerMapTheFirstCellsAndOfAnAbsentOneNone) {
  startAnewWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("HIGH_FUEL", "&H100", 20, 18, 360));
  loadImage(patternImage(0x1000));
  pick("AF_DISP_FORM");
  EXPECT_EQ(table.text(0, 16) + " " + table.text(16, 0), "+F 022C");
  EXPECT_NE(table.text(16, 16), "");
  form5.userClose();
  selectTab(3);
  pick("AF_DISP_FORM");
  EXPECT_EQ(table.text(0, 1) + table.text(1, 0) + table.text(16, 16), "");
}

}  // namespace
