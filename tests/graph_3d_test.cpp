// The 3D graph as a user sees it: refusals, opening, the drawn frames, the display controls.
#include <algorithm>

#include "core/settings_file.h"
#include "graph_bed.h"
#include "graphs/tp_curve.h"

namespace {

int wires(const Canvas& canvas, Colour colour) { return countOf(canvas, CanvasItem::line, colour); }

TEST_F(GraphTest, BothGraphsAreRefusedWithoutImageAndOnTabsWithoutGraph) {
  loadSmall();
  const struct {
    const char* command;
    int tab;
    bool rom;
    int english;
    const char* text;
  } cases[] = {
      {"DISP_3D_Graph", 1, false, 0,
       "ROM DATAが読み込まれていないのに、3Dグラフ編集はできません。"},
      {"DISP_3D_Graph", 5, false, 1,
       "ROM DATA reads and been crowded, 3D graph editing aren't possible."},
      {"DISP_3D_Graph", 5, true, 1, "With this screen, 3D graph editing aren't possible."},
      {"DISP_3D_Graph", 14, true, 0, "この画面で、3Dグラフ編集はできません。"},
      {"TP_2D", 1, false, 1, "ROM DATA reads and been crowded, 2D graph editing aren't possible."},
      {"TP_2D", 3, false, 0, "ROM DATAが読み込まれていないのに、2Dグラフ編集はできません。"},
      {"TP_2D", 4, true, 0, "この画面で、2Dグラフ編集はできません。"},
      {"TP_2D", 14, true, 2, "With this screen, 2D graph editing aren't possible."},
  };
  for (const auto& each : cases) {
    editorState.image = RomImage(0x1000, each.rom ? 1 : 0);
    editorState.english = each.english;
    selectTab(each.tab);
    pick(each.command);
    EXPECT_EQ(desk.boxes.back().title, each.english ? "Error" : "エラー");
    EXPECT_EQ(lastBox(), each.text);
    EXPECT_EQ(desk.boxes.back().icon, BoxIcon::critical);
    EXPECT_TRUE(!DR_GRAPH.loaded() && !D2_GRAPH.loaded() && form1().enabled());
  }
}

TEST_F(GraphTest, OpensWithTheStoredParametersAndTheSurfaceDrawn) {
  loadSmall(125);
  canvas.drawLine(1, 2, 3, 4, white);
  open();
  EXPECT_TRUE(DR_GRAPH.topmost() && !form1().enabled());
  EXPECT_EQ(DR_GRAPH.focus(), &canvas);
  EXPECT_EQ(DR_GRAPH.Label1.caption(), "High fuel");
  EXPECT_EQ(DR_GRAPH.Text2.text(), "125");
  EXPECT_TRUE(DR_GRAPH.Check1.checked() && !DR_GRAPH.Check2.checked());
  EXPECT_TRUE(DR_GRAPH.Option1.selected() && canvas.visible());
  EXPECT_TRUE(DR_GRAPH.Label19.visible() && DR_GRAPH.Line3.visible());
  EXPECT_FALSE(DR_GRAPH.Label20.visible() || DR_GRAPH.Line4.visible());
  EXPECT_FALSE(DR_GRAPH.Label17.visible());
  EXPECT_FALSE(DR_GRAPH.Check3.enabled() || DR_GRAPH.Check3.checked());
  // A value equal to the threshold is flagged and lies below the ground: 348 + 3.
  EXPECT_EQ(lastMarker(), "yellow 77 351");
  expectFrame(canvas, "graph_plain.frame");
}

TEST_F(GraphTest, PutsTheCellOfTheWorkedExampleOnItsPixel) {
  Bytes cells(12);
  cells[6] = 100;  // column 3, row 2
  load(4, 3, cells);
  open();
  press(upKey);
  press(rightKey, 2);
  EXPECT_EQ(lastMarker(), "yellow 144 241");
}

TEST_F(GraphTest, TakesItsWordsAtEachOpening) {
  loadSmall();
  for (const int english : {1, 0, 2, 1}) {
    editorState.english = english;
    open();
    EXPECT_EQ(DR_GRAPH.Label14.caption(), english == 1 ? "Ratio" : "倍率");
    EXPECT_EQ(DR_GRAPH.Label17.caption(), english ? "Are calculating graph." : "グラフ計算中");
    DR_GRAPH.userClose();
    EXPECT_TRUE(form1().enabled() && !DR_GRAPH.loaded());
  }
}

TEST_F(GraphTest, ShowsStoredMaskAndMagnificationOrTheNearest) {
  loadSmall(130);
  const struct {
    int mask, magnification, inForce, list, height;
  } cases[] = {{192, 1, 192, 1, 130 - 192}, {128, 2, 128, 2, 4}, {64, 5, 64, 5, 330},
               {0, 3, 0, 3, 390},           {7, 0, 0, 1, 130},   {128, 9, 128, 5, 10},
               {192, -4, 192, 1, 130 - 192}};
  for (const auto& each : cases) {
    editorState.graphFbMask = each.mask;
    editorState.graphMagnification = each.magnification;
    open();
    EXPECT_EQ(graphState.fbMask, each.inForce);
    EXPECT_EQ(DR_GRAPH.List1.text(), std::to_string(each.list));
    EXPECT_EQ(graphState.heights[1][1], each.height);
    EXPECT_EQ(graphState.fbFlags[0], 1);
    DR_GRAPH.Command1.userClick();
    EXPECT_EQ(editorState.graphFbMask, each.mask);
    EXPECT_EQ(editorState.graphMagnification, each.magnification);
  }
}

TEST_F(GraphTest, EachDisplayControlRedrawsWithItsMarker) {
  loadSmall(130);
  compareWith(Bytes(0x1000, 20));
  open();
  EXPECT_EQ(lastMarker(), "yellow 77 346");
  click(DR_GRAPH.Check2);
  EXPECT_EQ(lastMarker(), "red 77 410");
  click(DR_GRAPH.Check1);
  EXPECT_EQ(lastMarker(), "red 77 282");
  click(DR_GRAPH.Check2);
  EXPECT_EQ(lastMarker(), "red 77 218");
  clickLine(1);
  EXPECT_EQ(lastMarker(), "yellow 77 88");
  click(DR_GRAPH.Option2);
  EXPECT_EQ(lastMarker(), "yellow 248 88");
  click(DR_GRAPH.Check1);
  EXPECT_EQ(lastMarker(), "red 248 344");
  DR_GRAPH.Text2.userFocus();
  EXPECT_EQ(DR_GRAPH.Text2.selectionLength(), 3);
  DR_GRAPH.Text2.userType("1a3-1\b");
  EXPECT_EQ(DR_GRAPH.Text2.text(), "13");
  DR_GRAPH.Text2.userType("1");
  canvas.userMouseDown();
  EXPECT_EQ(lastMarker(), "yellow 248 88");
  EXPECT_EQ(wires(canvas, wireRed), 0);
  click(DR_GRAPH.Check3);
  EXPECT_EQ(wires(canvas, wireRed), 24);
  EXPECT_TRUE(DR_GRAPH.Label20.visible() && DR_GRAPH.Line4.visible());
  EXPECT_EQ(editorState.graphShowCompare, 1);
  click(DR_GRAPH.Check3);
  EXPECT_EQ(wires(canvas, wireRed), 0);
  EXPECT_FALSE(DR_GRAPH.Label20.visible() || DR_GRAPH.Line4.visible());
  EXPECT_EQ(wires(canvas, wireGreen), 24);
}

TEST_F(GraphTest, ShowsItsTipForFiveSecondsOrUntilAClick) {
  loadSmall();
  open();
  const Label& tip = DR_GRAPH.Label13;
  EXPECT_TRUE(tip.visible() && DR_GRAPH.Timer1.interval() == 5000);
  DR_GRAPH.Timer1.fire();
  EXPECT_FALSE(tip.visible() || DR_GRAPH.Timer1.enabled());
  DR_GRAPH.Command3.userClick();
  EXPECT_TRUE(tip.visible() && DR_GRAPH.Timer1.enabled());
  canvas.userMouseDown();
  EXPECT_FALSE(tip.visible());
}

TEST_F(GraphTest, DrawsTheComparisonBeforeTheSurfaceAndWarnsWhenItIsMissing) {
  loadSmall();
  Bytes other(0x1000, 200);
  for (std::size_t k = 0; k < 12; ++k)
    other[mapAddress + k] = static_cast<std::uint8_t>(98 + 3 * k);
  compareWith(other);
  editorState.graphShowCompare = 1;
  editorState.graphMagnification = 2;
  editorState.graphFbMask = 64;
  open();
  EXPECT_TRUE(DR_GRAPH.Check3.enabled() && DR_GRAPH.Check3.checked());
  click(DR_GRAPH.Option2);
  expectFrame(canvas, "graph_compared.frame");
  DR_GRAPH.Command1.userClick();

  editorState.compareLoaded = 0;
  editorState.graphShowCompare = 1;
  open();
  EXPECT_EQ(desk.boxes.back().title, "Warning");
  EXPECT_EQ(lastBox(),
            "Although the check of the data display for comparison is contained, the data for "
            "comparison is not read.\nA check is removed and only the data for edit is displayed.");
  EXPECT_FALSE(DR_GRAPH.Check3.checked() || DR_GRAPH.Check3.enabled());
  EXPECT_FALSE(DR_GRAPH.Label20.visible() || DR_GRAPH.Line4.visible());
  EXPECT_EQ(wires(canvas, wireRed), 0);
  EXPECT_EQ(wires(canvas, wireGreen), 24);
  DR_GRAPH.Command1.userClick();
  editorState.graphShowCompare = 1;
  readSettings();
  EXPECT_EQ(editorState.graphShowCompare, 0);
}

TEST_F(GraphTest, DrawsOnlyTheQuadsThatTheComparisonHolds) {
  const struct {
    std::size_t bytes;
    const char* header;
    int quads;
  } cases[] = {{0, "0100", 0},        {1, "0100", 0},        {64, "0100", 0},
               {0x105, "0100", 0},    {0x106, "0100", 1},    {0x10C, "0100", 6},
               {0x12000, "0100", 6},  {64, "no address", 6}, {6, "", 1},
               {0x12000, "11FFC", 6}, {0x2008, "12000", 3},  {0x9, "FFFFFFFF0000", 0}};
  loadSmall();
  for (const auto& each : cases) {
    compareWith(Bytes(each.bytes, 1));
    editorState.graphShowCompare = 1;
    form1().Grid1.setText(1, 0, each.header);
    open();
    EXPECT_EQ(wires(canvas, wireRed), 4 * each.quads) << each.bytes << " bytes, " << each.header;
    EXPECT_EQ(wires(canvas, wireGreen), 24);
    DR_GRAPH.Command1.userClick();
  }
}

TEST_F(GraphTest, ShowsMapsOfAnySizeUpTo40By40) {
  const struct {
    int columns, rows, shownColumns, shownRows;
  } cases[] = {{1, 1, 1, 1},     {1, 9, 1, 9},     {9, 1, 9, 1},    {40, 40, 40, 40},
               {41, 41, 40, 40}, {64, 16, 40, 16}, {16, 64, 16, 40}};
  for (const auto& each : cases) {
    load(each.columns, each.rows, patternImage(static_cast<std::size_t>(each.columns * each.rows)));
    compareWith(editorState.image);
    editorState.graphShowCompare = 1;
    open();
    press(upKey, 100);
    press(rightKey, 100);
    EXPECT_EQ(graphState.cursorColumn, each.shownColumns);
    EXPECT_EQ(graphState.cursorRow, each.shownRows);
    const int segments = 4 * (each.shownColumns - 1) * (each.shownRows - 1);
    EXPECT_EQ(wires(canvas, wireGreen), segments);
    EXPECT_EQ(wires(canvas, groundGreen), 4);
    // The same image on both sides: the red wire lies exactly under the green one.
    EXPECT_EQ(wires(canvas, wireRed), segments);
    EXPECT_EQ(graphState.compareScreenX, graphState.screenX);
    EXPECT_EQ(graphState.compareScreenY, graphState.screenY);
    DR_GRAPH.Command2.userClick();
    EXPECT_EQ(saveAnew(), readBytes("image.bin")) << each.columns << "x" << each.rows;
    discardForm1();
    editorState = EditorState{};
    graphState = GraphState{};
  }
}

TEST_F(GraphTest, OpensEmptyForAMapThatTheModelLacks) {
  loadSmall();
  open();
  DR_GRAPH.Command1.userClick();
  selectTab(2);
  editorState.graphShowCompare = 1;
  open();
  EXPECT_TRUE(canvas.items().empty());
  press(rightKey);
  type('+');
  click(DR_GRAPH.Check1);
  EXPECT_TRUE(canvas.items().empty());
  const std::string before = cell(1, 1);
  DR_GRAPH.Command2.userClick();
  EXPECT_EQ(cell(1, 1), before);
  EXPECT_FALSE(DR_GRAPH.loaded());
}

TEST_F(GraphTest, ReadsAnyCellTextAndAnyThreshold) {
  loadSmall();
  const struct {
    const char* text;
    const char* threshold;
    int height;
    int flag;
  } cases[] = {
      {"abc", "125", 0, 0},
      {"65535", "125", 65535 - 128, 1},
      {"-7", "125", -7, 0},
      {"12.5", "125", 12, 0},
      {"99e99", "125", 2147483647 - 128, 1},
      {"0", "0", -128, 1},
      {"-1", "0", -1, 0},
      {"255", "256", 255, 0},
      {"255", "99999999999", 255, 0},
      {"124", "", 124 - 128, 1},
  };
  for (const auto& each : cases) {
    form1().Grid1.setText(1, 1, each.text);
    open();
    DR_GRAPH.Text2.userFocus();
    DR_GRAPH.Text2.userPaste(each.threshold);
    DR_GRAPH.Text2.userLeave();
    EXPECT_EQ(graphState.heights[1][1], each.height) << each.text << " at " << each.threshold;
    EXPECT_EQ(graphState.fbFlags[0], each.flag) << each.text << " at " << each.threshold;
    DR_GRAPH.Command1.userClick();
  }
}

}  // namespace
