// Editing on the surface by keys, and the way of the edits through the grid into the file.
#include "graphs/graph_3d_editing.h"

#include <filesystem>
#include <tuple>

#include "core/settings_file.h"
#include "graph_bed.h"

namespace {

std::string readOuts() {
  return DR_GRAPH.Label2.caption() + "|" + DR_GRAPH.Label3.caption() + "|" +
         DR_GRAPH.Label4.caption();
}

TEST_F(GraphTest, AHeldKeyLeavesATrailAndRedrawsAtItsRelease) {
  compareWith(Bytes(0x1000, 20));
  open();
  const std::size_t redrawn = canvas.items().size();
  for (int i = 0; i < 3; ++i) canvas.userKeyDown(rightKey);
  expectFrame(canvas, "graph_trail.frame");
  // A character key marks as well, and changes heights without a redraw.
  hold('+', 2);
  EXPECT_EQ(canvas.items().size(), redrawn + 5);
  // The focus goes and comes back while the key is held.
  DR_GRAPH.Text2.userFocus();
  canvas.userFocus();
  canvas.userKeyUp('+');
  EXPECT_EQ(canvas.items().size(), redrawn);
  EXPECT_EQ(wires(wireRed), 24);
  EXPECT_EQ(countOf(canvas, CanvasItem::bar, markerRed), 0);
}

TEST_F(GraphTest, MovesToTheEdgesAndNoFurtherAndReadsOutLoadSpeedAndValue) {
  Form1& form = form1();
  for (const auto& [place, load, speed] :
       {std::tuple{1, "-0.15", "800"}, std::tuple{2, "0.10", "850"}, std::tuple{3, "0.2", "900"},
        std::tuple{4, "1", "950"}}) {
    form.TP_FUEL.setText(0, place, load);
    form.RPM_FUEL.setText(place - 1, 0, speed);
  }
  openWith("200");
  EXPECT_EQ(readOuts(), "||");
  const std::tuple<int, int, const char*> moves[] = {
      {leftKey, 1, "-0.15kg|800rpm|DATA : 72"}, {downKey, 3, "-0.15kg|800rpm|DATA : 72"},
      {rightKey, 1, "0.10kg|800rpm|DATA : 20"}, {upKey, 1, "0.10kg|850rpm|DATA : 60"},
      {rightKey, 9, "1kg|850rpm|DATA : 80"},    {upKey, 9, "1kg|900rpm|DATA : 120"},
      {leftKey, 1, "0.2kg|900rpm|DATA : 110"},  {downKey, 1, "0.2kg|850rpm|DATA : 70"},
      {'5', 4, "0.2kg|850rpm|DATA : 70"},       {leftKey, 9, "-0.15kg|850rpm|DATA : 50"}};
  for (const auto& [key, repeats, shown] : moves) {
    press(key, repeats);
    EXPECT_EQ(readOuts(), shown);
  }
  // Scales that end before the map does: what comes behind the missing one stays.
  form.RPM_FUEL.resize(1, 1);
  type('+');
  EXPECT_EQ(readOuts(), "-0.15kg|850rpm|DATA : 50");
  form.TP_FUEL.resize(2, 1);
  press(downKey);
  EXPECT_EQ(readOuts(), "-0.15kg|850rpm|DATA : 50");
  EXPECT_EQ(lastMarker(), "yellow 77 276");
  DRAW_PUT();
  EXPECT_EQ(canvas.items().back(), (CanvasItem{CanvasItem::bar, markerRed, 76, 275, 78, 277}));
}

TEST_F(GraphTest, AnAdditionalMapShowsItsValueAloneAndIsCutAtAByte) {
  startAnewWithMap(smallMap());
  loadImage(patternImage(0x1000));
  selectTab(6);
  open();
  form1().AddGrid1.setText(1, 1, "300");
  DR_GRAPH.List1.userSelect(2);
  press(0);
  EXPECT_EQ(readOuts(), "||DATA : 172");
  DR_GRAPH.Command2.userClick();
  EXPECT_EQ(form1().AddGrid1.text(1, 1), "255");
}

TEST_F(GraphTest, KeysThatBeginTheirAssignmentChangeOneUnitOfTheCellUnderTheCursor) {
  const struct {
    const char *plus, *minus, *cell;
    int mask, magnification;
    std::u32string keys;
    const char *shown, *written;
  } cases[] = {{"+", "-", "200", 128, 1, U"+", "73", "201"},
               {"+", "-", "124", 128, 3, U"+", "125", "125"},
               {"+", "-", "0", 128, 5, U"--++++", "2", "2"},
               {"+", "-", "254", 128, 2, U"++", "128", "255"},
               {"+", "-", "120", 128, 4, std::u32string(200, U'+'), "255", "255"},
               {"+", "-", "255", 0, 3, U"++-", "254", "254"},
               {"", "-", "10", 0, 1, std::u32string(2, 0) + U"+", "10", "10"},
               {"up", "-", "10", 0, 1, U"upu", "12", "12"},
               {"あい", "-", "10", 0, 1, U"あい", "11", "11"},
               {"A", "a", "10", 0, 1, U"a", "9", "9"},
               // One key for both: at the upper end the raise is cut before the fall.
               {"=", "=", "10", 0, 1, U"=", "10", "10"},
               {"=", "=", "255", 0, 1, U"=", "254", "254"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.plus) + each.minus + " " + each.cell);
    editorState.plusKey = each.plus;
    editorState.minusKey = each.minus;
    editorState.graphFbMask = each.mask;
    editorState.graphMagnification = each.magnification;
    openWith(each.cell);
    for (const char32_t key : each.keys) canvas.userKey(key);
    EXPECT_EQ(DR_GRAPH.focus(), &canvas);
    press(0);
    EXPECT_EQ(DR_GRAPH.Label4.caption(), std::string("DATA : ") + each.shown);
    DR_GRAPH.Command2.userClick();
    EXPECT_EQ(cell(1, 1), each.written);
  }
}

