// The air/fuel table: its guard, its formula, and the table it shows for each fuel map.

#include "calc/af_table.h"

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class AfTable : public MapToolsTest {};

TEST_F(AfTable, RefusesTabsWithoutFuelAndOpensOnAllOthers) {
  loadCar();
  for (int tab = 1; tab <= 13; ++tab) {
    selectTab(tab);
    desk.boxes.clear();
    pick("AF_DISP_FORM");
    const bool refused = tab == 2 || tab == 4 || tab == 5;
    ASSERT_EQ(form5.loaded(), !refused) << tab;
    EXPECT_EQ(desk.boxes.size(), refused ? 1U : 0U);
    if (refused) continue;
    EXPECT_EQ(form5.Frame1.caption(),
              "Result of calculating A/F  - about " + std::string(mapKindOfTab(tab)->keyword));
    form5.Command1.userClick();
    EXPECT_TRUE(form1().enabled() && !form5.loaded());
  }
}

TEST_F(AfTable, WorkedExamples) {
  loadCar();
  editorState.gridColorRate = 2;
  struct Row {
    const char *cell, *expected;
    Colour colour;
  };
  const Row table[] = {{"0", "14.7", rgb(255, 0, 0)},   {"128", "7.3", rgb(0, 0, 255)},
                       {"255", "4.9", rgb(0, 0, 255)},  {"64", "9.8", rgb(127, 0, 128)},
                       {"1", "14.6", rgb(253, 0, 2)},   {"510", "2.9", rgb(0, 0, 255)},
                       {"", "14.7", rgb(255, 0, 0)},    {"12.6", "13.4", rgb(229, 0, 26)},
                       {"-128", "inf", rgb(255, 0, 0)}, {"1e300", "0.0", rgb(0, 0, 255)}};
  for (const Row& row : table) {
    form1().Grid1.setText(2, 3, row.cell);
    pick("AF_DISP_FORM");
    EXPECT_EQ(form5.Grid1.text(2, 3), row.expected) << row.cell;
    EXPECT_EQ(form5.Grid1.background(2, 3), row.colour) << row.cell;
    form5.userClose();
  }
}

TEST_F(AfTable, ShowsEachCellOfTheGridAsItStands) {
  loadCar();
  selectTab(7);  // shown as twice the byte
  Matrix cells = scramble(form1().AddGrid2, 510);
  pick("AF_DISP_FORM");
  const Grid& table = form5.Grid1;
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
  startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("HIGH_FUEL", "&H100", 20, 18, 360));
  loadImage(patternImage(0x1000));
  pick("AF_DISP_FORM");
  EXPECT_EQ(form5.Grid1.text(0, 16) + " " + form5.Grid1.text(16, 0), "+F 022C");
  EXPECT_NE(form5.Grid1.text(16, 16), "");
  form5.userClose();
  selectTab(3);
  pick("AF_DISP_FORM");
  EXPECT_EQ(form5.Grid1.text(0, 1) + form5.Grid1.text(1, 0) + form5.Grid1.text(16, 16), "");
}

}  // namespace
