// Drawing maps: texts, headers, colours and layout of every kind of map, draws that fail, the
// progress bar, and how often the screen is told.
#include "core/map_display.h"

#include "support.h"

namespace {

using F = Form1;

class MapDisplay : public ProgramTest {
 protected:
  MapDisplay() { startWithMap(smallMap()); }
  // The grid's texts, "|" between cells and "/" between rows.
  static std::string texts(const Grid& grid) {
    std::string all;
    for (int r = 0; r < grid.rows(); ++r) {
      if (r > 0) all += "/";
      for (int c = 0; c < grid.columns(); ++c) all += (c > 0 ? "|" : "") + grid.text(r, c);
    }
    return all;
  }
};

TEST_F(MapDisplay, EachKindOfMapShowsItsBytes) {
  struct Row {
    const char* keyword;
    std::size_t address;
    int columns, rows, length;
    const char* scale;
    Grid F::*grid;
    const char* expected;  // the end of the grid's texts
  };
  const Row table[] = {
      {"HIGH_FUEL", 256, 3, 2, 6, "7", &F::Grid1, "|+0|+1|+2/0100|0|1|9/0103|128|254|255"},
      {"TTP_MIN", 9, 2, 1, 2, "7", &F::Grid6, "|+0|+1/0009|0|1"},
      {"REG_FIRE", 0x12345, 2, 1, 2, "7", &F::Grid4, "|+0|+1/12345|0|1"},
      {"REG_FUEL", 256, 0, 2, 6, "7", &F::Grid3, "/0100/0100"},
      {"ADD_MAP1", 256, 3, 2, 6, "2", &F::AddGrid1, "|+0|+1|+2/0100|0|2|18/0103|256|508|510"},
      {"ADD_MAP2", 256, 3, 1, 3, "-3", &F::AddGrid2, "|+0|+1|+2/0100|0|-3|-27"},
      {"ADD_MAP3", 256, 3, 1, 3, "0", &F::AddGrid3, "|+0|+1|+2/0100|0|0|0"},
      {"VQ_MAP", 256, 9, 1, 7, "7", &F::Grid5, "|+ 1|+ 2|+ 3/0100|1|2432|65279"},
      {"TP_SCALE_FUEL", 256, 3, 1, 3, "7", &F::TP_FUEL, "/0100|0|1|9|||||||||||||"},
      {"RPM_SCALE_FIRE", 256, 5, 9, 5, "50", &F::RPM_FIRE, "0/50/450/6400/12700///////////"},
      {"ADD_MAP4", 256, 18, 1, 18, "1", &F::AddGrid4,
       "+8|+9|+A|+B|+C|+D|+E|+F|+10|+11/0100|0|1|9|128|254|255|0|0|0|0|0|0|0|0|0|0|0|0"}};
  for (const Row& row : table) {
    useMap("TYPE_UNIT\r\nX\r\n" + mapBlock(row.keyword, std::to_string(row.address), row.columns,
                                           row.rows, row.length, row.scale));
    Bytes image(0x12400);
    for (const int byte : {255, 254, 128, 9, 1}) {
      image.insert(image.begin() + static_cast<std::ptrdiff_t>(row.address) + 1,
                   static_cast<std::uint8_t>(byte));
    }
    loadImage(image);
    const std::string shown = texts(form1().*row.grid);
    EXPECT_TRUE(shown.ends_with(row.expected)) << row.keyword << ": " << shown;
  }
}

TEST_F(MapDisplay, ColoursFollowTheRawByteAndTheRate) {
  struct Row {
    std::int32_t rate;
    int byte;
    Colour colour;
  };
  const Row table[] = {{1, 0, rgb(255, 0, 0)},     {1, 255, rgb(0, 0, 255)},
                       {1, 100, rgb(155, 0, 100)}, {2, 127, rgb(1, 0, 254)},
                       {2, 128, rgb(0, 0, 255)},   {0, 200, rgb(255, 0, 0)},
                       {-1, 200, rgb(255, 0, 0)},  {2147483647, 255, rgb(0, 0, 255)}};
  useMap("TYPE_UNIT\r\nX\r\n" + mapBlock("HIGH_FUEL", "0", 1, 1, 1) +
         mapBlock("ADD_MAP1", "0", 1, 1, 1, "2") + mapBlock("VQ_MAP", "0", 1, 1, 2) +
         mapBlock("TP_SCALE_FUEL", "0", 1, 1, 1));
  for (const Row& row : table) {
    editorState.gridColorRate = row.rate;
    loadImage({static_cast<std::uint8_t>(row.byte), 255});
    EXPECT_EQ(form1().Grid1.background(1, 1), row.colour) << row.rate << " " << row.byte;
    EXPECT_EQ(form1().AddGrid1.background(1, 1), row.colour);
    EXPECT_EQ(form1().Grid5.background(1, 1), rgb(255 - row.byte, 0, row.byte));
    EXPECT_FALSE(form1().TP_FUEL.painted(1, 1) || form1().Grid1.painted(0, 1));
  }
  EXPECT_EQ(airflowCellColour(70000), rgb(0, 0, 255));
  EXPECT_EQ(airflowCellColour(-1), rgb(255, 0, 0));
}

TEST_F(MapDisplay, AFailedDrawHidesItsGridAloneUntilOneSucceeds) {
  struct Row {
    const char* keyword;
    const char* address;
    int columns, rows, bytes;
    const char* scale;
    Grid F::*grid;
  };
  const Row table[] = {{"TP_SCALE_FUEL", "0", 17, 1, 17, "0", &F::TP_FUEL},
                       {"TP_SCALE_FIRE", "0", 2, 2, 4, "0", &F::TP_FIRE},
                       {"RPM_SCALE_FUEL", "0", 17, 1, 17, "50", &F::RPM_FUEL},
                       {"VQ_MAP", "0", 4, 2, 8, "0", &F::Grid5},
                       {"REG_FUEL", "30", 2, 2, 4, "0", &F::Grid3},
                       {"REG_FUEL", "2147483647", 2, 2, 4, "0", &F::Grid3},
                       {"REG_FUEL", "-1", 2, 2, 4, "0", &F::Grid3},
                       {"ADD_MAP1", "0", 2, 2, 4, "2147483647", &F::AddGrid1}};
  for (const Row& row : table) {
    useMap("TYPE_UNIT\r\nX\r\n" + mapBlock("HIGH_FUEL", "0", 2, 2, 4) +
           mapBlock(row.keyword, row.address, row.columns, row.rows, row.bytes, row.scale));
    const Grid& grid = form1().*row.grid;
    loadImage(Bytes(32, 200));
    EXPECT_EQ(desk.boxes.back().title + lastBox(), "ERRORERROR (Function:MAP_DRAW)") << row.keyword;
    EXPECT_TRUE(!grid.visible() && grid.redraw()) << row.keyword;
    EXPECT_EQ(form1().Grid1.text(2, 2), "200");
    useMap("TYPE_UNIT\r\nX\r\n" + mapBlock(row.keyword, "0", 2, 1, 2));
    EXPECT_TRUE(grid.visible()) << row.keyword;
  }
}

TEST_F(MapDisplay, UnknownMapNumbersAreToldInTheLanguage) {
  for (const int id : {0, 22}) {
    map_draw(1, 1, 0, 1, id);
    editorState.english = 0;
    map_draw(1, 1, 0, 1, -1);
    EXPECT_EQ(told(),
              "There is an exception for a parameter of map_draw.|"
              "map_drawのパラメーターに例外がある。");
    editorState.english = 2;
  }
}

TEST_F(MapDisplay, LayoutInTwips) {
  for (const auto& [grid, width, first] :
       {std::tuple{&F::Grid1, 430, 620}, std::tuple{&F::AddGrid14, 430, 620},
        std::tuple{&F::TP_FIRE, 430, 620}, std::tuple{&F::Grid9, 430, 620},
        std::tuple{&F::Grid5, 620, 620}, std::tuple{&F::RPM_FUEL, 550, 550}}) {
    const Grid& each = form1().*grid;
    EXPECT_EQ(each.columnWidth(each.columns() - 1), width);
    EXPECT_EQ(each.columnWidth(0), first);
    EXPECT_EQ(each.rowHeight(0) == 194, grid == &F::Grid9);
  }
}

TEST_F(MapDisplay, ProgressRunsToOneHundred) {
  for (const auto& [count, bar] :
       {std::pair{-1, 0}, std::pair{0, 1}, std::pair{11, 1}, std::pair{12, 2}, std::pair{585, 51},
        std::pair{1158, 99}, std::pair{1159, 100}, std::pair{2147483647, 100}}) {
    setProgress(count);
    EXPECT_EQ(form1().ProgressBar1.value(), bar) << count;
  }
  setProgressOf(1, 3);
  setProgressOf(5, 0);
  EXPECT_EQ(form1().ProgressBar1.value(), 34);
}

TEST_F(MapDisplay, ALoadTellsEachGridOnceEmptyAndOnceFullAndTheBarPerCell) {
  std::vector<int> bar;
  form1().ProgressBar1.observer = [&](const Change&) {
    bar.push_back(form1().ProgressBar1.value());
  };
  const auto load = [this] { loadImage(patternImage(0x400)); };
  EXPECT_EQ(repaintsOf(form1().Grid1, load), 2);
  EXPECT_EQ(bar, (std::vector{1, 2, 3, 4, 5, 6, 7, 8, 0})) << "88 cells, the additional map not";
  EXPECT_EQ(repaintsOf(form1().Grid2, load), 1) << "absent: only emptied";
  EXPECT_EQ(repaintsOf(form1().Grid1, [] { form1().Grid1.setText(1, 1, "5"); }), 1);
}

}  // namespace
