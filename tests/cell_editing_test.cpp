// Cells of the map grids and of the scales under the user's hands: the prompt after a double click,
// the two step keys on a selection, the menu of the right button, and the boost that follows.
#include "editing/cell_editing.h"

#include "editing/selection.h"
#include "platform/failure.h"
#include "support.h"

namespace {

constexpr int unpainted = -1;

class CellEditing : public ProgramTest {
 protected:
  // Engine speeds in steps of 50 for the fuel map and of 30 for the ignition map.
  CellEditing() {
    startWithMap(smallMap() + mapBlock("TP_SCALE_FIRE", "&H1A0", 8, 1, 8) +
                 mapBlock("RPM_SCALE_FIRE", "&H1B0", 4, 1, 4, "30") +
                 mapBlock("REG_FIRE", "&H300", 4, 0, 4));
    fuel.userDoubleClick();  // nothing was drawn
    loadImage(patternImage(0x400));
  }
  // Selects the grid's first row of cells, from the first to the last.
  static void dragRow(Grid& grid) { drag(grid, 1, grid.fixedColumns(), 1, grid.columns() - 1); }
  static std::string first(const Grid& grid) { return grid.text(1, grid.fixedColumns()); }
  // What the first cell shows after its text was `before` and the key was pressed.
  static std::string stepped(Grid& grid, const std::string& before, char32_t key) {
    drag(grid, 1, grid.fixedColumns(), 1, grid.fixedColumns());
    grid.setText(1, grid.fixedColumns(), before);
    grid.userKey(key);
    return first(grid);
  }
  static void expectBlue(const Grid& grid, int blue) {
    EXPECT_EQ(grid.painted(1, grid.fixedColumns()), blue != unpainted);
    if (blue == unpainted) return;
    EXPECT_EQ(grid.background(1, grid.fixedColumns()), rgb(255 - blue, 0, blue));
  }
  std::string boost() const { return rowText(tpFuel, 0, 9) + rowText(tpFire, 0, 9); }

