// The air/fuel table: its formula, headers and colours.

#include "calc/af_table.h"

#include "map_tools_bed.h"

namespace {

class AfTable : public LoadedCarTest {
 protected:
  const Grid& table = form5.Grid1;
};

TEST_F(AfTable, WorkedExamples) {
  editorState.gridColorRate = 2;
  const std::tuple<const char*, const char*, int> cases[] = {
      {"0", "14.7", 0},     {"128", "7.3", 255}, {"64", "9.8", 128},
      {"1", "14.6", 2},     {"510", "2.9", 255}, {"", "14.7", 0},
      {"12.6", "13.4", 26}, {"-128", "inf", 0},  {"1e300", "0.0", 255}};
  for (const auto& [cell, expected, blue] : cases) {
    form1().Grid1.setText(2, 3, cell);
    pick("AF_DISP_FORM");
    EXPECT_EQ(table.text(2, 3), expected) << cell;
    EXPECT_EQ(table.text(1, 0) + table.text(2, 0), "01000108");
    EXPECT_EQ(table.background(2, 3), rgb(255 - blue, 0, blue)) << cell;
    form5.userClose();
  }
}

}  // namespace
