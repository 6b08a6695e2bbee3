// Drawing maps: texts, headers and colours of every kind of map, and draws that fail.

#include "support.h"

namespace {

using F = Form1;

class MapDisplay : public ProgramTest {
 protected:
  MapDisplay() { startWithMap(smallMap()); }
};

// The second kind of row ends without a text: its draw fails, and hides the grid until one
// succeeds.
TEST_F(MapDisplay, EachKindOfMapShowsItsBytesAndAFailedDrawHidesItsGridAlone) {
  // Keyword, address, columns, rows, length and scale; the grid and the end of its texts.
  const std::tuple<const char*, int, int, int, int, const char*, Grid F::*, std::string> table[] = {
      {"HIGH_FUEL", 256, 3, 2, 6, "7", &F::Grid1, "|+0|+1|+2/0100|0|1|9/0103|128|254|255"},
      {"REG_FIRE", 0x12345, 2, 1, 2, "7", &F::Grid4, "|+0|+1/12345|0|1"},
      {"REG_FUEL", 0x123FE, 2, 2, 4, "0", &F::Grid3, ""},
      {"REG_FUEL", -1, 2, 2, 4, "0", &F::Grid3, ""},
      {"ADD_MAP1", 256, 2, 2, 4, "2147483647", &F::AddGrid1, ""},
      {"ADD_MAP1", 256, 3, 2, 6, "2", &F::AddGrid1, "|+0|+1|+2/0100|0|2|18/0103|256|508|510"},
      {"VQ_MAP", 256, 9, 1, 7, "7", &F::Grid5, "|+ 1|+ 2|+ 3/0100|1|2432|65279"},
      {"TP_SCALE_FUEL", 256, 17, 1, 17, "0", &F::TP_FUEL, ""},
      {"TP_SCALE_FUEL", 256, 3, 1, 3, "7", &F::TP_FUEL, "/0100|0|1|9|||||||||||||"},
      {"RPM_SCALE_FIRE", 256, 5, 9, 5, "50", &F::RPM_FIRE, "0/50/450/6400/12700///////////"},
      {"ADD_MAP4", 256, 18, 1, 18, "1", &F::AddGrid4,
       "+8|+9|+A|+B|+C|+D|+E|+F|+10|+11/0100|0|1|9|128|254|255|0|0|0|0|0|0|0|0|0|0|0|0"}};
  for (const auto& [keyword, address, columns, rows, length, scale, member, expected] : table) {
    useMap("TYPE_UNIT\r\nX\r\n" + mapBlock("ADD_MAP5", "&H11000", 2, 2, 4) +
           mapBlock(keyword, std::to_string(address), columns, rows, length, scale));
    Bytes image(0x12400);
    const Bytes held = {0, 1, 9, 128, 254, 255};
    if (address >= 0 && address < 0x123F0) std::ranges::copy(held, image.begin() + address);
    image[0] = 1;  // so that the image counts as loaded
    told();
    loadImage(image);
    const Grid& grid = form1().*member;
    const std::string texts = textsOf(grid, 0, 0, "|", "/");
    EXPECT_TRUE(texts.ends_with(expected + "/") || expected.empty()) << keyword << ": " << texts;
    EXPECT_EQ(told().ends_with("ERROR (Function:MAP_DRAW)"), expected.empty()) << keyword;
    EXPECT_TRUE(grid.visible() != expected.empty() && grid.redraw()) << keyword;
  }
}

TEST_F(MapDisplay, EachFamilyHasItsWidthsAndHeightsInTwips) {
  loadImage(patternImage(0x400));
  const std::tuple<const char*, Grid F::*, int, int, int> table[] = {
      {"map", &F::Grid1, 620, 430, 240},           {"airflow", &F::Grid5, 620, 620, 240},
      {"limit row", &F::Grid6, 620, 430, 194},     {"limits", &F::Grid7, 620, 430, 194},
      {"additional", &F::AddGrid1, 620, 430, 240}, {"load scale", &F::TP_FUEL, 620, 430, 240},
      {"speed scale", &F::RPM_FUEL, 550, 550, 240}};
  for (const auto& [family, member, headerWidth, width, headerHeight] : table) {
    const Grid& grid = form1().*member;
    EXPECT_EQ(grid.columnWidth(0), headerWidth) << family;
    EXPECT_EQ(grid.columnWidth(grid.columns() - 1), width) << family;
    EXPECT_EQ(grid.rowHeight(0), headerHeight) << family;
    EXPECT_EQ(grid.rowHeight(1), 240) << family;
  }
}

TEST_F(MapDisplay, ColoursFollowTheRawByteAndTheRate) {
  const std::tuple<int, int, int> table[] = {{1, 0, 0},     {1, 255, 255},         {1, 100, 100},
                                             {2, 127, 254}, {2, 128, 255},         {0, 200, 0},
                                             {-1, 200, 0},  {2147483647, 255, 255}};
  useMap("TYPE_UNIT\r\nX\r\n" + mapBlock("HIGH_FUEL", "0", 1, 1, 1) +
         mapBlock("ADD_MAP1", "0", 1, 1, 1, "2") + mapBlock("VQ_MAP", "0", 1, 1, 2));
  for (const auto& [rate, byte, blue] : table) {
    editorState.gridColorRate = rate;
    loadImage({static_cast<std::uint8_t>(byte), 255});
    for (const Grid* grid : {&form1().Grid1, &form1().AddGrid1}) {
      EXPECT_EQ(grid->background(1, 1), rgb(255 - blue, 0, blue)) << rate;
    }
    EXPECT_EQ(form1().Grid5.background(1, 1), rgb(255 - byte, 0, byte));
  }
}

}  // namespace
