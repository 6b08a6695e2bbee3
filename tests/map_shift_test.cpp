// Map shift: the dialog, the move of a map by a column, and the load scale beside it.

#include "editing/map_shift.h"

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class MapShift : public LoadedCarTest {
 protected:
  void shift(bool left, bool withScale) {
    pick("DT_SFT");
    (left ? form11.Option1 : form11.Option2).userSelect();
    if (form11.Check1.checked() != withScale) form11.Check1.userToggle();
    form11.userEnter();
  }
  // The rule for a row: its cells under the map go on by one place, and a 0 comes in.
  static void move(std::vector<int>& row, bool left) {
    const auto end = row.begin() + columns;
    left ? std::shift_left(row.begin(), end, 1) : std::shift_right(row.begin(), end, 1);
    *(left ? end - 1 : row.begin()) = 0;
  }
  Form1& form = form1();
};

TEST_F(MapShift, TheDialogStartsAnewOnEachTabAndTheAirflowMapIsRefused) {
  for (int tab = 1; tab < globalTab; ++tab) {
    selectTab(tab);
    pick("DT_SFT");
    EXPECT_EQ(form11.loaded(), tab != airflowTab);
    EXPECT_EQ(told(), tab == airflowTab ? "With this screen, map shift aren't possible." : "");
    if (!form11.loaded()) continue;
    EXPECT_TRUE(form11.Option1.selected() && form11.Check1.checked());
    EXPECT_EQ(form11.Check1.enabled(), tab <= 2);
    form11.Label2.userClick();
    EXPECT_TRUE(form11.Option2.selected());
    form11.Check1.userToggle();
    form11.userEscape();
  }
}

TEST_F(MapShift, PropertyAnyMapMovesByOneColumnAndTheBoostFollows) {
  for (int trial = 0; trial < 200; ++trial) {
    auto [tab, grid, expected, block] = scrambleTab(randomByteTab());
    Matrix fuel = scramble(form.TP_FUEL, 255), fire = scramble(form.TP_FIRE, 255);
    const bool left = random(0, 1) == 0, withScale = random(0, 1) == 0;
    form.TP_FUEL.setText(0, 1, "old");
    ASSERT_EQ(repaintsOf(grid, [&] { shift(left, withScale); }), 1);
    for (auto& row : expected) move(row, left);
    if (withScale && tab == 1) move(fuel[0], left);
    if (withScale && tab == 2) move(fire[0], left);
    ASSERT_EQ(numbers(grid), expected) << "tab " << tab;
    ASSERT_EQ(numbers(form.TP_FUEL), fuel) << "tab " << tab;
    ASSERT_EQ(numbers(form.TP_FIRE), fire) << "tab " << tab;
    const int last = left ? columns : 1;
    ASSERT_EQ(grid.selection(), (GridSelection{rows, last, rows, last}));
    for (const int c : {last, 4})
      ASSERT_EQ(grid.background(1, c), cellColour(cellOf(expected, 1, c)));
    ASSERT_NE(form.TP_FUEL.text(0, 1), "old");
    ASSERT_EQ(form.Label13.caption(), "");
  }
  EXPECT_FALSE(form.TP_FUEL.painted(1, 1));
}

TEST_F(MapShift, AbsentMapsAndScalesAreLeftAlone) {
  useMap("TYPE_UNIT\r\nCAR\r\n" + smallBlock("HIGH_FUEL", 0x100) +
         mapBlock("TP_SCALE_FIRE", "&H240", 4, 1, 4) + smallBlock("HIGH_FIRE", 0x140));
  const std::string second = form.Grid1.text(1, 2);
  fill(form.TP_FIRE, {{10, 20, 30, 40}});
  for (const int tab : {1, 2, 6}) {
    selectTab(tab);
    shift(true, true);
  }
  EXPECT_EQ(form.Grid1.text(1, 1), second);
  EXPECT_EQ(rowText(form.TP_FUEL, 1, 9), "         ");
  EXPECT_EQ(rowText(form.TP_FIRE, 1, 6), "0240 20 30 40 0  ")
      << "it ends where it ends, map or not";
  EXPECT_EQ(form.TP_FIRE.clip(), "0") << "the cell written last";
  EXPECT_EQ(form.AddGrid1.text(1, 1), "");
  EXPECT_TRUE(form.enabled());
}

}  // namespace
