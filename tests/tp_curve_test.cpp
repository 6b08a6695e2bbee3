// The TP scale edited as a curve.
#include "graphs/tp_curve.h"

#include <tuple>

#include "core/boost.h"
#include "graph_bed.h"
#include "graphs/tp_picture.h"
#include "platform/numbers.h"

namespace {

class TpCurveTest : public CanvasTest {
 protected:
  TpCurveTest() : CanvasTest(D2_GRAPH.Picture1) {}

  void load(const Bytes& scale) {
    const int columns = static_cast<int>(scale.size());
    startWithMap("TYPE_UNIT\r\nCAR\r\n" +
                 mapBlock("TP_SCALE_FUEL", "&H40", columns, 1, columns, "0", "TP of fuel") +
                 mapBlock("TP_SCALE_FIRE", "&H80", 2, 1, 2, "0", "TP of fire"));
    Bytes bytes(0x1000, 30);
    std::copy(scale.begin(), scale.end(), bytes.begin() + 0x40);
    loadImage(bytes);
  }
  void open(int tab = 1) {
    selectTab(tab);
    pick("TP_2D");
  }
};

TEST_F(TpCurveTest, KeysMoveThePointUnderTheCursorWithinTheBuffer) {
  const std::tuple<const char*, char, int, int, const char*, const char*> cases[] = {
      {"64", '+', 1, 170, "65", "+"},
      {"64", '-', 1, 174, "63", "+"},
      {"64", '+', 1, 172, "64", ""},
      {"200", '+', 1, 0, "150", "+"},
      {"0", '-', 200, 510, "0", "+"},
      {"-5", '+', 0, 310, "0", "+"},
      {"-9e30", '+', 0, 2147483647, "0", "+"},
      {"9e30", '-', 1, -2147483646, "1073741973", "+"},
      // One key for both lowers to y 2 first, then raises to y 0.
      {"150", '-', 1, 0, "150", "-"}};
  load({64, 64});
  for (const auto& [text, key, repeats, y, written, plusKey] : cases) {
    form1().TP_FUEL.setText(1, 1, text);
    editorState.plusKey = plusKey;
    open();
    type(key, repeats);
    EXPECT_EQ(tpGraphState.pointY[0], y) << text << key;
    EXPECT_EQ(tpGraphState.pointY[1], 172);
    D2_GRAPH.Command1.userClick();
    EXPECT_EQ(form1().TP_FUEL.text(1, 1), written) << text << key;
  }
}

TEST_F(TpCurveTest, ThePictureIsAFileForOthers) {
  load({0, 64, 145, 200, 255});
  open();
  press(rightKey);
  expectPicture("image TP_SCALE_FUEL.svg", "tp_curve.svg");
}

TEST_F(TpCurveTest, DrawsTheScaleOfItsTabATrailAndAtTheReleaseTheEdit) {
  load({0, 64, 145, 200, 255});
  open();
  EXPECT_TRUE(canvas.visible() && D2_GRAPH.focus() == &canvas && !form1().enabled());
  expectFrame(canvas, "tp_opened.frame");
  D2_GRAPH.userClose();
  EXPECT_TRUE(form1().enabled() && !D2_GRAPH.loaded());
  load({10, 20, 30, 40});
  open();
  for (const int key : {rightKey, upKey, rightKey}) canvas.userKeyDown(key);
  hold('-');
  EXPECT_EQ(countOf(canvas, CanvasItem::bar, rgb(255, 0, 0)), 5);
  canvas.userKeyUp('-');
  expectFrame(canvas, "tp_edited.frame");
  const std::int32_t before = tpGraphState.pointY[2];
  canvas.userControlKey(U'+');
  EXPECT_EQ(tpGraphState.pointY[2], before - 20);
}

TEST_F(TpCurveTest, ReadsOutBoostAndValueAtEachRelease) {
  load({64, 255});
  editorState.displacement = 2000;
  open();
  type('-');
  EXPECT_EQ(D2_GRAPH.Label1.caption(), "Boost:-0.17\nDATA : 63");
  editorState.cylinders = 0;
  press(rightKey);
  EXPECT_EQ(D2_GRAPH.Label1.caption(), "\nDATA : 255") << "no engine, no boost";
}

TEST_F(TpCurveTest, OkWritesTheRowAndBothBoostRowsAndCancelNothing) {
  load({64, 70});
  Bytes expected = readBytes("image.bin");
  Form1& form = form1();
  open();
  type('+', 4);
  D2_GRAPH.Command2.userClick();
  EXPECT_EQ(form.TP_FUEL.text(1, 1), "64");
  open();
  press(rightKey);
  type('-', 90);
  form.TP_FIRE.setText(0, 1, "old");
  D2_GRAPH.Command1.userClick();
  EXPECT_EQ(form.TP_FUEL.text(0, 2), formatFixed(boostFromTp(0), 2));
  EXPECT_EQ(form.TP_FIRE.text(0, 1), formatFixed(boostFromTp(30), 2));
  EXPECT_TRUE(form.enabled());
  expected[0x41] = 0;
  EXPECT_EQ(saveImage("saved.bin"), expected);
}

TEST_F(TpCurveTest, ShowsTheFirst129PointsAndNoMoreThanTheGridHas) {
  load({64});
  Grid& grid = form1().TP_FUEL;
  open();
  for (const auto& [gridColumns, columns, points] :
       {std::tuple{201, 200, 129}, std::tuple{17, 200, 16}, std::tuple{17, 0, 0}}) {
    grid.resize(2, gridColumns);
    for (int c = 1; c < gridColumns; ++c) grid.setText(1, c, "7");
    loadTpGraph(grid, columns, "long");
    press(rightKey, 300);
    type('+');
    writeTpGraphToGrid(*findMapKind(TP_SCALE_FUEL), columns);
    for (int c = 1; c < gridColumns; ++c) {
      EXPECT_EQ(grid.text(1, c), c == points ? "8" : "7") << c << " of " << columns;
    }
  }
}

}  // namespace
