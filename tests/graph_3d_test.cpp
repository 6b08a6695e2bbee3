// The 3D graph as a user sees it: refusals, opening, the drawn frames, the display controls.
#include <regex>
#include <tuple>

#include "core/settings_file.h"
#include "graph_bed.h"
#include "graphs/tp_curve.h"

namespace {

TEST_F(GraphTest, BothGraphsAreRefusedWithoutImageAndOnTabsWithoutGraph) {
  const std::tuple<int, bool, int, const char*> cases[] = {
      {1, false, 0, "ROM DATAが読み込まれていないのに、#Dグラフ編集はできません。"},
      {5, false, 1, "ROM DATA reads and been crowded, #D graph editing aren't possible."},
      {5, true, 2, "With this screen, #D graph editing aren't possible."},
      {14, true, 0, "この画面で、#Dグラフ編集はできません。"},
  };
  for (const auto& [tab, rom, english, text] : cases) {
    for (const auto& [command, digit] : {std::pair{"DISP_3D_Graph", "3"}, {"TP_2D", "2"}}) {
      editorState.image = RomImage(0x1000, rom ? 1 : 0);
      editorState.english = english;
      selectTab(tab);
      pick(command);
      EXPECT_EQ(desk.boxes.back().title, english ? "Error" : "エラー");
      EXPECT_EQ(lastBox(), std::regex_replace(text, std::regex("#"), digit));
      EXPECT_EQ(desk.boxes.back().icon, BoxIcon::critical);
      EXPECT_TRUE(!DR_GRAPH.loaded() && !D2_GRAPH.loaded() && form1().enabled());
    }
  }
}

TEST_F(GraphTest, OpensWithTheStoredParametersAndTheSurfaceDrawn) {
  canvas.drawLine(1, 2, 3, 4, white);
  openWith("125");
  EXPECT_TRUE(DR_GRAPH.topmost() && !form1().enabled() && canvas.visible());
  EXPECT_EQ(DR_GRAPH.focus(), &canvas);
  EXPECT_EQ(DR_GRAPH.Label1.caption() + DR_GRAPH.Text2.text() + legend(), "High fuel125edited");
  EXPECT_TRUE(DR_GRAPH.Option1.selected());
  EXPECT_FALSE(DR_GRAPH.Label17.visible());
  EXPECT_FALSE(DR_GRAPH.Check3.enabled() || DR_GRAPH.Check3.checked());
  // A value equal to the threshold is flagged and lies below the ground: 348 + 3.
  EXPECT_EQ(lastMarker(), "yellow 77 351");
  expectFrame(canvas, "graph_plain.frame");
  Label& tip = DR_GRAPH.Label13;
  EXPECT_TRUE(tip.visible() && DR_GRAPH.Timer1.interval() == 5000);
  DR_GRAPH.Timer1.fire();
  EXPECT_FALSE(tip.visible() || DR_GRAPH.Timer1.enabled());
  DR_GRAPH.Command3.userClick();
  EXPECT_TRUE(tip.visible() && DR_GRAPH.Timer1.enabled());
  canvas.userMouseDown();
  EXPECT_FALSE(tip.visible());
  for (const int english : {0, 2, 1}) {
    DR_GRAPH.userClose();
    EXPECT_TRUE(form1().enabled() && !DR_GRAPH.loaded());
    editorState.english = english;
    open();
    EXPECT_EQ(DR_GRAPH.Label14.caption(), english == 1 ? "Ratio" : "倍率");
    EXPECT_EQ(DR_GRAPH.Label17.caption(), english ? "Are calculating graph." : "グラフ計算中");
  }
}

TEST_F(GraphTest, ShowsAnyCellWithAnyStoredMaskMagnificationAndThreshold) {
  const struct {
    int mask, magnification;
    const char *cell, *threshold;
    int inForce;  // of the mask
    const char* list;
    int height, flag;
  } cases[] = {{192, 1, "130", "125", 192, "1", 130 - 192, 1},
               {128, 2, "130", "125", 128, "2", 4, 1},
               {64, 5, "130", "125", 64, "5", 330, 1},
               {0, 3, "130", "125", 0, "3", 390, 1},
               {7, 0, "abc", "125", 0, "1", 0, 0},
               {128, 9, "12.5", "125", 128, "5", 60, 0},
               {192, -4, "0", "0", 192, "1", -192, 1},
               {128, 5, "-1", "0", 128, "5", -5, 0},
               {128, 1, "65535", "125", 128, "1", 65535 - 128, 1},
               {0, 5, "99e99", "125", 0, "5", 2147483647, 1},
               {128, 1, "255", "256", 128, "1", 255, 0},
               {128, 1, "255", "99999999999", 128, "1", 255, 0},
               {128, 1, "124", "", 128, "1", 124 - 128, 1}};
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.cell) + " at " + each.threshold);
    editorState.graphFbMask = each.mask;
    editorState.graphMagnification = each.magnification;
    openWith(each.cell);
    DR_GRAPH.Text2.userFocus();
    DR_GRAPH.Text2.userPaste(each.threshold);
    DR_GRAPH.Text2.userLeave();
    EXPECT_EQ(graphState.fbMask, each.inForce);
    EXPECT_EQ(DR_GRAPH.List1.text(), each.list);
    EXPECT_EQ(graphState.heights[1][1], each.height);
    EXPECT_EQ(graphState.fbFlags[0], each.flag);
    DR_GRAPH.Command1.userClick();
    EXPECT_EQ(editorState.graphFbMask, each.mask);
    EXPECT_EQ(editorState.graphMagnification, each.magnification);
  }
}

