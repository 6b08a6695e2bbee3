// Editing on the surface by keys, and the way of the edits through the grid into the file.
#include "graphs/graph_3d_editing.h"

#include <filesystem>

#include "core/settings_file.h"
#include "graph_bed.h"

namespace {

TEST_F(GraphTest, MovesTheCursorToTheEdgesAndNoFurther) {
  loadSmall();
  open();
  const struct {
    int key, repeats, column, row;
  } moves[] = {{leftKey, 1, 1, 1},  {downKey, 3, 1, 1}, {rightKey, 1, 2, 1}, {upKey, 1, 2, 2},
               {rightKey, 9, 4, 2}, {upKey, 9, 4, 3},   {leftKey, 1, 3, 3},  {downKey, 1, 3, 2},
               {'5', 4, 3, 2},      {leftKey, 9, 1, 2}, {downKey, 9, 1, 1}};
  for (const auto& move : moves) {
    press(move.key, move.repeats);
    EXPECT_EQ(graphState.cursorColumn, move.column);
    EXPECT_EQ(graphState.cursorRow, move.row);
  }
  DRAW_PUT();
  EXPECT_EQ(canvas.items().back(), (CanvasItem{CanvasItem::bar, markerRed, 76, 337, 78, 339}));
}

TEST_F(GraphTest, AHeldKeyLeavesATrailAndRedrawsAtItsRelease) {
  loadSmall();
  compareWith(Bytes(0x1000, 20));
  editorState.graphShowCompare = 1;
  open();
  const std::size_t redrawn = canvas.items().size();
  for (int i = 0; i < 3; ++i) {
    canvas.userKeyDown(rightKey);
    EXPECT_EQ(lastMarker().substr(0, 4), "red ");
  }
  expectFrame(canvas, "graph_trail.frame");
  // A character key marks as well, and changes heights without a redraw.
  for (int i = 0; i < 2; ++i) {
    canvas.userKeyDown('+');
    canvas.userKey(U'+');
  }
  EXPECT_EQ(canvas.items().size(), redrawn + 5);
  // The focus goes and comes back while the key is held.
  DR_GRAPH.Text2.userFocus();
  canvas.userFocus();
  canvas.userKeyUp('+');
  EXPECT_EQ(canvas.items().size(), redrawn);
  EXPECT_EQ(countOf(canvas, CanvasItem::line, wireRed), 24);
  EXPECT_EQ(countOf(canvas, CanvasItem::bar, markerRed), 0);
}

TEST_F(GraphTest, ReadsOutLoadSpeedAndValueFromTheFirstKeyOn) {
  loadSmall(200);
  form1().TP_FUEL.setText(0, 1, "-0.15");
  form1().TP_FUEL.setText(0, 2, "0.10");
  open();
  EXPECT_EQ(readOuts(), "||");
  canvas.userKeyDown(0);
  EXPECT_EQ(readOuts(), "-0.15kg|800rpm|DATA : 72");
  press(rightKey);
  EXPECT_EQ(readOuts(), "0.10kg|800rpm|DATA : 20");
  press(upKey, 2);
  EXPECT_EQ(readOuts(), "0.10kg|900rpm|DATA : 100");
  // Scales that end before the map does: what comes behind the missing one stays.
  form1().RPM_FUEL.resize(2, 1);
  type('+');
  EXPECT_EQ(readOuts(), "0.10kg|900rpm|DATA : 100");
  form1().TP_FUEL.resize(2, 2);
  press(downKey);
  EXPECT_EQ(readOuts(), "0.10kg|900rpm|DATA : 100");
  EXPECT_EQ(lastMarker(), "yellow 114 281");
}

TEST_F(GraphTest, AnAdditionalMapShowsItsValueAloneAndIsCutAtAByte) {
  startWithMap(smallMap());
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

TEST_F(GraphTest, KeysChangeOneUnitOfTheCellUnderTheCursor) {
  const struct {
    int value;
    int magnification;
    std::string keys;
    const char* shown;
    const char* written;
  } cases[] = {
      {200, 1, "+", "DATA : 73", "201"},
      {124, 3, "+", "DATA : 125", "125"},
      {0, 5, "--++++", "DATA : 2", "2"},
      {254, 2, "++", "DATA : 128", "255"},
      {120, 4, std::string(200, '+'), "DATA : 255", "255"},
  };
  loadSmall();
  for (const auto& each : cases) {
    form1().Grid1.setText(1, 1, std::to_string(each.value));
    editorState.graphMagnification = each.magnification;
    open();
    for (const char key : each.keys) type(key);
    EXPECT_EQ(DR_GRAPH.Label4.caption(), each.shown);
    DR_GRAPH.Command2.userClick();
    EXPECT_EQ(cell(1, 1), each.written);
  }
  // Without a mask 255 is the end.
  editorState.graphFbMask = 0;
  editorState.graphMagnification = 3;
  form1().Grid1.setText(1, 1, "255");
  open();
  type('+');
  EXPECT_EQ(graphState.heights[1][1], 765);
  EXPECT_EQ(DR_GRAPH.Label4.caption(), "DATA : 255");
}

TEST_F(GraphTest, ComparesKeysWithTheFirstCharacterOfTheirAssignment) {
  const struct {
    const char* plus;
    const char* minus;
    char32_t key;
    int height;
  } cases[] = {{"", "", U'+', 10},    {"", "-", 0, 10},     {"up", "-", U'u', 11},
               {"up", "-", U'p', 10}, {"=", "=", U'=', 10}, {"あい", "-", U'あ', 11},
               {"A", "a", U'a', 9}};
  loadSmall();
  for (const auto& each : cases) {
    editorState.plusKey = each.plus;
    editorState.minusKey = each.minus;
    open();
    canvas.userKey(each.key);
    EXPECT_EQ(graphState.heights[1][1], each.height) << each.plus << " " << each.minus;
    EXPECT_EQ(DR_GRAPH.focus(), &canvas);
    DR_GRAPH.Command1.userClick();
  }
  // At the upper end the raise is cut before the fall.
  editorState.plusKey = editorState.minusKey = "=";
  editorState.graphFbMask = 0;
  form1().Grid1.setText(1, 1, "255");
  open();
  type('=');
  EXPECT_EQ(graphState.heights[1][1], 254);
}

TEST_F(GraphTest, AMousePressSavesBeforeTheChangeAndTheKeyboardDoesNot) {
  loadSmall(200);
  writeText("error.log", "");
  const struct {
    const char* name;
    std::function<void()> change;
    const char* kept;
  } cases[] = {
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
  for (const auto& each : cases) {
    compareWith(Bytes(0x1000));
    form1().Grid1.setText(1, 1, "200");
    editorState.graphFbMask = 128;
    editorState.graphMagnification = 1;
    open();
    type('+');
    EXPECT_EQ(cell(1, 1), "200");
    each.change();
    EXPECT_EQ(cell(1, 1), each.kept) << each.name;
    DR_GRAPH.Command1.userClick();
    EXPECT_EQ(cell(1, 1), each.kept) << each.name;
  }
  EXPECT_EQ(readText("error.log"), "");
}

TEST_F(GraphTest, TheSaveBeforeAChangeStoresTheParametersAsTheyWere) {
  loadSmall();
  open();
  DR_GRAPH.Text2.userFocus();
  DR_GRAPH.Text2.userPaste("110");
  click(DR_GRAPH.Check2);
  readSettings();
  EXPECT_EQ(editorState.graphFbMask, 128);
  EXPECT_EQ(editorState.graphFbThreshold, 110);
  clickLine(4);
  readSettings();
  EXPECT_EQ(editorState.graphFbMask, 192);
  EXPECT_EQ(editorState.graphMagnification, 1);
  compareWith({});
  DR_GRAPH.Check3.setEnabled(true);
  DR_GRAPH.Check3.userToggle();
  DR_GRAPH.Text2.userPaste("99999999999");
  DR_GRAPH.Command2.userClick();
  readSettings();
  EXPECT_EQ(editorState.graphMagnification, 5);
  EXPECT_EQ(editorState.graphShowCompare, 1);
  EXPECT_EQ(editorState.graphFbThreshold, 2147483647);
}

TEST_F(GraphTest, BringsEditsIntoTheFileWithEachMaskMagnificationAndView) {
  const Bytes cells = {200, 50, 255, 0, 124, 125, 126, 1, 64, 63, 192, 254};
  load(4, 3, cells);
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
        type('+');
        press(rightKey);
        type('-', 3);
        press(rightKey);
        type('+', 2);
        press(rightKey);
        type('-', 2);
        press(upKey, 2);
        type('-', 5);
        DR_GRAPH.Command2.userClick();
        EXPECT_EQ(saveAnew(), expected) << mask << " times " << line + 1;
        loadImage(expected, "saved.bin");
        EXPECT_EQ(cell(3, 4), "249");
      }
    }
  }
}

TEST_F(GraphTest, PaintsWrittenCellsByTheColourRateAndMakesTheLastOneCurrent) {
  loadSmall(200);
  editorState.gridColorRate = 2;
  form1().Grid1.setText(1, 2, "-9");
  open();
  DR_GRAPH.Command2.userClick();
  const Grid& grid = form1().Grid1;
  EXPECT_EQ(grid.background(1, 1), rgb(0, 0, 255));
  EXPECT_EQ(grid.background(1, 3), rgb(255 - 60, 0, 60));
  EXPECT_EQ(grid.background(1, 2), rgb(255, 0, 0));
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
    EXPECT_TRUE(form1().Grid1.redraw() && form1().Grid1.visible());
    EXPECT_EQ(cell(1, 1), "11");
    EXPECT_TRUE(!DR_GRAPH.loaded() && form1().enabled());
    if (!gridTooSmall) {
      EXPECT_EQ(desk.boxes.size(), 1U);
    }
    desk.boxes.clear();
    discardForm1();
    editorState = EditorState{};
  }
}

}  // namespace
