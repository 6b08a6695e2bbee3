// The graphs in their tests: keys pressed on a canvas, its picture as text held against stored ones
// in tests/data, and for the 3D graph a car with one map to look at.
#pragma once

#include <algorithm>
#include <sstream>
#include <string>

#include "graphs/dr_graph.h"
#include "graphs/graph_3d.h"
#include "platform/files.h"
#include "support.h"

constexpr Colour wireGreen = rgb(0, 255, 0);
constexpr Colour wireRed = rgb(192, 0, 0);

inline std::string storedText(const std::string& name) {
  const Bytes stored = readFile(std::string(DATA_FOLDER) + "/" + name);
  return {stored.begin(), stored.end()};
}

inline void expectFrame(const Canvas& canvas, const std::string& name) {
  static constexpr const char* kinds[] = {"line", "outline", "bar"};
  std::ostringstream drawn;
  for (const CanvasItem& item : canvas.items()) {
    drawn << kinds[item.kind] << ' ' << +item.colour.red << ',' << +item.colour.green << ','
          << +item.colour.blue << ' ' << item.x1 << ' ' << item.y1 << ' ' << item.x2 << ' '
          << item.y2 << '\n';
  }
  EXPECT_EQ(drawn.str(), storedText(name)) << name;
}

inline int countOf(const Canvas& canvas, CanvasItem::Kind kind, Colour colour) {
  int count = 0;
  for (const CanvasItem& item : canvas.items()) count += item.kind == kind && item.colour == colour;
  return count;
}

class CanvasTest : public ProgramTest {
 protected:
  explicit CanvasTest(Canvas& shown) : canvas(shown) {}

  // A key from its press to its release, repeated while it is held.
  void press(int keyCode, int repeats = 1) {
    for (int i = 0; i < repeats; ++i) canvas.userKeyDown(keyCode);
    canvas.userKeyUp(keyCode);
  }
  void hold(char key, int repeats = 1) {
    for (int i = 0; i < repeats; ++i) {
      canvas.userKeyDown(key);
      canvas.userKey(static_cast<char32_t>(key));
    }
  }
  void type(char key, int repeats = 1) {
    hold(key, repeats);
    canvas.userKeyUp(key);
  }

  // What the menu on the canvas writes, the first name proposed, against the stored picture.
  void expectPicture(const std::string& proposed, const std::string& name) {
    canvas.userMenu();
    desk.saveAnswers = {path(name), path("picture.png")};
    for (int i = 0; i < 2; ++i) desk.popUps.back()->find("export_picture")->userPick();
    EXPECT_EQ(desk.saveDialogs.back().fileName, proposed);
    EXPECT_EQ(readText(name), storedText(name));
    EXPECT_EQ(readText("picture.png"), "png");
  }

  Canvas& canvas;
};

class GraphTest : public CanvasTest {
 protected:
  static constexpr std::size_t mapAddress = 0x100;

  GraphTest() : CanvasTest(DR_GRAPH.Picture1) {
    load(4, 3, {10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120});
  }

  // Loads a car of one fuel map; its cells hold `cells` in reading order, then the pattern.
  void load(int columns, int rows, const Bytes& cells) {
    graphState = GraphState{};
    startWithMap("TYPE_UNIT\r\nCAR\r\n" +
                 mapBlock("HIGH_FUEL", "&H100", columns, rows, columns * rows, "0", "High fuel"));
    Bytes bytes = patternImage(0x1200);
    std::copy(cells.begin(), cells.end(), bytes.begin() + mapAddress);
    loadImage(bytes);
  }
  void openWith(const std::string& firstCell) {
    form1().Grid1.setText(1, 1, firstCell);
    open();
  }
  void open() { pick("DISP_3D_Graph"); }
  void compareWith(const Bytes& bytes) {
    editorState.compareImage = bytes;
    editorState.compareLoaded = editorState.graphShowCompare = 1;
  }

  void click(CheckBox& box) {
    box.userMouseDown();
    box.userToggle();
  }
  void click(Option& option) {
    option.userMouseDown();
    option.userSelect();
  }
  void clickLine(int index) {
    DR_GRAPH.List1.userMouseDown();
    DR_GRAPH.List1.userSelect(index);
  }
  int wires(Colour colour) const { return countOf(canvas, CanvasItem::line, colour); }
  std::string cell(int row, int column) const { return form1().Grid1.text(row, column); }
};