TEST_F(GraphTest, EachDisplayControlRedrawsWithItsMarker) {
  compareWith(Bytes(0x1000, 20));
  editorState.graphShowCompare = 0;
  openWith("130");
  DrGraph& window = DR_GRAPH;
  const auto threshold = [&](const char* keys) {
    window.Text2.userFocus();
    EXPECT_EQ(window.Text2.selectionLength(), static_cast<int>(window.Text2.text().size()));
    window.Text2.userType(keys);
    canvas.userMouseDown();
  };
  const struct {
    std::function<void()> change;
    const char* marker;
    int redWires = 0;
  } cases[] = {
      {[] {}, "yellow 77 346"},
      {[&] { click(window.Check2); }, "red 77 410"},
      {[&] { click(window.Check1); }, "red 77 282"},
      {[&] { click(window.Check2); }, "red 77 218"},
      {[&] { clickLine(1); }, "yellow 77 88"},
      {[&] { click(window.Option2); }, "yellow 248 88"},
      {[&] { click(window.Check1); }, "red 248 344"},
      {[&] { threshold("1a3-1\b1"); }, "yellow 248 88"},  // 131
      {[&] { threshold("130"); }, "yellow 248 344"},
      {[&] { click(window.Check3); }, "yellow 248 344", 24},
      {[&] { click(window.Check3); }, "yellow 248 344"},
  };
  for (const auto& each : cases) {
    each.change();
    EXPECT_EQ(lastMarker(), each.marker);
    EXPECT_EQ(wires(wireRed), each.redWires);
    EXPECT_EQ(wires(wireGreen), 24);
    EXPECT_EQ(legend(), each.redWires ? "edited compared" : "edited");
    EXPECT_EQ(editorState.graphShowCompare, each.redWires ? 1 : 0);
  }
}

TEST_F(GraphTest, DrawsTheComparisonBeforeTheSurfaceAndWarnsWhenItIsMissing) {
  Bytes other(0x1000, 200);
  for (std::size_t k = 0; k < 12; ++k)
    other[mapAddress + k] = static_cast<std::uint8_t>(98 + 3 * k);
  compareWith(other);
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
  EXPECT_EQ(legend() + std::to_string(wires(wireRed) + wires(wireGreen)), "edited24");
  editorState.graphShowCompare = 1;
  readSettings();
  EXPECT_EQ(editorState.graphShowCompare, 0);
}

TEST_F(GraphTest, DrawsOnlyTheQuadsThatTheComparisonHolds) {
  const std::tuple<std::size_t, const char*, int> cases[] = {
      {0, "0100", 0},     {64, "0100", 0},        {0x105, "0100", 0},
      {0x106, "0100", 1}, {0x10C, "0100", 6},     {64, "no address", 6},
      {6, "", 1},         {0x12000, "11FFC", 6},  {0x2008, "12000", 3},
      {5, "12000", 0},    {9, "FFFFFFFF0000", 0}, {0x12000, "0100", 6}};
  for (const auto& [bytes, header, quads] : cases) {
    compareWith(Bytes(bytes, 1));
    form1().Grid1.setText(1, 0, header);
    open();
    EXPECT_EQ(wires(wireRed), 4 * quads) << bytes << " bytes, " << header;
    EXPECT_EQ(wires(wireGreen), 24);
    DR_GRAPH.Command1.userClick();
  }
}

TEST_F(GraphTest, ShowsMapsOfAnySizeUpTo40By40) {
  const std::tuple<int, int, int, int> cases[] = {
      {1, 1, 1, 1}, {1, 9, 1, 9}, {9, 1, 9, 1}, {41, 41, 40, 40}, {64, 16, 40, 16}};
  for (const auto& [columns, rows, shownColumns, shownRows] : cases) {
    load(columns, rows, {});
    const Bytes original = readBytes("image.bin");
    compareWith(original);
    open();
    press(upKey, 100);
    press(rightKey, 100);
    EXPECT_EQ(graphState.cursorColumn, shownColumns);
    EXPECT_EQ(graphState.cursorRow, shownRows);
    const int segments = 4 * (shownColumns - 1) * (shownRows - 1);
    EXPECT_EQ(wires(wireGreen), segments);
    // The same image on both sides: the red wire lies exactly under the green one.
    EXPECT_EQ(wires(wireRed), segments);
    EXPECT_EQ(graphState.compareScreenX, graphState.screenX);
    EXPECT_EQ(graphState.compareScreenY, graphState.screenY);
    DR_GRAPH.Command2.userClick();
    EXPECT_EQ(saveImage("saved.bin"), original) << columns << "x" << rows;
    std::remove(path("saved.bin").c_str());
  }
}

TEST_F(GraphTest, OpensEmptyForAMapThatTheModelLacks) {
  open();
  DR_GRAPH.Command1.userClick();
  selectTab(2);
  editorState.graphShowCompare = 1;
  open();
  press(rightKey);
  type('+');
  click(DR_GRAPH.Check1);
  EXPECT_TRUE(canvas.items().empty());
  DR_GRAPH.Command2.userClick();
  EXPECT_EQ(cell(1, 1), "10");
  EXPECT_FALSE(DR_GRAPH.loaded());
}

}  // namespace
