// Cells of the map grids under the user's hands: the prompt after a double click, the two step
// keys on a selection, and the menu of the right button.
#include "editing/cell_editing.h"

#include <algorithm>

#include "calc/engine_specification.h"
#include "core/map_display.h"
#include "editing/selection.h"
#include "platform/failure.h"
#include "support.h"

namespace {

constexpr Colour shade(int blue) { return rgb(255 - blue, 0, blue); }

class CellEditing : public ProgramTest {
 protected:
  void load() {
    startWithMap(smallMap());
    loadImage(patternImage(0x400));
  }
  // What the cell shows after its text was `before` and the key was pressed.
  std::string stepped(Grid& grid, const std::string& before, char32_t key) {
    drag(grid, 1, 1, 1, 1);
    grid.setText(1, 1, before);
    grid.userKey(key);
    return grid.text(1, 1);
  }
  Form1& form = form1();
};

TEST_F(CellEditing, EntriesAreRoundedLimitedAndPainted) {
  load();
  editorState.gridColorRate = 2;
  struct Case {
    Grid& grid;
    const char *answer, *text;
    int blue;
  };
  const Case cases[] = {
      {form.Grid1, "12", "12", 24},        {form.Grid1, "12.5", "12", 25},
      {form.Grid1, "13.5", "14", 27},      {form.Grid1, "12.3", "12", 25},
      {form.Grid1, "300", "255", 255},     {form.Grid1, "254.9", "255", 255},
      {form.Grid1, "-5", "0", 0},          {form.Grid1, " 1e2 ", "100", 200},
      {form.Grid1, "+7", "7", 14},         {form.Grid7, "0.4", "0", 1},
      {form.AddGrid1, "300", "255", 255},  {form.Grid5, "70000", "65535", 255},
      {form.Grid5, "65536", "65535", 255}, {form.Grid5, "65535.7", "65536", 255},
      {form.Grid5, "511.9", "512", 1},     {form.Grid5, "255", "255", 0},
      {form.Grid5, "-1", "0", 0},
  };
  for (const Case& c : cases) {
    enterCell(c.grid, 1, 2, c.answer);
    EXPECT_EQ(c.grid.text(1, 2), c.text) << c.answer;
    EXPECT_EQ(c.grid.background(1, 2), shade(c.blue)) << c.answer;
  }
  const std::string before = form.Grid1.text(2, 3);
  for (const char* answer : {"", "abc", "12x", "--5", "1e400", "inf", "nan", "&H10", "５"}) {
    enterCell(form.Grid1, 2, 3, answer);
    EXPECT_EQ(form.Grid1.text(2, 3), before) << answer;
  }
  EXPECT_TRUE(desk.boxes.empty());
}

TEST_F(CellEditing, AnEntryPaintsOneCellAndLeavesSelectionAndImageAlone) {
  load();
  const Bytes image = editorState.image;
  drag(form.Grid1, 3, 4, 1, 2);
  desk.textAnswers = {"99"};
  EXPECT_EQ(repaintsOf(form.Grid1, [this] { form.Grid1.userDoubleClick(); }), 1);
  EXPECT_EQ(form.Grid1.selection(), (GridSelection{3, 4, 1, 2}));
  EXPECT_EQ(editorState.image, image);
  Bytes expected = image;
  expected[0x100 + 2 * 8 + 3] = 99;
  EXPECT_EQ(saveImage("edited.bin"), expected);
}

TEST_F(CellEditing, ThePromptTellsTheRangeInTheLanguageInForce) {
  load();
  form.Grid1.setText(1, 1, " 7.5");
  form.Grid5.setText(1, 1, "65535");
  const std::string english =
      "Data change: Data?\r\n\r\nFor a size of data that I can set up, 0 - ";
  const std::string japanese = "データ変更: データは？\r\n\r\n設定できるデータの大きさは、0-";
  for (const auto& [language, words] : {std::pair{1, english}, std::pair{0, japanese}}) {
    editorState.english = language;
    for (const bool airflow : {false, true}) {
      enterCell(airflow ? form.Grid5 : form.Grid1, 1, 1, "");
      const TextPrompt& prompt = desk.prompts.back();
      EXPECT_EQ(prompt.title + ": " + prompt.text, words + (airflow ? "65535" : "255"));
      EXPECT_EQ(prompt.answer, airflow ? "65535" : "8");
    }
  }
}

TEST_F(CellEditing, NoPromptWithoutANumberOrWhereTheGridTakesNoInput) {
  startWithMap(smallMap() + mapBlock("REG_FIRE", "&H300", 4, 0, 4));
  form.Grid1.userDoubleClick();  // nothing was drawn
  loadImage(patternImage(0x400));
  ASSERT_EQ(form.Grid4.text(0, 1), "+0");
  form.Grid4.userDoubleClick();  // headers alone
  form.Grid4.userKey('+');
  EXPECT_EQ(form.Grid4.text(0, 1), "+0");
  form.Grid2.userDoubleClick();  // absent on this car
  form.Grid2.userKey('+');
  EXPECT_EQ(form.Grid2.text(1, 1), "");
  form.Grid1.setText(1, 1, "12x");
  form.Grid1.userDoubleClick();
  const std::string before = form.Grid1.text(1, 2);
  pick("set_spl");
  drag(form.Grid1, 1, 2, 1, 2);
  form.Grid1.userDoubleClick();
  form.Grid1.userKey('+');
  EXPECT_EQ(form.Grid1.text(1, 2), before);
  form2.userEscape();
  EXPECT_TRUE(desk.prompts.empty());
}

TEST_F(CellEditing, StepsStopAtTheLimits) {
  load();
  struct Case {
    Grid& grid;
    const char *before, *raised, *lowered;
    int raisedBlue;
  };
  // The additional map shows bytes doubled; an airflow word's colour is rounded ties to even.
  const Case cases[] = {
      {form.Grid1, "254", "255", "253", 255},
      {form.Grid1, "255", "255", "254", 255},
      {form.Grid1, "0", "1", "0", 1},
      {form.Grid1, "1", "2", "0", 2},
      {form.Grid1, "", "1", "0", 1},
      {form.Grid1, "abc", "1", "0", 1},
      {form.Grid1, "12.5", "13", "11", 13},
      {form.Grid7, "300", "255", "299", 255},
      {form.AddGrid1, "400", "255", "399", 255},
      {form.Grid5, "65534", "65535", "65533", 255},
      {form.Grid5, "65535", "65535", "65534", 255},
      {form.Grid5, "127", "128", "126", 0},
      {form.Grid5, "128", "129", "127", 1},
      {form.Grid5, "70000", "65535", "69999", 255},
      {form.Grid1, "1e400", "255", "2147483646", 255},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(stepped(c.grid, c.before, '+'), c.raised) << c.before;
    EXPECT_EQ(c.grid.background(1, 1), shade(std::min(c.raisedBlue, 255))) << c.before;
    EXPECT_EQ(stepped(c.grid, c.before, '-'), c.lowered) << c.before;
  }
}

TEST_F(CellEditing, KeysAreWhatTheSettingsAssign) {
  load();
  struct Case {
    const char *plus, *minus;
    char32_t key;
    const char* after;
  };
  const Case cases[] = {
      {"+", "-", 'x', "100"},     {"", "", '\0', "100"},     {"", "", '+', "100"},
      {"up", "down", 'u', "101"}, {"up", "down", 'd', "99"}, {"up", "down", 'p', "100"},
      {"=", "=", '=', "100"},     {"あ", "い", U'い', "99"}, {"a", "b", 'A', "100"},
  };
  for (const Case& c : cases) {
    editorState.plusKey = c.plus;
    editorState.minusKey = c.minus;
    EXPECT_EQ(stepped(form.Grid1, "100", c.key), c.after) << c.plus << " " << c.minus;
  }
  // Both on one key: up first, so that a cell at the upper limit ends one below it.
  editorState.plusKey = editorState.minusKey = "=";
  EXPECT_EQ(stepped(form.Grid1, "255", '='), "254");
  EXPECT_EQ(stepped(form.Grid1, "0", '='), "0");
}

TEST_F(CellEditing, SelectionsStepAsABlockPaintedOnceAndStaySelected) {
  load();
  Grid& grid = form.Grid1;
  for (const GridSelection& selection : std::initializer_list<GridSelection>{
           {1, 1, 1, 1}, {2, 3, 4, 5}, {4, 5, 2, 3}, {2, 5, 4, 3}, {4, 3, 2, 5}, {4, 8, 1, 1}}) {
    for (int cell = 0; cell < 32; ++cell) grid.setText(cell / 8 + 1, cell % 8 + 1, "100");
    grid.userSelect(selection);
    EXPECT_EQ(repaintsOf(grid, [&grid] { grid.userKey('+'); }), 1);
    EXPECT_EQ(grid.selection(), selection);
    const GridBlock block = grid.block();
    for (int r = 1; r <= 4; ++r) {
      for (int c = 1; c <= 8; ++c) {
        const bool inside = std::clamp(r, block.top, block.bottom) == r &&
                            std::clamp(c, block.left, block.right) == c;
        EXPECT_EQ(grid.text(r, c), inside ? "101" : "100") << r << ' ' << c;
      }
    }
  }
}

TEST_F(CellEditing, TheWalkGoesColumnByColumnFromTheCurrentCell) {
  load();
  struct Case {
    GridSelection selection;
    const char* walk;
  };
  const Case cases[] = {{{2, 3, 2, 3}, "23 "},          {{1, 1, 2, 2}, "11 21 12 22 "},
                        {{2, 2, 1, 1}, "22 12 21 11 "}, {{1, 2, 2, 1}, "12 22 11 21 "},
                        {{2, 1, 1, 2}, "21 11 22 12 "}, {{0, 0, 1, 1}, "11 "}};
  Grid& grid = form.Grid1;
  for (const Case& c : cases) {
    grid.setSelection(c.selection);
    std::string walk;
    walkSelection(
        grid, [&walk](int r, int col) { walk += std::to_string(r) + std::to_string(col) + ' '; });
    EXPECT_EQ(walk, c.walk);
  }
  EXPECT_THROW(walkSelection(grid, [](int, int) { throw Failure(overflow); }), Failure);
  EXPECT_TRUE(grid.redraw());
}

TEST_F(CellEditing, TheRightButtonOpensTheEditMenuOnMapGrids) {
  load();
  MenuItem* const edit = form.menuBar.find("edit_0");
  for (Grid* grid : {&form.Grid1, &form.Grid3, &form.Grid5, &form.AddGrid1}) {
    grid->userMouseDown(MouseButton::left);
    grid->userMouseDown(MouseButton::middle);
    EXPECT_TRUE(desk.popUps.empty());
    grid->userMouseDown(MouseButton::right);
    EXPECT_EQ(desk.popUps, std::vector<MenuItem*>{edit});
    desk.popUps.clear();
  }
  for (Grid* grid : {&form.Grid2, &form.Grid7, &form.TP_FUEL, &form.RPM_FUEL}) {
    grid->userMouseDown(MouseButton::right);
    EXPECT_TRUE(desk.popUps.empty());
  }
}

}  // namespace
