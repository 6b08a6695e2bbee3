// Cells of the map grids and of the scales under the user's hands: the prompt after a double click,
// the two step keys on a selection, the menu of the right button, and the boost that follows.
#include "editing/cell_editing.h"

#include "support.h"

namespace {

class CellEditing : public ProgramTest {
 protected:
  // Engine speeds in steps of 50 for the fuel map and of 30 for the ignition map.
  CellEditing() {
    startWithMap(smallMap() + mapBlock("TP_SCALE_FIRE", "&H1A0", 8, 1, 8) +
                 mapBlock("RPM_SCALE_FIRE", "&H1B0", 4, 1, 4, "30") +
                 mapBlock("REG_FIRE", "&H300", 4, 0, 4));
    loadImage(patternImage(0x400));
  }
  // What the first cell shows after its text was `before` and the key was pressed.
  static std::string stepped(Grid& grid, const std::string& before, char32_t key) {
    drag(grid, 1, grid.fixedColumns(), 1, grid.fixedColumns());
    grid.setText(1, grid.fixedColumns(), before);
    grid.userKey(key);
    return grid.text(1, grid.fixedColumns());
  }
  // A blue of -1: never painted, as the scales are.
  static void expectBlue(const Grid& grid, int blue) {
    EXPECT_EQ(grid.painted(1, grid.fixedColumns()), blue >= 0);
    if (blue < 0) return;
    EXPECT_EQ(grid.background(1, 1), rgb(255 - blue, 0, blue));
  }

