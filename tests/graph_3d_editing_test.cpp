// Editing on the surface by keys, and the way of the edits through the grid into the file.
#include "graphs/graph_3d_editing.h"

#include <filesystem>
#include <tuple>

#include "graph_bed.h"

namespace {

TEST_F(GraphTest, AHeldKeyLeavesATrailAndRedrawsAtItsRelease) {
  compareWith(Bytes(0x1000, 20));
  open();
  const std::size_t redrawn = canvas.items().size();
  for (int i = 0; i < 3; ++i) canvas.userKeyDown(rightKey);
  expectFrame(canvas, "graph_trail.frame");
  // A character key marks as well, and changes heights without a redraw.
  hold('+', 2);
  EXPECT_EQ(canvas.items().size(), redrawn + 5);
  canvas.userKeyUp('+');
  EXPECT_EQ(canvas.items().size(), redrawn);
  EXPECT_EQ(wires(wireRed), 24);
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
  const struct {
    const char *plus, *minus, *cell;
    int mask, magnification;
    std::u32string keys;
    const char *shown, *written;
  } cases[] = {{"+", "-", "200", 128, 1, U"+", "73", "201"},
               {"+", "-", "124", 128, 3, U"+", "125", "125"},
               {"+", "-", "0", 128, 5, U"--++++", "2", "2"},
               {"+", "-", "120", 128, 4, std::u32string(200, U'+'), "255", "255"},
               {"+", "-", "300", 128, 1, U"", "172", "255"},
               {"+", "-", "-9", 0, 1, U"", "-9", "0"},
               {"+", "-", "255", 0, 3, U"++-", "254", "254"},
               {"", "-", "10", 0, 1, std::u32string(2, 0) + U"+", "10", "10"},
               {"あい", "-", "10", 0, 1, U"あい", "11", "11"},
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
  const std::tuple<const char*, std::function<void()>, const char*> cases[] = {
      {"8 bit", [this] { click(DR_GRAPH.Check1); }, "201"},
      {"7 bit", [this] { click(DR_GRAPH.Check2); }, "201"},
      {"selected line", [this] { clickLine(0); }, "201"},
      {"other direction", [this] { click(DR_GRAPH.Option2); }, "201"},
      {"list by key", [] { DR_GRAPH.List1.userSelect(3); }, "200"},
      {"comparison", [this] { click(DR_GRAPH.Check3); }, "200"},
  };
  for (const auto& [name, change, kept] : cases) {
    compareWith(Bytes(0x1000));
    editorState.graphFbMask = 128;
    editorState.graphMagnification = 1;
    openWith("200");
    type('+');
    change();
    DR_GRAPH.Command1.userClick();
    EXPECT_EQ(cell(1, 1), kept) << name;
  }
}

TEST_F(GraphTest, TheSaveBeforeAChangeStoresTheParametersAndAFailedOneDoesNotHoldTheWindow) {
  open();
  DR_GRAPH.Text2.userFocus();
  DR_GRAPH.Text2.userPaste("110");
  click(DR_GRAPH.Check2);
  EXPECT_NE(readText("zelkova.ini").find("\r\n 128 \r\n 110 \r\n 1 \r\n"), std::string::npos);
  std::filesystem::remove(path("zelkova.ini"));
  std::filesystem::create_directory(path("zelkova.ini"));
  canvas.userFocus();
  type('+');
  DR_GRAPH.Command2.userClick();
  EXPECT_EQ(desk.boxes.size(), 1U);
  EXPECT_EQ(cell(1, 1), "11");
  EXPECT_TRUE(!DR_GRAPH.loaded() && form1().enabled());
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

}  // namespace
