// Undo and redo: one step for each gesture, whatever it changed.
#include "core/history.h"
#include "core/map_kinds.h"
#include "editing/add_multiply.h"
#include "editing/address_dialog.h"
#include "editing/address_grid.h"
#include "editing/map_copy.h"
#include "graphs/dr_graph.h"
#include "graphs/graph_3d.h"
#include "support.h"

namespace {

class Undo : public ProgramTest {
 protected:
  Undo() { loadSmallCar(); }
  // All cells, colours and boxes.
  static std::string all() {
    std::string texts;
    forEachCell([&texts](auto&, const Grid& grid, int r, int c) {
      texts += grid.text(r, c) + std::to_string(grid.background(r, c).blue) + '|';
    });
    for (const ParamKind& kind : paramKinds()) texts += (form1().*kind.box).text() + '|';
    return texts;
  }
};

TEST_F(Undo, EachGestureGoesBackAndComesAgainInOneStep) {
  Grid& fuel = form1().Grid1;
  const std::pair<const char*, std::function<void()>> gestures[] = {
      {"cell", [&] { enterCell(fuel, 1, 1, "9"); }},
      {"held key",
       [&] {
         drag(fuel, 1, 1, 4, 8);
         for (int i = 0; i < 5; ++i) fuel.userKey('+');
         fuel.userKeyUp();
         fuel.userKeyRest();
       }},
      {"scale", [&] { enterCell(form1().TP_FUEL, 1, 1, "7"); }},
      {"bulk",
       [&] {
         drag(fuel, 1, 1, 4, 8);
         pick("add_dec");
         typeOver(form7.Text2, "5");
         form7.userEnter();
       }},
      {"copy",
       [&] {
         pick("F_F");
         form3.userEnter();
       }},
      {"airflow", [&] { pick("use_s13_vq"); }},
      {"box", [&] { typeOver(form1().Text4, "12"); }}};
  for (const auto& [name, gesture] : gestures) {
    SCOPED_TRACE(name);
    const std::string before = all();
    const std::string file = std::string(name) + ".bin";
    const Bytes saved = saveImage(file);
    gesture();
    const std::string after = all();
    EXPECT_NE(before, after);
    const Bytes changed = saveImage("after " + file);
    pick("undo");
    EXPECT_EQ(all(), before);
    EXPECT_EQ(saveImage("undone " + file), saved);
    pick("redo");
    EXPECT_EQ(all(), after);
    EXPECT_EQ(saveImage("redone " + file), changed);
    pick("undo");
    EXPECT_EQ(all(), before);
  }
}

// Twice the scale is more than a cell can show.
TEST_F(Undo, AMapThatTheGestureHidIsShownAndStoredAgain) {
  Bytes image(0x400, 1);
  useMap("TYPE_UNIT,X\n" + mapBlock("ADD_MAP1", "4", 2, 1, 2, "2147483647"));
  loadImage(image);
  pick("ADR_EDIT");
  typeOver(form13.Text1, "4");
  form13.userEnter();
  enterCell(form6.eGrid, 1, 2, "02");
  form6.userEnter();
  EXPECT_FALSE(form1().AddGrid1.visible());
  pick("undo");
  EXPECT_TRUE(form1().AddGrid1.visible());
  image[5] = 0;
  enterCell(form1().AddGrid1, 1, 2, "0");
  told();
  EXPECT_EQ(saveImage("saved.bin"), image);
  EXPECT_EQ(told(), "");
}

TEST_F(Undo, TheGraphWindowsTakeSingleChangesBack) {
  pick("DISP_3D_Graph");
  const auto height = [] { return graphState.heights[1][1]; };
  const std::int32_t lowest = height();
  for (int press = 0; press < 2; ++press) {
    DR_GRAPH.Picture1.userKey('+');
    DR_GRAPH.Picture1.userKeyUp(0);
  }
  const std::string raised = DR_GRAPH.Label4.caption();
  const std::pair<void (Window::*)(), std::int32_t> moves[] = {{&Window::userUndo, lowest + 1},
                                                               {&Window::userUndo, lowest},
                                                               {&Window::userUndo, lowest},
                                                               {&Window::userRedo, lowest + 1},
                                                               {&Window::userRedo, lowest + 2}};
  for (const auto& [move, expected] : moves) {
    (DR_GRAPH.*move)();
    EXPECT_EQ(height(), expected);
  }
  EXPECT_EQ(DR_GRAPH.Label4.caption(), raised);
}

}  // namespace
