// Drawing maps: texts, headers, colours and layout of every kind of map, draws that fail, the
// progress bar, and how often the screen is told.
#include "core/map_display.h"

#include <map>

#include "support.h"

namespace {

class MapDisplay : public ProgramTest {
 protected:
  void load(const std::string& map, const Bytes& image) {
    startWithMap("TYPE_UNIT\r\nX\r\n" + map);
    loadImage(image);
  }
  // The grid's texts, "|" between cells and "/" between rows.
  static std::string texts(const Grid& grid) {
    std::string all;
    for (int r = 0; r < grid.rows(); ++r) {
      for (int c = 0; c < grid.columns(); ++c) all += (c > 0 ? "|" : "") + grid.text(r, c);
      if (r + 1 < grid.rows()) all += "/";
    }
    return all;
  }
};

TEST_F(MapDisplay, EachKindOfMapShowsItsBytes) {
  const Bytes bytes{0, 1, 9, 128, 254, 255};
  struct Row {
    const char* keyword;
    std::size_t address;
    int columns, rows, length;
    const char* scale;
    Grid Form1::*grid;
    const char* expected;  // the end of the grid's texts
  };
  using F = Form1;
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
  };
  for (const Row& row : table) {
    discardForm1();
    editorState = EditorState{};
    Bytes image(0x12400);
    std::copy(bytes.begin(), bytes.end(), &image[row.address]);
    load(mapBlock(row.keyword, std::to_string(row.address), row.columns, row.rows, row.length,
                  row.scale),
         image);
    EXPECT_TRUE(desk.boxes.empty()) << row.keyword;
    const std::string shown = texts(form1().*row.grid);
    EXPECT_TRUE(shown.ends_with(row.expected)) << row.keyword << ": " << shown;
  }
}

TEST_F(MapDisplay, ColumnHeadersCountInHexadecimal) {
  load(mapBlock("HIGH_FUEL", "0", 20, 1, 20), Bytes(64));
  const Grid& grid = form1().Grid1;
  EXPECT_EQ(grid.text(0, 10) + grid.text(0, 16) + grid.text(0, 17) + grid.text(0, 20),
            "+9+F+10+13");
  EXPECT_EQ(grid.text(0, 0), "");
}

TEST_F(MapDisplay, ColoursFollowTheRawByteAndTheRate) {
  struct Row {
    const char* rate;
    int byte;
    Colour colour;
  };
  const Row table[] = {{"1", 0, rgb(255, 0, 0)},     {"1", 255, rgb(0, 0, 255)},
                       {"1", 100, rgb(155, 0, 100)}, {"2", 127, rgb(1, 0, 254)},
                       {"2", 128, rgb(0, 0, 255)},   {"0", 200, rgb(255, 0, 0)},
                       {"-1", 200, rgb(255, 0, 0)},  {"2147483647", 255, rgb(0, 0, 255)}};
  const std::string map = "TYPE_UNIT\r\nX\r\n" + mapBlock("HIGH_FUEL", "0", 1, 1, 1) +
                          mapBlock("ADD_MAP1", "0", 1, 1, 1, "2") +
                          mapBlock("VQ_MAP", "0", 1, 1, 2) +
                          mapBlock("TP_SCALE_FUEL", "0", 1, 1, 1);
  for (const Row& row : table) {
    discardForm1();
    editorState = EditorState{};
    std::string settings = firstSettings("map.adr");
    settings.replace(settings.find(" 16 \r\n 1 \r\n") + 6, 3, row.rate);
    writeText("zelkova.ini", settings);
    writeText("map.adr", map);
    start();
    loadImage({static_cast<std::uint8_t>(row.byte), 255});
    EXPECT_EQ(form1().Grid1.background(1, 1), row.colour) << row.rate << " " << row.byte;
    EXPECT_EQ(form1().AddGrid1.background(1, 1), row.colour);
    EXPECT_EQ(form1().Grid5.background(1, 1), rgb(255 - row.byte, 0, row.byte));
    EXPECT_FALSE(form1().TP_FUEL.painted(1, 1));
    EXPECT_FALSE(form1().Grid1.painted(0, 1));
  }
  const std::pair<std::int64_t, int> words[] = {{0, 0},       {255, 0},     {256, 1},
                                                {65535, 255}, {70000, 255}, {-1, 0}};
  for (const auto& [word, shade] : words) {
    EXPECT_EQ(airflowCellColour(word), rgb(255 - shade, 0, shade)) << word;
  }
}

