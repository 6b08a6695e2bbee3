// Map shift: the dialog, the guard, the move of a map by a column, and the load scale beside it.

#include "editing/map_shift.h"

#include "core/map_display.h"
#include "map_tools_bed.h"

namespace {

class MapShift : public MapToolsTest {
 protected:
  void shift(bool left, bool withScale = true) {
    pick("DT_SFT");
    (left ? form11.Option1 : form11.Option2).userSelect();
    if (form11.Check1.checked() != withScale) form11.Check1.userToggle();
    form11.userEnter();
  }
  // The scale's points beside the map.
  static std::vector<int> scale(const Grid& grid) {
    std::vector<int> points = numbers(grid).front();
    points.resize(columns);
    return points;
  }
};

std::vector<int> moved(std::vector<int> row, bool left) {
  if (left) {
    row.erase(row.begin());
    row.push_back(0);
  } else {
    row.pop_back();
    row.insert(row.begin(), 0);
  }
  return row;
}

TEST_F(MapShift, TheDialogStartsAnewOnEachTabAndTheAirflowMapIsRefused) {
  loadCar();
  for (int tab = 1; tab <= 13; ++tab) {
    selectTab(tab);
    pick("DT_SFT");
    ASSERT_EQ(form11.loaded(), tab != airflowTab);
    if (tab == airflowTab) continue;
    EXPECT_TRUE(form11.Option1.selected() && form11.Check1.checked());
    EXPECT_EQ(form11.Check1.enabled(), tab <= 2);
    form11.Label2.userClick();
    EXPECT_TRUE(form11.Option2.selected());
    if (tab == 1) form11.Check1.userToggle();
    form11.userEscape();
  }
  EXPECT_EQ(desk.boxes.size(), 1U);
}

TEST_F(MapShift, PropertyAnyMapMovesByOneColumn) {
  loadCar();
  for (int trial = 0; trial < 200; ++trial) {
    int tab = random(1, 13);
    if (tab == airflowTab) tab = 2;
    selectTab(tab);
    Grid& grid = tabGrid(tab);
    Matrix expected = scramble(grid, 255);
    scramble(form1().TP_FUEL, 255);
    scramble(form1().TP_FIRE, 255);
    std::vector<int> fuel = scale(form1().TP_FUEL);
    std::vector<int> fire = scale(form1().TP_FIRE);
    dragAtRandom(grid);
    const bool left = random(0, 1) == 0;
    const bool withScale = random(0, 1) == 0;
    ASSERT_EQ(repaintsOf(grid, [&] { shift(left, withScale || tab > 2); }), 1);
    for (auto& row : expected) row = moved(row, left);
    if (withScale && tab == 1) fuel = moved(fuel, left);
    if (withScale && tab == 2) fire = moved(fire, left);
    ASSERT_EQ(numbers(grid), expected);
    ASSERT_EQ(scale(form1().TP_FUEL), fuel) << "tab " << tab;
    ASSERT_EQ(scale(form1().TP_FIRE), fire) << "tab " << tab;
    const int last = left ? columns : 1;
    ASSERT_EQ(grid.selection(), (GridSelection{rows, last, rows, last}));
    ASSERT_EQ(grid.background(1, last), rgb(255, 0, 0));
    ASSERT_EQ(grid.background(1, 4), cellColour(expected[0][3]));
  }
}

TEST_F(MapShift, TheBoostRowFollows) {
  loadCar();
  fill(form1().TP_FUEL, {{64, 64, 64, 64, 64, 64, 64, 64}});
  shift(true);
  EXPECT_EQ(form1().TP_FUEL.text(1, 8), "0");
  EXPECT_FALSE(form1().TP_FUEL.painted(1, 8));
  EXPECT_EQ(form1().TP_FUEL.text(0, 8), "-1.03");  // -1.035 in single precision lies above
  EXPECT_EQ(form1().TP_FUEL.text(0, 7), "-0.15");
  EXPECT_EQ(form1().RPM_FUEL.text(0, 0), std::to_string(50 * editorState.image[0x250]));
  EXPECT_EQ(form1().Label13.caption(), "");
  EXPECT_EQ(desk.pointerChanges.back(), false);
}

TEST_F(MapShift, AbsentMapsAndScalesAreLeftAlone) {
  startWithMap("TYPE_UNIT\r\nCAR\r\n" + smallBlock("HIGH_FUEL", 0x100) +
               mapBlock("TP_SCALE_FIRE", "&H240", 4, 1, 4) + smallBlock("HIGH_FIRE", 0x140));
  loadImage(patternImage(0x1000));
  const std::string first = form1().Grid1.text(1, 2);
  shift(true);
  EXPECT_EQ(form1().Grid1.text(1, 1), first);
  EXPECT_EQ(form1().TP_FUEL.text(1, 1), "");
  EXPECT_EQ(form1().TP_FUEL.text(1, 8), "");

  // A scale shorter than its map ends where it ends.
  selectTab(2);
  fill(form1().TP_FIRE, {{10, 20, 30, 40}});
  shift(true);
  EXPECT_EQ(form1().TP_FIRE.clip(), "0");  // the cell written last
  EXPECT_EQ(form1().TP_FIRE.text(1, 3), "40");
  EXPECT_EQ(form1().TP_FIRE.text(1, 5), "");

  selectTab(6);
  shift(true, false);
  EXPECT_EQ(form1().AddGrid1.text(1, 1), "");
  EXPECT_TRUE(form1().enabled());
}

}  // namespace
