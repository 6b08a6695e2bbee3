// Spreadsheets: what is copied for them, and which tables they bring are taken, left alone or
// refused with the field that is wrong.

#include <fstream>

#include "core/history.h"
#include "core/notices.h"
#include "map_tools_bed.h"

namespace {

class Spreadsheet : public LoadedCarTest {
 protected:
  // Pastes at the cell; gives the 3 x 3 block from there on, as far as the grid goes.
  std::string paste(Grid& grid, const std::string& text, int row = 1, int column = 1) {
    drag(grid, row, column, row, column);
    desk.clipboard = text;
    pick("paste_table");
    grid.setSelection({row, column, row + 2, std::min(column + 2, grid.columns() - 1)});
    return selected(grid);
  }
  Form1& form = form1();
};

TEST_F(Spreadsheet, TablesOfAllKindsAreTakenOrTheWrongFieldIsNamedAndNothingChanges) {
  const std::string same = "1 2 3|4 5 6|7 8 9";
  // The table, whether HTML stands beside it, and the block or the refusal's beginning.
  const std::tuple<std::string, bool, std::string> table[] = {
      {"10\t20\n30\t40\n", false, "10 20 3|30 40 6|7 8 9"},
      {"10;20\r\n30;40\r\n\r\n;\r\n", false, "10 20 3|30 40 6|7 8 9"},
      {"10,20\r30,40", false, "10 20 3|30 40 6|7 8 9"},
      {"\xEF\xBB\xBF\"10\"\t\"20,5\"\n 30.4 \t40", false,
       "Row 2, column 1: \"30.4\" is no number."},
      {"12,5\n13,4\n", true, "13 2 3|13 5 6|7 8 9"},
      {"12,5\n13,4\n", false, "12 5 3|13 4 6|7 8 9"},
      {"12,5;1e2", false, "13 100 3|4 5 6|7 8 9"},
      {"1,234\t5", true, "Row 1, column 1: \"1,234\" is no number."},
      {"1.234,5\t5", true, "Row 1, column 1: \"1.234,5\" is no number."},
      {"1\t2\n3\tx\n", false, "Row 2, column 2: \"x\" is no number."},
      {"1\t2\n3\n", false, "Row 2, column 2: there is no value."},
      {"1\t2\n\n3\t4", false, "Row 2, column 1: there is no value."},
      {"\t2\n3\t4", false, "Row 1, column 1: there is no value."},
      {"1\t256", false, "Row 1, column 2: 256 is out of range (0 - 255)."},
      {"-1", false, "Row 1, column 1: -1 is out of range"},
      {"1\t2\t3\t4\t5\t6\t7\t8\t9\t10", false, "Row 1, column 10: that lies outside the map."},
      {"1\t2\t3\t4\t5\t6\t7\t8\t9", false, "Row 1, column 9: that lies outside the map."},
      {"1\n2\n3\n4\n5\n6\n7", false, "Row 7, column 1: that lies outside the map."},
      {"\"1\"\"2\"\t3", false, "Row 1, column 1: \"1\"\"2\" is no number."},
      {"\"1\t2", false, "Row 1, column 1: \"\"1 2\" is no number."},
      {std::string("7\t1\0\0", 5), false, "7 1 3|4 5 6|7 8 9"},
      {std::string("7\0\t1", 4), false, "Row 1, column 1: \"7 \" is no number."},
      {"", false, "There are no values"},
      {"\n\n \n", true, "There are no values"}};
  Grid& grid = form.Grid1;
  for (const auto& [text, html, expected] : table) {
    SCOPED_TRACE(text);
    fill(grid, {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    desk.clipboardHtml = html ? "<table>" : "";
    const bool refused = expected.find('|') == std::string::npos;
    EXPECT_EQ(paste(grid, text), refused ? same : expected);
    EXPECT_TRUE(refused ? told().starts_with(expected) : told().empty());
  }
  desk.clipboard.reset();  // pictures, or HTML alone
  pick("paste_table");
  EXPECT_EQ(told(), "There is no table of text on the clipboard.");
}

TEST_F(Spreadsheet, LongTextsAreReadNoFurtherThanTheMapGoes) {
  Grid& grid = form.Grid1;
  const Matrix before = numbers(grid);
  std::string fields;
  for (int i = 0; i < 1'000'000; ++i) fields += "1,";
  const std::pair<std::string, const char*> table[] = {
      {fields, "Row 1, column 10: that lies outside"},
      {std::string(1'000'000, '7'),
       "Row 1, column 1: \"7777777777777777777777777777777777777777...\""},
      {std::string(1'000'000, '\n') + "1", "Row 1000001, column 1: that"},
      {std::string(1'000'000, '"'), "Row 1, column 1: \""},
      {std::string(1'000'000, ','), "There are no values"}};
  for (const auto& [text, expected] : table) {
    paste(grid, text);
    const std::string box = told();
    EXPECT_TRUE(box.starts_with(expected)) << box;
  }
  EXPECT_EQ(numbers(grid), before);
}

TEST_F(Spreadsheet, AWholeMapTakesItsScalesAlongAndLeavesThemOutWhenItComesBack) {
  Grid& grid = form.Grid1;
  const Matrix before = scramble(grid, 255);
  for (int i = 1; i <= columns; ++i) form.TP_FUEL.setText(1, i, std::to_string(10 * i));
  for (int i = 0; i < rows; ++i) form.RPM_FUEL.setText(i, 0, std::to_string(700 * i));
  drag(grid, 1, 1, rows, columns);
  pick("copy_table");
  EXPECT_TRUE(desk.clipboard->starts_with("\t10\t20\t30\t40\t50\t60\t70\t80\n0\t" +
                                          grid.text(1, 1) + "\t"));
  EXPECT_TRUE(desk.clipboardHtml.find("<tr><td></td><td>10</td>") != std::string::npos);
  const std::string whole = *desk.clipboard;
  scramble(grid, 255);
  form.TP_FUEL.setText(1, 1, "9");
  paste(grid, whole);
  EXPECT_EQ(numbers(grid), before);
  EXPECT_EQ(form.doneStatus.caption().find("cells changed") != std::string::npos, true);
  pick("undo");
  EXPECT_NE(numbers(grid), before) << "one step";
  pick("redo");
  // A part with its scales around it, then one whose corner is empty by chance.
  EXPECT_EQ(paste(grid, "\t20\t30\n700\t1\t2\n1400\t3\t4", 2, 2).substr(0, 3), "1 2");
  told();
  paste(grid, "\t20\t31\n700\t1\t2\n1400\t3\t4", 2, 2);
  EXPECT_EQ(told(), "Row 1, column 1: there is no value. Nothing has been changed.");
  // A part has none; a scale is a table of its own.
  for (const auto& [lastRow, lastColumn] :
       {std::pair(rows - 1, columns), {rows, columns - 1}, {2, 2}}) {
    drag(grid, 1, 1, lastRow, lastColumn);
    pick("copy_table");
    EXPECT_EQ(std::count(desk.clipboard->begin(), desk.clipboard->end(), '\t'),
              lastRow * (lastColumn - 1));
  }
  grid.setText(1, 1, "boost");
  pick("copy_table");
  EXPECT_NE(desk.clipboardHtml.find("<table><tr><td></td>"), std::string::npos) << "no number";
  form.RPM_FUEL.userFocus();
  EXPECT_EQ(paste(form.RPM_FUEL, "149\n150\n12750", 0, 0), "150|150|12750");
}

// See tools/spreadsheet_peer.sh.
TEST_F(Spreadsheet, WhatLibreOfficeMadeOfACopiedMapComesIn) {
  const auto data = [](const std::string& name) {
    const Bytes bytes = readFile(std::string(DATA_FOLDER) + "/spreadsheet/" + name);
    return std::string(bytes.begin(), bytes.end());
  };
  Grid& grid = form.Grid1;
  const Matrix before = numbers(grid);
  drag(grid, 1, 1, rows, columns);
  pick("copy_table");
  EXPECT_EQ(*desk.clipboard, data("copied.txt"));
  EXPECT_EQ(desk.clipboardHtml + "\n", data("copied.html"));
  desk.clipboardHtml.clear();
  Matrix halves = before;
  for (int i = 0; i < rows * columns; ++i)
    cellOf(halves, i / columns + 1, i % columns + 1) = 5 * i + 1;
  for (const auto& [name, expected] : {std::pair("tabs", before),
                                       {"semicolons", before},
                                       {"commas", before},

                                       {"points", halves},
                                       {"decimal_commas", halves},
                                       {"decimal_commas_in_quotes", halves}}) {
    scramble(grid, 255);
    paste(grid, data(std::string(name) + ".csv"));
    EXPECT_EQ(told(), "") << name;
    EXPECT_EQ(numbers(grid), expected) << name;
  }
}

TEST_F(Spreadsheet, ThePlainPasteNamesTheOtherOneWhereTheTextIsNoBlock) {
  Grid& grid = form.Grid1;
  fill(grid, {{1, 2}});
  drag(grid, 1, 1, 1, 1);
  desk.clipboard = "10\t20";
  pick("PST");
  ASSERT_TRUE(shownNotice());
  EXPECT_EQ(grid.text(1, 1), "1");
  form.noticeAction1.userClick();
  EXPECT_EQ(grid.text(1, 1) + " " + grid.text(1, 2), "10 20");
  EXPECT_FALSE(shownNotice());
}

}  // namespace
