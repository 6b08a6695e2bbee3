// The 3D graph as a user sees it: refusals, opening, the drawn frames, the display controls.
#include <tuple>

#include "graph_bed.h"
#include "graphs/tp_curve.h"

namespace {

TEST_F(GraphTest, BothGraphsAreRefusedWithoutImageAndOnTabsWithoutGraph) {
  for (const auto& [tab, rom] : {std::pair{1, false}, {5, true}, {14, true}}) {
    for (const char* command : {"DISP_3D_Graph", "TP_2D"}) {
      editorState.image = RomImage(0x1000, rom ? 1 : 0);
      selectTab(tab);
      pick(command);
      EXPECT_EQ(told().find("ROM DATA reads") == 0, !rom) << tab;
      EXPECT_TRUE(!DR_GRAPH.loaded() && !D2_GRAPH.loaded() && form1().enabled());
    }
  }
}

TEST_F(GraphTest, OpensWithTheSurfaceDrawnAndHoldsTheMainWindowUntilClosed) {
  openWith("125");
  EXPECT_TRUE(!form1().enabled() && canvas.visible());
  EXPECT_EQ(DR_GRAPH.focus(), &canvas);
  EXPECT_FALSE(DR_GRAPH.Check3.enabled() || DR_GRAPH.Check3.checked());
  // A value equal to the threshold is flagged and lies below the ground: 348 + 3.
  EXPECT_EQ(lastMarker(), "yellow 77 351");
  expectFrame(canvas, "graph_plain.frame");
  DR_GRAPH.userClose();
  EXPECT_TRUE(form1().enabled() && !DR_GRAPH.loaded());
}

TEST_F(GraphTest, ShowsAnyCellWithAnyStoredMaskMagnificationAndThreshold) {
  const struct {
    int mask, magnification;
    const char *cell, *threshold;
    int inForce;  // of the mask
    int height, flag;
  } cases[] = {{192, 1, "130", "125", 192, 130 - 192, 1},
               {128, 2, "130", "125", 128, 4, 1},
               {64, 5, "130", "125", 64, 330, 1},
               {0, 3, "130", "125", 0, 390, 1},
               {7, 0, "abc", "125", 0, 0, 0},
               {128, 9, "12.5", "125", 128, 60, 0},
               {192, -4, "0", "0", 192, -192, 1},
               {128, 1, "65535", "125", 128, 65535 - 128, 1},
               {0, 5, "99e99", "125", 0, 2147483647, 1},
               {128, 1, "255", "99999999999", 128, 255, 0},
               {128, 1, "124", "", 128, 124 - 128, 1}};
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.cell) + " at " + each.threshold);
    editorState.graphFbMask = each.mask;
    editorState.graphMagnification = each.magnification;
    openWith(each.cell);
    DR_GRAPH.Text2.userFocus();
    DR_GRAPH.Text2.userPaste(each.threshold);
    DR_GRAPH.Text2.userLeave();
    EXPECT_EQ(graphState.fbMask, each.inForce);
    EXPECT_EQ(graphState.heights[1][1], each.height);
    EXPECT_EQ(graphState.fbFlags[0], each.flag);
    DR_GRAPH.Command1.userClick();
  }
}

TEST_F(GraphTest, EachDisplayControlRedrawsWithItsMarker) {
  compareWith(Bytes(0x1000, 20));
  editorState.graphShowCompare = 0;
  openWith("130");
  const auto threshold = [&](const char* keys) {
    DR_GRAPH.Text2.userFocus();
    DR_GRAPH.Text2.userType(keys);
    canvas.userMouseDown();
  };
  const struct {
    std::function<void()> change;
    const char* marker;
    int redWires = 0;
  } cases[] = {
      {[&] { click(DR_GRAPH.Check2); }, "red 77 410"},
      {[&] { click(DR_GRAPH.Check1); }, "red 77 282"},
      {[&] { click(DR_GRAPH.Check2); }, "red 77 218"},
      {[&] { clickLine(1); }, "yellow 77 88"},
      {[&] { click(DR_GRAPH.Option2); }, "yellow 248 88"},
      {[&] { click(DR_GRAPH.Check1); }, "red 248 344"},
      {[&] { threshold("1a3-1\b1"); }, "yellow 248 88"},  // 131
      {[&] { click(DR_GRAPH.Check3); }, "yellow 248 88", 24},
      {[&] { click(DR_GRAPH.Check3); }, "yellow 248 88"},
  };
  for (const auto& each : cases) {
    each.change();
    EXPECT_EQ(lastMarker(), each.marker);
    EXPECT_EQ(wires(wireRed), each.redWires);
  }
}

TEST_F(GraphTest, DrawsTheComparisonBeforeTheSurface) {
  Bytes other(0x1000, 200);
  for (std::size_t k = 0; k < 12; ++k)
    other[mapAddress + k] = static_cast<std::uint8_t>(98 + 3 * k);
  compareWith(other);
  editorState.graphMagnification = 2;
  editorState.graphFbMask = 64;
  open();
  click(DR_GRAPH.Option2);
  expectFrame(canvas, "graph_compared.frame");
}

TEST_F(GraphTest, DrawsOnlyTheQuadsThatTheComparisonHolds) {
  const std::tuple<std::size_t, const char*, int> cases[] = {
      {0, "0100", 0}, {0x105, "0100", 0},   {0x106, "0100", 1},     {0x10C, "0100", 6},
      {6, "", 1},     {0x2008, "12000", 3}, {9, "FFFFFFFF0000", 0}, {0x12000, "11FFC", 6}};
  for (const auto& [bytes, header, quads] : cases) {
    compareWith(Bytes(bytes, 1));
    form1().Grid1.setText(1, 0, header);
    open();
    EXPECT_EQ(wires(wireRed), 4 * quads) << bytes << " bytes, " << header;
    DR_GRAPH.Command1.userClick();
  }
}

TEST_F(GraphTest, ShowsMapsOfAnySizeUpTo40By40) {
  const std::tuple<int, int, int, int> cases[] = {
      {1, 1, 1, 1}, {1, 8, 1, 8}, {41, 41, 40, 40}, {64, 16, 40, 16}};
  for (const auto& [columns, rows, shownColumns, shownRows] : cases) {
    load(columns, rows, {});
    const Bytes original = readBytes("image.bin");
    compareWith(original);
    open();
    press(upKey, 100);
    press(rightKey, 100);
    EXPECT_EQ(graphState.cursorColumn, shownColumns);
    EXPECT_EQ(graphState.cursorRow, shownRows);
    EXPECT_EQ(wires(wireGreen), 4 * (shownColumns - 1) * (shownRows - 1));
    EXPECT_EQ(wires(wireRed), wires(wireGreen));
    DR_GRAPH.Command2.userClick();
    EXPECT_EQ(saveImage("saved" + std::to_string(columns * rows)), original);
  }
}

}  // namespace