TEST_F(GraphTest, AMousePressSavesBeforeTheChangeAndTheKeyboardDoesNot) {
  writeText("error.log", "");
  const std::tuple<const char*, std::function<void()>, const char*> cases[] = {
      {"8 bit", [this] { click(DR_GRAPH.Check1); }, "201"},
      {"7 bit", [this] { click(DR_GRAPH.Check2); }, "201"},
      {"selected line", [this] { clickLine(0); }, "201"},
      {"other direction", [this] { click(DR_GRAPH.Option2); }, "201"},
      {"same direction", [this] { click(DR_GRAPH.Option1); }, "200"},
      {"8 bit by key", [] { DR_GRAPH.Check1.userToggle(); }, "200"},
      {"list by key", [] { DR_GRAPH.List1.userSelect(3); }, "200"},
      {"direction by key", [] { DR_GRAPH.Option2.userSelect(); }, "200"},
      {"comparison", [this] { click(DR_GRAPH.Check3); }, "200"},
  };
  for (const auto& [name, change, kept] : cases) {
    compareWith(Bytes(0x1000));
    editorState.graphFbMask = 128;
    editorState.graphMagnification = 1;
    openWith("200");
    type('+');
    EXPECT_EQ(cell(1, 1), "200");
    change();
    DR_GRAPH.Command1.userClick();
    EXPECT_EQ(cell(1, 1), kept) << name;
  }
  EXPECT_EQ(readText("error.log"), "");
}

