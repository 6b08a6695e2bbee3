// The map tools: their guards and dialogs, and what adding, multiplying, smoothing and shifting
// make of a selection.

#include <cmath>

#include "calc/af_table.h"
#include "core/map_colours.h"
#include "core/map_kinds.h"
#include "editing/add_multiply.h"
#include "editing/cell_change_dialogs.h"
#include "editing/cell_editing.h"
#include "editing/map_shift.h"
#include "editing/smoothing.h"
#include "map_tools_bed.h"

namespace {

class MapTools : public LoadedCarTest {
 protected:
  BulkChangeDialog& change(bool adds, const std::string& threshold, const std::string& by) {
    pick(adds ? "add_dec" : "kakeru");
    BulkChangeDialog& dialog = adds ? form7 : form8;
    EXPECT_EQ(dialog.focus(), &dialog.Text2) << "the amount";
    for (const auto& [box, text] : {std::pair(&dialog.Text1, threshold), {&dialog.Text2, by}}) {
      box->userFocus();
      box->userEdit(text);
    }
    dialog.userEnter();
    return dialog;
  }
  void smoothBelow(const std::string& threshold) {
    pick("smooth");
    typeOver(form10.Text1, threshold);
    form10.userEnter();
  }
  void shift(bool left, bool withScale) {
    pick("DT_SFT");
    (left ? form11.Option1 : form11.Option2).userSelect();
    if (!withScale) form11.Check1.userToggle();
    form11.userEnter();
  }
  // The shift's rule for a row: its cells under the map go on by one place, and a 0 comes in.
  static void move(std::vector<int>& row, bool left) {
    const auto end = row.begin() + columns;
    left ? std::shift_left(row.begin(), end, 1) : std::shift_right(row.begin(), end, 1);
    *(left ? end - 1 : row.begin()) = 0;
  }
  Form1& form = form1();
};

TEST_F(MapTools, AreRefusedWithoutImageAndOnTheWrongTabElseHoldTheMainWindow) {
  // The tabs on which it is refused.
  const std::pair<const char*, std::vector<int>> table[] = {
      {"CPY", {14}},
      {"PST", {14}},
      {"F_F", {}},
      {"T_R", {}},
      {"add_dec", {}},
      {"kakeru", {}},
      {"smooth", {}},
      {"ADR_EDIT", {}},
      {"DT_SFT", {5, 14}},
      {"DISP_3D_Graph", {5, 14}},
      {"TP_2D", {3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}},
      {"AF_DISP_FORM", {2, 4, 5, 14}}};
  const RomImage image = editorState.image;
  for (const auto& [command, refusedOn] : table) {
    std::vector<int> refused;
    for (int tab = 1; tab <= globalTab; ++tab) {
      selectTab(tab);
      editorState.image = RomImage(0x400);
      pick(command);
      EXPECT_TRUE(told().starts_with("ROM DATA") && form.enabled()) << command << tab;
      editorState.image = image;
      pick(command);
      if (told().starts_with("With this screen")) refused.push_back(tab);
      if (form.enabled()) continue;
      Window& dialog = *desk.shownWindows.back();
      dialog.userEscape();
      EXPECT_EQ(dialog.loaded(), &dialog == &form10) << "smoothing alone ignores Escape";
      dialog.userClose();
      EXPECT_TRUE(form.enabled() && !dialog.loaded() && editorState.image == image) << command;
    }
    EXPECT_EQ(refused, refusedOn) << command;
  }
  for (const bool adds : {false, true}) change(adds, "110", "5");
  smoothBelow("110");
  selectTab(airflowTab);
  pick("DT_SFT");
  EXPECT_EQ(desk.boxes.size(), 4U) << "all are refused";
  EXPECT_TRUE(form.enabled());
}

TEST_F(MapTools, BoxesTakeTheKeysOfTheirNumbers) {
  const std::tuple<const char*, TextBox&, const char*, const char*> table[] = {
      {"add_dec", form7.Text1, "110", "15"}, {"add_dec", form7.Text2, "", "-15"},
      {"add_dec", form7.Text1, "110", "15"}, {"add_dec", form7.Text2, "", "-15"},
      {"kakeru", form8.Text1, "110", "15"},  {"kakeru", form8.Text2, "", "1.5"},
      {"kakeru", form8.Text1, "110", "15"},  {"smooth", form10.Text1, "120", "15"}};
  for (const auto& [command, box, opened, typed] : table) {
    pick(command);
    EXPECT_EQ(box.text(), opened) << command;
    typeOver(box, "a-+1 .2e\b5x");
    EXPECT_EQ(box.text(), typed) << command;
    box.window().userClose();
  }
}

TEST_F(MapTools, WorkedExamplesOfAddingAndMultiplyingAndEntriesThatAreRefused) {
  // Tab, add or multiply, threshold, by and the cell; what it becomes. "no": a bad threshold, "by":
  // a bad amount.
  const std::pair<const char*, const char*> table[] = {
      {"1,+,110,5,109", "114"},       {"1,+,110,5,110", "110"},      {"1,+,110,-5,3", "0"},
      {"1,+,110,300,10", "255"},      {"1,+,110,-2.5,10", "7"},      {"1,+,110,1e300,10", "255"},
      {"1,+,110,-,10", "10"},         {"1,+,65536,5,300", "255"},    {"1,+,110,5.0,", "5"},
      {"1,+,110,5,-1e30", "0"},       {"1,+,110,5,1e30", "1e30"},    {"5,+,65536,5,65535", "65535"},
      {"5,+,65536,1,65534", "65535"}, {"1,*,110,1.15,100", "115"},   {"1,*,110,1.5,100", "151"},
      {"1,*,110,7.0,0", "1"},         {"1,*,110,1.1.1,100", "111"},  {"1,*,110,1e1,5", "51"},
      {"1,*,110,-0,100", "1"},        {"1,*,110,-1,100", "0"},       {"1,*,110,1e400,0", "1"},
      {"1,*,65536.5,1,1", "no"},      {"5,*,110,3.4e38,1", "65535"}, {"1,+,,5,1", "no"},
      {"1,*,110,,1", "by"},           {"1,+,65537,5,1", "no"},       {"1,*,-1,5,1", "no"},
      {"1,+,110,-256,1", "by"},       {"1,*,110,-1e400,1", "by"},    {"1,+,1e99,1,1", "no"}};
  for (const auto& [given, expected] : table) {
    const std::vector<std::string> parts = fields(given);
    const bool badThreshold = expected == std::string("no");
    const bool refused = badThreshold || expected == std::string("by");
    selectTab(std::stoi(parts[0]));
    Grid& grid = *activeGrid();
    grid.setText(1, 3, parts[4]);
    drag(grid, 1, 3, 1, 3);
    BulkChangeDialog& dialog = change(parts[1] == "+", parts[2], parts[3]);
    EXPECT_EQ(grid.text(1, 3), refused ? parts[4] : expected) << given;
    EXPECT_EQ(told(), refused ? "Wrong data are inputed." : "") << given;
    EXPECT_EQ(dialog.loaded(), refused) << "stays open";
    EXPECT_EQ(dialog.focus() == &dialog.Text1, badThreshold) << given;
    dialog.userClose();
  }
}

TEST_F(MapTools, SettingPercentAndFillingGiveTheNearestNumbersThatCanBeStored) {
  // Tab, command, entry ("!": at least one step), threshold, and the block before and after;
  // "refused" keeps it. Tab 7 is doubled, tab 1 has scales.
  const std::tuple<int, const char*, std::string, const char*, const char*, const char*> table[] = {
      {1, "set", "300", "", "1 2|3 4", "255 255|255 255"},
      {1, "set", "7.5", "3", "1 2|3 4", "8 8|3 4"},
      {1, "set", "", "", "1 2|3 4", "refused"},
      {5, "set", "65536", "", "1 2", "65535 65535"},
      {7, "set", "7", "", "1 2|3 4", "8 8|8 8"},
      {1, "percent", "-3", "", "100 33 50 255", "97 32 49 247"},
      {1, "percent", "1", "", "50 49 0 255", "51 49 0 255"},
      {1, "percent", "-1!", "100", "50 49 0 100", "49 48 0 100"},
      {1, "percent", "-100.001", "", "50 49", "refused"},
      {5, "percent", "12.5", "", "4 65535 1000 12345", "5 65535 1125 13888"},
      {7, "percent", "-3", "", "400 402 10 4", "388 390 10 4"},
      {7, "percent", "3!", "", "10 510", "12 510"},
      {1, "across", "even", "", "0 9 9 10|100 9 9 0", "0 3 7 10|100 67 33 0"},
      {1, "across", "", "", "0 9 9 100", "0 22 56 100"},
      {7, "across", "even", "", "1 9 9 5", "1 2 4 5"},
      {1, "across", "even", "9", "0 9 8 10", "0 9 7 10"},
      {1, "down", "even", "", "0 1|9 9|10 0", "0 1|5 1|10 0"},
      {1, "down", "", "", "0 1|9 9|100 0", "0 1|40 1|100 0"},
      {1, "both", "even", "", "0 9 20|9 9 9|40 9 255", "0 10 20|20 79 138|40 148 255"},
      {1, "across", "even", "", "1 2|3 4", "refused"}};
  for (int i = 1; i <= columns; ++i)
    form.TP_FUEL.setText(1, i, std::to_string(i * (i + 1) / 2 * 5));
  for (int i = 0; i < rows; ++i) form.RPM_FUEL.setText(i, 0, std::to_string(i * (i + 3) * 250));
  for (const auto& [tab, command, entry, threshold, before, after] : table) {
    SCOPED_TRACE(std::string(command) + " " + before);
    selectTab(tab);
    Grid& grid = *activeGrid();
    const std::string block(before);
    const auto across =
        std::count(block.begin(), block.begin() + std::min(block.find('|'), block.size()), ' ');
    fill(grid, matrix(block, tab == airflowTab ? 1 : rows));
    drag(grid, 1, 1, static_cast<int>(std::count(block.begin(), block.end(), '|')) + 1,
         static_cast<int>(across) + 1);
    const Matrix outside = numbers(grid);
    pick(command);
    for (CellChangeDialog* dialog : {static_cast<CellChangeDialog*>(&setDialog),
                                     static_cast<CellChangeDialog*>(&percentDialog),
                                     static_cast<CellChangeDialog*>(&interpolateDialog)}) {
      if (!dialog->loaded()) continue;
      if (*threshold) dialog->onlyBelow.userToggle();
      if (*threshold) typeOver(dialog->threshold, threshold);
      typeOver(setDialog.value, entry);
      typeOver(percentDialog.percent, entry);
      if (entry.ends_with('!')) percentDialog.atLeastOne.userToggle();
      if (entry == "even") interpolateDialog.even.userSelect();
      dialog->userEnter();
      EXPECT_EQ(dialog->loaded(), after == std::string("refused"));
      dialog->userClose();
    }
    EXPECT_EQ(selected(grid), after == std::string("refused") ? before : after);
    EXPECT_EQ(told().empty(), after != std::string("refused"));
    EXPECT_TRUE(form.enabled());
  }
  drag(form.Grid1, 1, 1, 1, 4);
  form.TP_FUEL.setText(1, 2, form.TP_FUEL.text(1, 1));
  pick("across");
  EXPECT_TRUE(!interpolateDialog.byScale.enabled() && interpolateDialog.even.selected());
}

TEST_F(MapTools, ADialogWorksOnTheScaleThatHadTheCursorWhenItOpened) {
  fill(form.Grid1, {{10}});
  form.RPM_FUEL.setText(0, 0, "1240");
  form.RPM_FUEL.userFocus();
  drag(form.RPM_FUEL, 0, 0, 0, 0);
  pick("percent");
  EXPECT_EQ(percentDialog.heading.caption(), "c: 1 x 1 cells");
  form.RPM_FUEL.userLeave();  // the main window is disabled
  typeOver(percentDialog.percent, "-0.1");
  percentDialog.atLeastOne.userToggle();
  percentDialog.userEnter();
  EXPECT_EQ(form.RPM_FUEL.text(0, 0) + " " + form.Grid1.text(1, 1), "1200 10");
  EXPECT_EQ(form.doneStatus.caption(), "1 cell changed");
  form.RPM_FUEL.userFocus();
  pick("coarse_down");
  EXPECT_EQ(form.RPM_FUEL.text(0, 0), "700");
  selectTab(globalTab);
  for (const char* command : {"set", "percent", "both", "coarse_up", "copy_table", "paste_table"}) {
    pick(command);
    EXPECT_EQ(told(), "Please select cells of a map or of a scale first.") << command;
  }
}

TEST_F(MapTools, TheGridOfAnAbsentMapTakesNothing) {
  startWithMap("TYPE_UNIT,CAR\n" + mapBlock("HIGH_FUEL", "256", columns, rows, columns * rows));
  loadImage(patternImage(0x1000));
  desk.clipboard = "77,0,0";
  for (const int tab : {3, airflowTab, doubledTab}) {
    selectTab(tab);
    Grid& grid = *activeGrid();
    grid.resize(rows + 1, columns + 1);
    const Matrix cells = scramble(grid, 99);
    grid.setSelection({1, 1, rows, columns});
    const std::pair<const char*, std::function<void()>> commands[] = {
        {"add", [this] { change(true, "65536", "5"); }},
        {"multiply", [this] { change(false, "65536", "3"); }},
        {"smooth", [this] { smoothBelow("300"); }},
        {"paste", [this] { pick("PST"); }},
        {"step", [&grid] { grid.userKey('+'); }},
        {"step by the program", [tab] { stepSelection(*mapKindOfTab(tab), '+'); }},
        {"double click", [&grid] { grid.userDoubleClick(); }}};
    for (const auto& [name, command] : commands) {
      grid.clear();
      fill(grid, cells);
      command();
      EXPECT_EQ(numbers(grid), cells) << name << " on tab " << tab;
      EXPECT_FALSE(grid.painted(2, 2)) << name << " on tab " << tab;
    }
  }
}

TEST_F(MapTools, ToolsChangeTheSelectionAloneInAnyDirectionOnEachTab) {
  const std::string kept = "121 0 31 0 51 400 0 400|60 0 121 0 80|5 255 8 0 9";
  // Smoothing is one pass along all rows but the last two, then one along all columns but those.
  const std::tuple<std::string, GridSelection, GridSelection, std::string> table[] = {
      {"add", {3, 4, 2, 3}, {3, 4, 2, 3}, "121 0 31 0 51 400 0 400|60 0 121 5 80|5 255 13 5 9"},
      {"mul", {2, 2, 3, 1}, {2, 2, 3, 1}, "121 0 31 0 51 400 0 400|91 1 121 0 80|8 255 8 0 9"},
      {"-", {3, 2, 2, 3}, {3, 2, 2, 3}, "121 0 31 0 51 400 0 400|60 0 120 0 80|5 254 7 0 9"},
      {"121", {4, 5, 1, 1}, {1, 1, 4, 5}, "121 0 0 26 51 400 0 400|60 0 4 40 80|30 0 2 0 9"},
      {"550",
       {1, 6, 3, 8},
       {1, 6, 3, 8},
       "121 0 31 0 51 400 255 400|60 0 121 0 80 200|5 255 8 0 9"},
      {"CPY", {3, 2, 2, 3}, {2, 2, 3, 3}, kept},
      {"PST", {4, 5, 1, 4}, {1, 4, 4, 5}, "121 0 31 0 121 400 0 400|60 0 121 255 8|5 255 8 0 9"},
      {"PST", {6, 8, 6, 8}, {6, 8, 6, 8}, kept}};
  const auto use = [this](const std::string& tool) {
    if (tool == "add") return void(change(true, "110", "5"));
    if (tool == "mul") return void(change(false, "110", "1.5"));
    if (tool == "-") return activeGrid()->userKey(U'-');
    digitKey(static_cast<char32_t>(tool[0])) ? smoothBelow(tool) : pick(tool);
  };
  const Matrix before = matrix(kept);
  for (int tab = 1; tab < globalTab; ++tab) {
    if (tab == airflowTab) continue;
    selectTab(tab);
    Grid& grid = tabGrid(tab);
    for (const auto& [tool, dragged, selected, expected] : table) {
      SCOPED_TRACE(tool + " on tab " + std::to_string(tab));
      fill(grid, before);
      grid.userSelect(dragged);
      use(tool);
      const Matrix after = matrix(expected);
      EXPECT_EQ(numbers(grid), after);
      EXPECT_EQ(grid.selection(), selected);
      for (int r = 1; r <= rows; ++r) {
        for (int c = 1; c <= columns; ++c) {
          const int cell = after[std::size_t(r - 1)][std::size_t(c - 1)];
          if (cell == before[std::size_t(r - 1)][std::size_t(c - 1)]) continue;
          EXPECT_EQ(grid.background(r, c), rgb(std::uint8_t(255 - cell), 0, std::uint8_t(cell)));
        }
      }
    }
  }
}

TEST_F(MapTools, EachMapMovesByOneColumnAndTheBoostFollows) {
  for (int trial = 0; trial < 4 * globalTab; ++trial) {
    const int tab = 1 + trial / 4;
    const bool left = trial % 2 == 0, withScale = trial % 4 < 2;
    selectTab(tab);
    if (tab == airflowTab || tab == globalTab) continue;
    Grid& grid = tabGrid(tab);
    Matrix cells = scramble(grid, 255);
    Matrix fuel = scramble(form.TP_FUEL, 255), fire = scramble(form.TP_FIRE, 255);
    form.TP_FUEL.setText(0, 1, "old");
    shift(left, withScale);
    for (auto& row : cells) move(row, left);
    if (withScale && tab == 1) move(fuel[0], left);
    if (withScale && tab == 2) move(fire[0], left);
    ASSERT_EQ(numbers(grid), cells) << "tab " << tab;
    ASSERT_EQ(numbers(form.TP_FUEL), fuel) << "tab " << tab;
    ASSERT_EQ(numbers(form.TP_FIRE), fire) << "tab " << tab;
    ASSERT_EQ(grid.row(), rows);
    ASSERT_EQ(grid.column(), left ? columns : 1) << "the cell that was written last";
    for (const auto& [r, c] : {std::pair(1, 4), {1, 1}, {rows, columns}}) {
      ASSERT_EQ(grid.background(r, c), cellColour(cellOf(cells, r, c)));
    }
    ASSERT_NE(form.TP_FUEL.text(0, 1), "old");
  }
}

}  // namespace
