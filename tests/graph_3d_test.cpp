// The 3D graph as a user sees it: the drawn frames, the display controls, editing on the surface by
// keys, and the way of the edits through the grid into the file.
#include "graphs/graph_3d.h"

#include "graph_bed.h"

namespace {

TEST_F(GraphTest, ThePictureIsAFileForOthers) {
  Bytes other = patternImage(0x1200);
  other[mapAddress + 5] = 200;
  compareWith(other);
  open();
  press(rightKey);
  expectPicture("image HIGH_FUEL 3D.svg", "graph_3d.svg");
  DR_GRAPH.Label20.setVisible(false);
  canvas.userMenu();
  desk.saveAnswers = {path("hidden.svg")};
  desk.popUps.back()->find("export_picture")->userPick();
  EXPECT_EQ(readText("hidden.svg").find("Comparison"), std::string::npos);
}

TEST_F(GraphTest, DrawsTheSurfaceTheTrailOfAHeldKeyAndTheComparisonBehind) {
  openWith("125");
  EXPECT_TRUE(!form1().enabled() && canvas.visible() && DR_GRAPH.focus() == &canvas);
  EXPECT_FALSE(DR_GRAPH.Check3.enabled());
  expectFrame(canvas, "graph_plain.frame");
  DR_GRAPH.userClose();
  EXPECT_TRUE(form1().enabled() && !DR_GRAPH.loaded());

  compareWith(Bytes(0x1000, 20));
  openWith("10");
  for (const bool shown : {true, false, true}) {
    EXPECT_EQ(wires(wireRed) > 0, shown);
    EXPECT_EQ(DR_GRAPH.Label20.visible(), shown);
    click(DR_GRAPH.Check3);
  }
  click(DR_GRAPH.Check3);
  const std::size_t redrawn = canvas.items().size();
  for (int i = 0; i < 3; ++i) canvas.userKeyDown(rightKey);
  expectFrame(canvas, "graph_trail.frame");
  // A character key marks as well, and changes heights without a redraw.
  hold('+', 2);
  EXPECT_EQ(canvas.items().size(), redrawn + 5);
  canvas.userKeyUp('+');
  EXPECT_EQ(canvas.items().size(), redrawn);
  DR_GRAPH.userClose();

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

TEST_F(GraphTest, EachDisplayControlChangesThePictureAndAMousePressKeepsTheEditsBefore) {
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[&] { click(DR_GRAPH.Check1); }, "201"},
      {[&] { click(DR_GRAPH.Check2); }, "201"},
      {[&] { clickLine(1); }, "201"},
      {[&] { click(DR_GRAPH.Option2); }, "201"},
      {[] { DR_GRAPH.List1.userSelect(3); }, "200"},
      {[&] { click(DR_GRAPH.Check3); }, "200"},
      {[&] {
         typeOver(DR_GRAPH.Text2, "1a-9\b8");
         canvas.userMouseDown();
       },
       "200"}};
  compareWith(Bytes(0x1000, 20));
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    editorState.graphFbMask = 128;
    editorState.graphMagnification = 1;
    editorState.graphFbThreshold = 125;
    openWith("200");
    type('+');
    const auto before = canvas.items();
    cases[i].first();
    EXPECT_NE(canvas.items(), before) << i;
    DR_GRAPH.Command1.userClick();
    EXPECT_EQ(cell(1, 1), cases[i].second) << i;
  }
}

