// Cells of the map grids under the user's hands: the prompt after a double click, the two step
// keys on a selection, and the menu of the right button.
#include "editing/cell_editing.h"

#include "core/map_display.h"
#include "editing/selection.h"
#include "platform/failure.h"
#include "support.h"

namespace {

constexpr Colour shade(int blue) { return rgb(255 - blue, 0, blue); }

class CellEditing : public ProgramTest {
 protected:
  // What the cell shows after its text was `before` and the key was pressed.
  std::string stepped(Grid& grid, const std::string& before, char32_t key) {
    drag(grid, 1, 1, 1, 1);
    grid.setText(1, 1, before);
    grid.userKey(key);
    return grid.text(1, 1);
  }
  Form1& form = form1();
  Grid &fuel = form.Grid1, &airflow = form.Grid5, &limits = form.Grid7, &doubled = form.AddGrid1;
};

TEST_F(CellEditing, EntriesAreRoundedLimitedAndPainted) {
  loadSmallCar();
  editorState.gridColorRate = 2;
  struct Case {
    Grid& grid;
    const char *answer, *text;
    int blue;
  };
  for (const auto& [grid, answer, text, blue] :
       {Case{fuel, "12.5", "12", 25}, Case{fuel, "13.5", "14", 27}, Case{fuel, "300", "255", 255},
        Case{fuel, "254.9", "255", 255}, Case{fuel, "-5", "0", 0}, Case{fuel, " 1e2 ", "100", 200},
        Case{fuel, "+7", "7", 14}, Case{limits, "0.4", "0", 1}, Case{doubled, "300", "255", 255},
        Case{airflow, "65536", "65535", 255}, Case{airflow, "65535.7", "65536", 255},
        Case{airflow, "511.9", "512", 1}, Case{airflow, "-1", "0", 0}}) {
    enterCell(grid, 1, 2, answer);
    EXPECT_EQ(grid.text(1, 2), text) << answer;
    EXPECT_EQ(grid.background(1, 2), shade(blue)) << answer;
  }
  const std::string before = fuel.text(2, 3);
  for (const char* answer : {"", "abc", "12x", "--5", "1e400", "inf", "nan", "&H10", "５"}) {
    enterCell(fuel, 2, 3, answer);
    EXPECT_EQ(fuel.text(2, 3), before) << answer;
  }
  EXPECT_TRUE(desk.boxes.empty());
}

TEST_F(CellEditing, AnEntryPaintsOneCellAndLeavesSelectionAndImageAlone) {
  loadSmallCar();
  Bytes image = editorState.image;
  drag(fuel, 3, 4, 1, 2);
  desk.textAnswers = {"99"};
  EXPECT_EQ(repaintsOf(fuel, [this] { fuel.userDoubleClick(); }), 1);
  EXPECT_EQ(fuel.selection(), (GridSelection{3, 4, 1, 2}));
  EXPECT_EQ(editorState.image, image);
  image[0x100 + 2 * 8 + 3] = 99;
  EXPECT_EQ(saveImage("edited.bin"), image);
}

TEST_F(CellEditing, ThePromptTellsTheRangeInTheLanguageInForce) {
  loadSmallCar();
  fuel.setText(1, 1, " 7.5");
  airflow.setText(1, 1, "65535");
  const std::string words[] = {
      "データ変更: データは？\r\n\r\n設定できるデータの大きさは、0-",
      "Data change: Data?\r\n\r\nFor a size of data that I can set up, 0 - "};
  for (const int language : {0, 1}) {
    editorState.english = language;
    enterCell(fuel, 1, 1, "");
    enterCell(airflow, 1, 1, "");
    const TextPrompt &word = desk.prompts.back(), &byte = desk.prompts.end()[-2];
    EXPECT_EQ(byte.title + ": " + byte.text, words[language] + "255");
    EXPECT_EQ(word.title + ": " + word.text, words[language] + "65535");
    EXPECT_EQ(byte.answer + word.answer, "865535");
  }
}

TEST_F(CellEditing, NoPromptWithoutANumberOrWhereTheGridTakesNoInput) {
  startWithMap(smallMap() + mapBlock("REG_FIRE", "&H300", 4, 0, 4));
  fuel.userDoubleClick();  // nothing was drawn
  loadImage(patternImage(0x400));
  for (Grid* grid : {&form.Grid4, &form.Grid2}) {  // headers alone; absent on this car
    const std::string header = grid->text(0, 1);
    grid->userDoubleClick();
    grid->userKey('+');
    EXPECT_EQ(grid->text(0, 1), header);
  }
  EXPECT_EQ(form.Grid4.text(0, 1) + form.Grid2.text(1, 1), "+0");
  fuel.setText(1, 1, "12x");
  fuel.userDoubleClick();
  EXPECT_TRUE(desk.prompts.empty());
}

// The additional map shows bytes doubled; an airflow word's colour is rounded ties to even.
TEST_F(CellEditing, StepsStopAtTheLimits) {
  loadSmallCar();
  struct Case {
    Grid& grid;
    const char *before, *raised, *lowered;
    int raisedBlue;
  };
  for (const auto& [grid, before, raised, lowered, blue] :
       {Case{fuel, "254", "255", "253", 255}, Case{fuel, "255", "255", "254", 255},
        Case{fuel, "0", "1", "0", 1}, Case{fuel, "1", "2", "0", 2}, Case{fuel, "abc", "1", "0", 1},
        Case{fuel, "12.5", "13", "11", 13}, Case{limits, "300", "255", "299", 255},
        Case{doubled, "400", "255", "399", 255}, Case{airflow, "65534", "65535", "65533", 255},
        Case{airflow, "127", "128", "126", 0}, Case{airflow, "128", "129", "127", 1},
        Case{airflow, "70000", "65535", "69999", 255},
        Case{fuel, "1e400", "255", "2147483646", 255}}) {
    EXPECT_EQ(stepped(grid, before, '+'), raised) << before;
    EXPECT_EQ(grid.background(1, 1), shade(blue)) << before;
    EXPECT_EQ(stepped(grid, before, '-'), lowered) << before;
  }
}

// Both on one key: up first, so that a cell at the upper limit ends one below it.
TEST_F(CellEditing, KeysAreWhatTheSettingsAssign) {
  loadSmallCar();
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
  loadSmallCar();
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
  loadSmallCar();
  for (Grid* grid : {&fuel, &form.Grid3, &airflow, &doubled, &form.Grid2, &limits, &form.TP_FUEL,
                     &form.RPM_FUEL}) {
    for (const MouseButton button : {MouseButton::left, MouseButton::middle, MouseButton::right})
      grid->userMouseDown(button);
  }
  EXPECT_EQ(desk.popUps, std::vector<MenuItem*>(4, form.menuBar.find("edit_0")));
}

}  // namespace