TEST_F(MapDisplay, AFailedDrawHidesItsGridAloneUntilOneSucceeds) {
  const std::string small = mapBlock("HIGH_FUEL", "0", 2, 2, 4);
  struct Row {
    const char* name;
    std::string block;
    Grid Form1::*grid;
  };
  using F = Form1;
  const Row table[] = {
      {"too many columns", mapBlock("TP_SCALE_FUEL", "0", 17, 1, 17), &F::TP_FUEL},
      {"two rows", mapBlock("TP_SCALE_FIRE", "0", 2, 2, 4), &F::TP_FIRE},
      {"17 speeds", mapBlock("RPM_SCALE_FUEL", "0", 17, 1, 17, "50"), &F::RPM_FUEL},
      {"two airflow rows", mapBlock("VQ_MAP", "0", 4, 2, 8), &F::Grid5},
      {"beyond the end", mapBlock("REG_FUEL", "30", 2, 2, 4), &F::Grid3},
      {"far away", mapBlock("REG_FUEL", "2147483647", 2, 2, 4), &F::Grid3},
      {"before the start", mapBlock("REG_FUEL", "-1", 2, 2, 4), &F::Grid3},
      {"overflow", mapBlock("ADD_MAP1", "0", 2, 2, 4, "2147483647"), &F::AddGrid1},
  };
  for (const Row& row : table) {
    discardForm1();
    editorState = EditorState{};
    desk.boxes.clear();
    load(row.block + small, Bytes(32, 200));
    ASSERT_EQ(desk.boxes.size(), 1U) << row.name;
    EXPECT_EQ(lastBox(), "ERROR (Function:MAP_DRAW)");
    EXPECT_EQ(desk.boxes[0].title, "ERROR");
    EXPECT_FALSE((form1().*row.grid).visible()) << row.name;
    EXPECT_TRUE((form1().*row.grid).redraw());
    EXPECT_EQ(form1().Grid1.text(2, 2), "200") << row.name;
    writeText("map.adr", "TYPE_UNIT\r\nX\r\n" +
                             mapBlock(row.block.substr(0, row.block.find('\r')), "0", 2, 1, 2));
    desk.openAnswers.push_back(path("map.adr"));
    pick("load_map_addr");
    EXPECT_TRUE((form1().*row.grid).visible()) << row.name;
  }
}

TEST_F(MapDisplay, UnknownMapNumbersAreToldInTheLanguage) {
  start();
  for (const int id : {0, 22, -1}) {
    editorState.english = 0;
    map_draw(1, 1, 0, 1, id);
    EXPECT_EQ(lastBox(), "map_drawのパラメーターに例外がある。");
    editorState.english = 2;
    map_draw(1, 1, 0, 1, id);
    EXPECT_EQ(lastBox(), "There is an exception for a parameter of map_draw.");
  }
}

TEST_F(MapDisplay, LayoutInTwips) {
  startWithMap(smallMap());
  Form1& form = form1();
  for (const auto& [grid, width, first] : {std::tuple{&form.Grid1, 430, 620},
                                           {&form.AddGrid14, 430, 620},
                                           {&form.TP_FIRE, 430, 620},
                                           {&form.Grid9, 430, 620},
                                           {&form.Grid5, 620, 620}}) {
    EXPECT_EQ(grid->columnWidth(grid->columns() - 1), width);
    EXPECT_EQ(grid->columnWidth(0), first);
  }
  EXPECT_EQ(form.RPM_FUEL.columnWidth(0), 550);
  EXPECT_EQ(form.Grid6.rowHeight(0), 194);
  EXPECT_NE(form.Grid1.rowHeight(0), 194);
}

TEST_F(MapDisplay, ProgressRunsToOneHundred) {
  start();
  const std::pair<int, int> table[] = {{-1, 0},   {0, 1},     {11, 1},     {12, 2},
                                       {585, 51}, {1158, 99}, {1159, 100}, {2147483647, 100}};
  for (const auto& [count, bar] : table) {
    setProgress(count);
    EXPECT_EQ(form1().ProgressBar1.value(), bar) << count;
  }
  setProgressOf(5, 0);
  setProgressOf(1, 3);
  EXPECT_EQ(form1().ProgressBar1.value(), 34);
}

TEST_F(MapDisplay, ALoadTellsEachGridOnceEmptyAndOnceFullAndTheBarPerCell) {
  startWithMap(smallMap());
  std::map<Grid*, int> whole;
  int single = 0;
  std::vector<int> bar;
  for (const MapKind& kind : mapKinds()) {
    Grid& grid = gridOf(kind);
    grid.observer = [&, target = &grid](const Change& change) {
      whole[target] += change.kind == Change::cells;
      single += change.kind == Change::cell;
    };
  }
  form1().ProgressBar1.observer = [&](const Change&) {
    bar.push_back(form1().ProgressBar1.value());
  };
  loadImage(patternImage(0x400));
  EXPECT_EQ(single, 0);
  EXPECT_EQ(whole[&form1().Grid1], 2);
  EXPECT_EQ(whole[&form1().Grid2], 1) << "absent: only emptied";
  EXPECT_EQ(bar, (std::vector{1, 2, 3, 4, 5, 6, 7, 8, 0})) << "88 cells, the additional map not";
  form1().Grid1.setText(1, 1, "5");
  EXPECT_EQ(single, 1);
}

}  // namespace