// A map of 4 x 3 cells, whose whole wire has 24 segments: inner edges come twice.
TEST_F(GraphTest, DrawsTheSegmentsWhoseTwoEndsTheComparisonHolds) {
  const std::tuple<std::size_t, const char*, int> cases[] = {
      {0, "0100", 0},        {0x101, "0100", 0}, {0x102, "0100", 1},    {0x104, "0100", 3},
      {0x105, "0100", 4},    {0x106, "0100", 8}, {0x108, "0100", 15},   {0x10B, "0100", 22},
      {0x10C, "0100", 24},   {6, "", 8},         {0x2008, "12000", 15}, {9, "FFFFFFFF0000", 0},
      {0x12000, "11FFC", 24}};
  for (const auto& [bytes, header, segments] : cases) {
    compareWith(Bytes(bytes, 1));
    form1().Grid1.setText(1, 0, header);
    open();
    EXPECT_EQ(wires(wireRed), segments) << bytes << " bytes, " << header;
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

TEST_F(GraphTest, MovesToTheEdgesAndNoFurtherAndReadsOutLoadSpeedAndValue) {
  for (int place = 1; place <= 4; ++place) {
    form1().TP_FUEL.setText(0, place, "0." + std::to_string(place));
    form1().RPM_FUEL.setText(place - 1, 0, std::to_string(100 * place));
  }
  openWith("200");
  const std::tuple<int, int, const char*> moves[] = {
      {leftKey, 1, "0.1kg|100rpm|DATA : 72"},  {downKey, 3, "0.1kg|100rpm|DATA : 72"},
      {rightKey, 9, "0.4kg|100rpm|DATA : 40"}, {upKey, 1, "0.4kg|200rpm|DATA : 80"},
      {upKey, 9, "0.4kg|300rpm|DATA : 120"},   {leftKey, 1, "0.3kg|300rpm|DATA : 110"},
      {downKey, 1, "0.3kg|200rpm|DATA : 70"},  {'5', 4, "0.3kg|200rpm|DATA : 70"}};
  for (const auto& [key, repeats, shown] : moves) {
    press(key, repeats);
    const std::string place = DR_GRAPH.Label2.caption() + "|" + DR_GRAPH.Label3.caption();
    EXPECT_EQ(place + "|" + DR_GRAPH.Label4.caption(), shown);
  }
}

TEST_F(GraphTest, KeysThatBeginTheirAssignmentChangeOneUnitOfTheCellUnderTheCursor) {
  // The step keys, cell, mask and magnification; the keys pressed, the read-out and what is
  // written.
  using Text = const char*;
  const std::tuple<Text, Text, Text, int, int, std::u32string, std::string, Text> cases[] = {
      {"+", "-", "200", 128, 1, U"+", "73", "201"},
      {"+", "-", "124", 128, 3, U"+", "125", "125"},
      {"+", "-", "200", 128, 3, U"+", "73", "201"},
      {"+", "-", "0", 128, 5, U"--++++", "2", "2"},
      {"+", "-", "300", 128, 1, U"", "172", "255"},
      {"+", "-", "-9", 0, 1, U"", "-9", "0"},
      {"+", "-", "130", 192, 1, U"", "-62", "130"},
      {"+", "-", "12.5", 7, 9, U"", "12", "12"},
      {"+", "-", "99e99", 0, 2, U"", "1073741823.5", "255"},
      {"+", "-", "255", 0, 3, U"++-", "254", "254"},
      {"", "-", "10", 0, 1, std::u32string(2, 0) + U"+", "10", "10"},
      {"あい", "-", "10", 0, 1, U"あい", "11", "11"},
      // One key for both: at the upper end the raise is cut before the fall.
      {"=", "=", "10", 0, 1, U"=", "10", "10"},
      {"=", "=", "255", 0, 1, U"=", "254", "254"}};
  for (const auto& [plus, minus, text, mask, magnification, keys, shown, written] : cases) {
    SCOPED_TRACE(std::string(plus) + minus + " " + text);
    editorState.plusKey = plus;
    editorState.minusKey = minus;
    editorState.graphFbMask = mask;
    editorState.graphMagnification = magnification;
    openWith(text);
    for (const char32_t key : keys) canvas.userKey(key);
    EXPECT_EQ(DR_GRAPH.focus(), &canvas);
    press(0);
    EXPECT_EQ(DR_GRAPH.Label4.caption(), "DATA : " + shown);
    DR_GRAPH.Command2.userClick();
    EXPECT_EQ(cell(1, 1), written);
  }
}

TEST_F(GraphTest, AClickFindsTheNearestPointAndCtrlMakesTenSteps) {
  openWith("200");
  const std::tuple<int, int, int, int> clicks[] = {
      {3, 2, 3, -4}, {2, 3, -3, 2}, {1, 1, 0, 0}, {1, 1, -2'000'000'000, 1'000'000'000}};
  for (const auto& [column, row, right, down] : clicks) {
    const auto c = static_cast<std::size_t>(column), r = static_cast<std::size_t>(row);
    canvas.userClick(graphState.screenX[c][r] + right, graphState.screenY[c][r] + down);
    EXPECT_EQ(std::pair(graphState.cursorColumn, graphState.cursorRow), std::pair(column, row));
  }
  for (const char32_t key : {U'-', U'-', U'+', U'x'}) canvas.userControlKey(key);
  press(0);
  EXPECT_EQ(DR_GRAPH.Label4.caption(), "DATA : 62") << "of 72";
}

TEST_F(GraphTest, OkKeepsParametersAndEditsAtTheMapsCorners) {
  open();
  DR_GRAPH.Check2.userToggle();
  DR_GRAPH.List1.userSelect(2);
  typeOver(DR_GRAPH.Text2, "122");
  canvas.userFocus();
  type('+');
  press(rightKey, 9);
  press(upKey, 9);
  type('-');
  DR_GRAPH.Command2.userClick();
  EXPECT_EQ(editorState.graphFbMask, 192);
  EXPECT_EQ(editorState.graphMagnification, 3);
  EXPECT_EQ(editorState.graphFbThreshold, 122);
  EXPECT_EQ(cell(1, 1) + cell(3, 4), "11119");
}

}  // namespace