  Form1& form = form1();
  Grid &fuel = form.Grid1, &airflow = form.Grid5, &limits = form.Grid7, &doubled = form.AddGrid1;
  Grid &tpFuel = form.TP_FUEL, &tpFire = form.TP_FIRE;
  Grid &rpmFuel = form.RPM_FUEL, &rpmFire = form.RPM_FIRE;
};

TEST_F(CellEditing, EntriesAreRoundedLimitedAndPaintedAlone) {
  struct Case {
    Grid& grid;
    const char *answer, *text;
    int blue = unpainted;
  };
  const Bytes image = editorState.image;
  editorState.gridColorRate = 2;
  for (const auto& [grid, answer, text, blue] : {Case{fuel, "12.5", "12", 25},
                                                 Case{fuel, "13.5", "14", 27},
                                                 Case{fuel, "300", "255", 255},
                                                 Case{fuel, "254.9", "255", 255},
                                                 Case{fuel, "-5", "0", 0},
                                                 Case{fuel, " 1e2 ", "100", 200},
                                                 Case{fuel, "+7", "7", 14},
                                                 Case{limits, "0.4", "0", 1},
                                                 Case{doubled, "300", "255", 255},
                                                 Case{airflow, "65536", "65535", 255},
                                                 Case{airflow, "65535.7", "65536", 255},
                                                 Case{airflow, "511.9", "512", 1},
                                                 Case{airflow, "-1", "0", 0},
                                                 Case{tpFuel, "300", "255"},
                                                 Case{tpFire, "-1", "0"},
                                                 Case{tpFire, "12.5", "12"},
                                                 Case{rpmFuel, "1234", "1234"},
                                                 Case{rpmFuel, "99999", "99999"},
                                                 Case{rpmFire, "-30", "0"},
                                                 Case{rpmFire, "1e30", "2147483647"}}) {
    dragRow(grid);
    const GridSelection selection = grid.selection();
    desk.textAnswers = {answer};
    const int repaints = repaintsOf(grid, [&cells = grid] { cells.userDoubleClick(); });
    EXPECT_EQ(repaints, &grid == &tpFuel || &grid == &tpFire ? 2 : 1) << answer;
    EXPECT_EQ(grid.selection(), selection);
    EXPECT_EQ(first(grid), text) << answer;
    expectBlue(grid, blue);
  }
  for (Grid* grid : {&fuel, &airflow, &tpFuel, &rpmFuel}) {
    const std::string before = first(*grid);
    for (const char* answer : {"", "abc", "12x", "--5", "1e400", "inf", "nan", "&H10", "５"}) {
      enterCell(*grid, 1, grid->fixedColumns(), answer);
      EXPECT_EQ(first(*grid), before) << answer;
    }
  }
  EXPECT_TRUE(desk.boxes.empty() && editorState.image == image);
}

TEST_F(CellEditing, ThePromptTellsTheRangeInTheLanguageInForce) {
  fuel.setText(1, 1, " 7.5");
  airflow.setText(1, 1, "65535");
  rpmFuel.setText(1, 0, "12800");
  std::string told;
  for (const int language : {0, 1}) {
    editorState.english = language;
    for (Grid* grid : {&fuel, &airflow, &rpmFuel}) {
      enterCell(*grid, 1, grid->fixedColumns(), "");
      const TextPrompt& prompt = desk.prompts.back();
      told += prompt.title + ": " + prompt.text + ": " + prompt.answer + '|';
    }
  }
  EXPECT_EQ(told,
            "データ変更: データは？\r\n\r\n設定できるデータの大きさは、0-255: 8|"
            "データ変更: データは？\r\n\r\n設定できるデータの大きさは、0-65535: 65535|"
            "データ変更: データは？\r\n\r\n: 12800|"
            "Data change: Data?\r\n\r\nFor a size of data that I can set up, 0 - 255: 8|"
            "Data change: Data?\r\n\r\nFor a size of data that I can set up, 0 - 65535: 65535|"
            "Data change: Data?\r\n\r\n: 12800|");
}

TEST_F(CellEditing, NoPromptWithoutANumberOrWhereTheGridTakesNoInput) {
  fuel.setText(1, 1, "12x");
  drag(fuel, 1, 1, 1, 1);
  drag(rpmFuel, 12, 0, 12, 0);  // below the scale's values
  for (Grid* grid : {&fuel, &rpmFuel, &form.Grid4, &form.Grid2}) {
    grid->userDoubleClick();
    if (grid != &fuel) grid->userKey('+');
  }
  EXPECT_EQ(form.Grid4.text(0, 1) + form.Grid2.text(1, 1), "+0") << "headers alone; absent";
  EXPECT_TRUE(desk.prompts.empty());
}

// The additional map shows bytes doubled; an airflow word's colour is rounded ties to even.
TEST_F(CellEditing, StepsStopAtTheLimits) {
  struct Case {
    Grid& grid;
    const char *before, *raised, *lowered;
    int raisedBlue = unpainted;
  };
  for (const auto& [grid, before, raised, lowered, blue] :
       {Case{fuel, "255", "255", "254", 255},
        Case{fuel, "0", "1", "0", 1},
        Case{fuel, "abc", "1", "0", 1},
        Case{fuel, "12.5", "13", "11", 13},
        Case{fuel, "1e400", "255", "2147483646", 255},
        Case{limits, "300", "255", "299", 255},
        Case{doubled, "400", "255", "399", 255},
        Case{airflow, "65534", "65535", "65533", 255},
        Case{airflow, "127", "128", "126", 0},
        Case{airflow, "128", "129", "127", 1},
        Case{airflow, "70000", "65535", "69999", 255},
        Case{tpFuel, "255", "255", "254"},
        Case{tpFire, "0", "1", "0"},
        Case{rpmFuel, "14950", "15000", "14900"},
        Case{rpmFuel, "15000", "15000", "14950"},
        Case{rpmFuel, "30", "80", "0"},
        Case{rpmFuel, "20000", "15000", "19950"},
        Case{rpmFuel, "99.5", "150", "50"},
        Case{rpmFire, "30", "60", "0"},
        Case{rpmFire, "14980", "15000", "14950"}}) {
    EXPECT_EQ(stepped(grid, before, '+'), raised) << before;
    expectBlue(grid, blue);
    EXPECT_EQ(stepped(grid, before, '-'), lowered) << before;
  }
  editorState.addressMap.map(RPM_SCALE_FUEL).scale = -50;
  EXPECT_EQ(stepped(rpmFuel, "30", '+'), "-20");
}

// Both on one key: up first, so that a cell at the upper limit ends one below it.
TEST_F(CellEditing, KeysAreWhatTheSettingsAssign) {
  struct Case {
    const char *plus, *minus;
    char32_t key;
    const char *before, *after;
  };
  for (const auto& [plus, minus, key, before, after] :
       {Case{"+", "-", 'x', "100", "100"}, Case{"", "", '\0', "100", "100"},
        Case{"", "", '+', "100", "100"}, Case{"up", "down", 'u', "100", "101"},
        Case{"up", "down", 'd', "100", "99"}, Case{"up", "down", 'p', "100", "100"},
        Case{"あ", "い", U'い', "100", "99"}, Case{"a", "b", 'A', "100", "100"},
        Case{"=", "=", '=', "100", "100"}, Case{"=", "=", '=', "255", "254"},
        Case{"=", "=", '=', "0", "0"}}) {
    editorState.plusKey = plus;
    editorState.minusKey = minus;
    EXPECT_EQ(stepped(fuel, before, key), after) << plus << " " << minus;
  }
}

TEST_F(CellEditing, SelectionsAreWalkedColumnByColumnPaintedOnceAndStaySelected) {
  const std::pair<GridSelection, std::string> cases[] = {
      {{2, 3, 2, 3}, "23 "},          {{1, 1, 2, 2}, "11 21 12 22 "},
      {{2, 2, 1, 1}, "22 12 21 11 "}, {{1, 2, 2, 1}, "12 22 11 21 "},
      {{2, 1, 1, 2}, "21 11 22 12 "}, {{0, 0, 1, 1}, "11 "}};
  for (const auto& [selection, expected] : cases) {
    for (int cell = 0; cell < 32; ++cell) fuel.setText(cell / 8 + 1, cell % 8 + 1, "100");
    fuel.setSelection(selection);
    std::string walk;
    walkSelection(fuel, [&walk](int r, int c) { walk += std::to_string(r * 10 + c) + ' '; });
    EXPECT_EQ(walk, expected);
    EXPECT_EQ(repaintsOf(fuel, [this] { fuel.userKey('+'); }), 1);
    EXPECT_EQ(fuel.selection(), selection);
    for (int cell = 0; cell < 32; ++cell) {
      const int r = cell / 8 + 1, c = cell % 8 + 1;
      const bool inside = expected.find(std::to_string(r * 10 + c)) != std::string::npos;
      EXPECT_EQ(fuel.text(r, c), inside ? "101" : "100") << r << ' ' << c;
    }
  }
  EXPECT_THROW(walkSelection(fuel, [](int, int) { throw Failure(overflow); }), Failure);
  EXPECT_TRUE(fuel.redraw());
}

TEST_F(CellEditing, TheRightButtonOpensTheEditMenuOnMapGrids) {
  for (Grid* grid :
       {&fuel, &form.Grid3, &airflow, &doubled, &form.Grid2, &limits, &tpFuel, &rpmFuel}) {
    for (const MouseButton button : {MouseButton::left, MouseButton::middle, MouseButton::right}) {
      grid->userMouseDown(button);
    }
  }
  EXPECT_EQ(desk.popUps, std::vector<MenuItem*>(4, form.menuBar.find("edit_0")));
}

TEST_F(CellEditing, TheBoostRowsFollowEachLoadOnce) {
  const std::string before = boost();
  const auto repaints = [this](Grid& grid, char32_t key) {
    return repaintsOf(grid, [&] { tpFuel.userKey(key); });
  };
  dragRow(tpFuel);
  EXPECT_EQ(repaints(tpFire, '*') + repaints(tpFuel, '*'), 0);
  EXPECT_EQ(repaints(tpFire, '+'), 1);
  EXPECT_NE(boost(), before);
  EXPECT_EQ(repaints(tpFuel, '-'), 1);
  EXPECT_EQ(boost(), before);
  editorState.minusKey = "+";
  tpFuel.userKey('+');
  EXPECT_EQ(boost(), before);
  tpFire.setText(0, 1, "stale");
  for (const char* answer : {"", "no number"}) enterCell(tpFuel, 1, 1, answer);
  enterCell(rpmFuel, 1, 0, "700");
  EXPECT_EQ(tpFire.text(0, 1), "stale");
  enterCell(tpFuel, 1, 1, "0");
  EXPECT_EQ(tpFuel.text(0, 1), "-1.03");
  EXPECT_NE(tpFire.text(0, 1), "stale");
}

TEST_F(CellEditing, AnEngineSpeedBetweenTwoStepsIsStoredRoundedDown) {
  enterCell(rpmFuel, 3, 0, "1234");
  enterCell(rpmFire, 3, 0, "1234");
  const Bytes saved = saveImage("scaled.bin");
  EXPECT_EQ(saved[0x193], 24);
  EXPECT_EQ(saved[0x1B3], 41);
  EXPECT_EQ(rpmFuel.text(3, 0), "1234");
  pickFile("load_bin_file", "scaled.bin");
  EXPECT_EQ(rpmFuel.text(3, 0) + rpmFire.text(3, 0), "12001230");
}

}  // namespace