  Form1& form = form1();
  Grid &fuel = form.Grid1, &air = form.Grid5, &limits = form.Grid7, &doubled = form.AddGrid1;
  Grid &tpFuel = form.TP_FUEL, &tpFire = form.TP_FIRE;
  Grid &rpmFuel = form.RPM_FUEL, &rpmFire = form.RPM_FIRE;
};

TEST_F(CellEditing, EntriesAreRoundedLimitedAndPaintedAlone) {
  const std::tuple<Grid&, const char*, const char*, int> table[] = {
      {fuel, "12.5", "12", 25},     {fuel, "13.5", "14", 27},   {rpmFuel, "99999", "99999", -1},
      {fuel, "254.9", "255", 255},  {fuel, "-5", "0", 0},       {rpmFire, "1e30", "2147483647", -1},
      {fuel, "+7", "7", 14},        {limits, "0.4", "0", 1},    {doubled, "300", "255", 255},
      {air, "65536", "65535", 255}, {air, "511.9", "512", 1},   {air, "65535.7", "65536", 255},
      {air, "-1", "0", 0},          {tpFuel, "300", "255", -1}, {tpFire, "12.7", "13", -1},
      {fuel, "300", "255", 255},    {rpmFire, "-30", "0", -1},  {fuel, " 1e2 ", "100", 200}};
  const Bytes image = editorState.image;
  editorState.gridColorRate = 2;
  for (auto& [grid, answer, text, blue] : table) {
    const int first = grid.fixedColumns();
    drag(grid, 1, first, 1, grid.columns() - 1);
    const GridSelection selection = grid.selection();
    desk.textAnswers = {answer};
    grid.userDoubleClick();
    EXPECT_EQ(grid.text(1, first), text) << answer;
    EXPECT_EQ(grid.selection(), selection);
    expectBlue(grid, blue);
    for (const char* bad : {"", "abc", "12x", "--5", "1e400", "inf", "nan", "&H10", "５"}) {
      enterCell(grid, 1, first, bad);
      EXPECT_EQ(grid.text(1, first), text) << bad;
    }
  }
  EXPECT_TRUE(desk.boxes.empty() && editorState.image == image);
}

TEST_F(CellEditing, ThePromptHoldsTheNumberAndComesUpOnlyForOne) {
  for (Grid* grid : {&fuel, &air, &rpmFuel}) {
    grid->setText(1, grid->fixedColumns(), " 7.5");
    enterCell(*grid, 1, grid->fixedColumns(), "");
    EXPECT_EQ(desk.prompts.back().answer, "8");
  }
  fuel.setText(1, 1, "12x");
  drag(fuel, 1, 1, 1, 1);
  drag(rpmFuel, 12, 0, 12, 0);  // below the scale's values
  for (Grid* grid : {&fuel, &rpmFuel, &form.Grid4, &form.Grid2}) grid->userDoubleClick();
  EXPECT_EQ(desk.prompts.size(), 3U) << "no number; headers alone; absent";
}

TEST_F(CellEditing, CtrlMakesTenStepsOfOne) {
  const std::tuple<Grid&, const char*, char32_t, const char*> table[] = {
      {fuel, "12", U'+', "22"},    {fuel, "9", U'-', "0"},           {air, "65530", U'+', "65535"},
      {fuel, "12", U'x', "12"},    {tpFuel, "12", U'-', "2"},        {limits, "12", U'+', "22"},
      {rpmFuel, "1", U'+', "501"}, {rpmFire, "14900", U'+', "15000"}};
  for (const auto& [grid, before, key, after] : table) {
    stepped(grid, before, U'x');
    grid.userControlKey(key);
    EXPECT_EQ(grid.text(1, grid.fixedColumns()), after) << before;
  }
}

// The additional map shows bytes doubled; an airflow word's colour is rounded ties to even.
TEST_F(CellEditing, StepsStopAtTheLimits) {
  const std::tuple<Grid&, const char*, const char*, const char*, int> table[] = {
      {fuel, "255", "255", "254", 255},  {fuel, "1e400", "255", "2147483646", 255},
      {fuel, "0", "1", "0", 1},          {limits, "300", "255", "299", 255},
      {fuel, "abc", "1", "0", 1},        {doubled, "400", "255", "399", 255},
      {fuel, "12.5", "13", "11", 13},    {air, "65534", "65535", "65533", 255},
      {air, "127", "128", "126", 0},     {air, "70000", "65535", "69999", 255},
      {air, "128", "129", "127", 1},     {rpmFuel, "14950", "15000", "14900", -1},
      {tpFuel, "255", "255", "254", -1}, {rpmFuel, "20000", "15000", "19950", -1},
      {tpFire, "0", "1", "0", -1},       {rpmFuel, "99.5", "150", "50", -1},
      {rpmFire, "30", "60", "0", -1},    {rpmFire, "14980", "15000", "14950", -1}};
  for (const auto& [grid, before, raised, lowered, blue] : table) {
    EXPECT_EQ(stepped(grid, before, '+'), raised) << before;
    expectBlue(grid, blue);
    EXPECT_EQ(stepped(grid, before, '-'), lowered) << before;
  }
  editorState.addressMap.map(RPM_SCALE_FUEL).scale = -50;
  EXPECT_EQ(stepped(rpmFuel, "30", '+'), "-20");
  EXPECT_EQ(stepped(fuel, "9", 'x'), "9");
  editorState.plusKey = editorState.minusKey = "=";
  EXPECT_EQ(stepped(fuel, "255", '='), "254") << "both on one key: up first";
}

TEST_F(CellEditing, EachCommandTellsTheScreenOnceAndALoadTwice) {
  const std::tuple<const char*, std::function<void()>, int> commands[] = {
      {"load: emptied, filled", [this] { loadImage(patternImage(0x400, 2)); }, 2},
      {"cell", [this] { enterCell(fuel, 2, 2, "9"); }, 1},
      {"drag", [this] { drag(fuel, 1, 1, 4, 8); }, 0},
      {"key", [this] { fuel.userKey('+'); }, 1},
      {"copy", [this] { pick("CPY"); }, 0},
      {"paste", [this] { pick("PST"); }, 1}};
  for (const auto& [name, command, repaints] : commands) {
    int count = 0;
    fuel.observer = [&count](const Change& change) {
      count += change.kind == Change::cell || change.kind == Change::cells;
    };
    command();
    fuel.observer = nullptr;
    EXPECT_EQ(count, repaints) << name;
  }
}

TEST_F(CellEditing, TheRightButtonOpensTheEditMenuOnMapGrids) {
  for (Grid* grid : {&fuel, &air, &doubled, &limits, &tpFuel, &rpmFuel}) {
    const std::size_t before = desk.popUps.size();
    grid->userMouseDown(MouseButton::left);
    EXPECT_EQ(desk.popUps.size(), before);
    grid->userMouseDown(MouseButton::right);
  }
  EXPECT_EQ(desk.popUps, std::vector<MenuItem*>(3, form.menuBar.find("edit_0")));
}

TEST_F(CellEditing, TheBoostRowsFollowEachLoad) {
  tpFire.setText(0, 1, "old");
  enterCell(tpFuel, 1, 1, "no number");
  EXPECT_EQ(tpFire.text(0, 1), "old");
  enterCell(tpFuel, 1, 1, "0");
  EXPECT_EQ(tpFuel.text(0, 1), "-1.03");
  tpFire.setText(0, 1, "old");
  drag(tpFuel, 1, 1, 1, 8);
  tpFuel.userKey('+');
  EXPECT_NE(tpFire.text(0, 1), "old");
}

}  // namespace