TEST_F(GraphTest, TheSaveBeforeAChangeStoresTheParametersAsTheyWere) {
  const auto stored = [] {
    readSettings();
    return std::vector<int>{editorState.graphFbMask, editorState.graphFbThreshold,
                            editorState.graphMagnification, editorState.graphShowCompare};
  };
  open();
  DR_GRAPH.Text2.userFocus();
  DR_GRAPH.Text2.userPaste("110");
  click(DR_GRAPH.Check2);
  EXPECT_EQ(stored(), (std::vector{128, 110, 1, 0}));
  clickLine(4);
  EXPECT_EQ(stored(), (std::vector{192, 110, 1, 0}));
  compareWith({});
  DR_GRAPH.Check3.setEnabled(true);
  DR_GRAPH.Check3.userToggle();
  DR_GRAPH.Text2.userPaste("99999999999");
  DR_GRAPH.Command2.userClick();
  EXPECT_EQ(stored(), (std::vector{192, 2147483647, 5, 1}));
}

TEST_F(GraphTest, BringsEditsIntoTheFileWithEachMaskMagnificationAndView) {
  load(4, 3, {200, 50, 255, 0, 124, 125, 126, 1, 64, 63, 192, 254});
  const Bytes original = readBytes("image.bin");
  Bytes expected = original;
  const Bytes row = {201, 47, 255, 0};
  std::copy(row.begin(), row.end(), expected.begin() + mapAddress);
  expected[mapAddress + 11] = 249;
  for (const int mask : {192, 128, 64, 0}) {
    for (int line = 0; line < 5; ++line) {
      for (Option* view : {&DR_GRAPH.Option1, &DR_GRAPH.Option2}) {
        loadImage(original);
        open();
        if (DR_GRAPH.Check1.checked() != (mask >= 128)) click(DR_GRAPH.Check1);
        if (DR_GRAPH.Check2.checked() != (mask % 128 != 0)) click(DR_GRAPH.Check2);
        clickLine(line);
        click(*view);
        for (const auto& [key, repeats] :
             {std::pair{'+', 1}, std::pair{'-', 3}, std::pair{'+', 2}, std::pair{'-', 2}}) {
          type(key, repeats);
          press(rightKey);
        }
        press(upKey, 2);
        type('-', 5);
        DR_GRAPH.Command2.userClick();
        pick("update_bin_file");
        EXPECT_EQ(readBytes("image.bin"), expected) << mask << " times " << line + 1;
      }
    }
  }
}

TEST_F(GraphTest, PaintsWrittenCellsByTheColourRateAndMakesTheLastOneCurrent) {
  const Grid& grid = form1().Grid1;
  editorState.gridColorRate = 2;
  form1().Grid1.setText(1, 2, "-9");
  openWith("200");
  DR_GRAPH.Command2.userClick();
  EXPECT_EQ(grid.background(1, 1), rgb(0, 0, 255));
  EXPECT_EQ(grid.background(1, 2), rgb(255, 0, 0));
  EXPECT_EQ(grid.background(1, 3), rgb(255 - 60, 0, 60));
  EXPECT_EQ(grid.text(1, 2), "0");
  EXPECT_EQ(grid.selection(), (GridSelection{3, 4, 3, 4}));
}

TEST_F(GraphTest, ClosesThoughGridOrSettingsCannotBeWritten) {
  for (const bool gridTooSmall : {true, false}) {
    loadSmall();
    writeText("error.log", "");
    open();
    type('+');
    if (gridTooSmall) {
      form1().Grid1.resize(3, 5);
    } else {
      std::filesystem::remove(path("zelkova.ini"));
      std::filesystem::create_directory(path("zelkova.ini"));
    }
    DR_GRAPH.Command2.userClick();
    const bool logged = readText("error.log").find("3Dグラフデータ書込") != std::string::npos;
    EXPECT_EQ(logged, gridTooSmall);
    EXPECT_EQ(desk.boxes.size(), gridTooSmall ? 0U : 1U);
    EXPECT_TRUE(form1().Grid1.redraw() && form1().Grid1.visible());
    EXPECT_EQ(cell(1, 1), "11");
    EXPECT_TRUE(!DR_GRAPH.loaded() && form1().enabled());
  }
}

}  // namespace
