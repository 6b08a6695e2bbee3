// The graphs in their tests: keys pressed on a canvas, its picture as text held against stored ones
// in tests/data, and for the 3D graph a car with one map to look at.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "graphs/dr_graph.h"
#include "graphs/graph_3d.h"
#include "support.h"

constexpr Colour wireGreen = rgb(0, 255, 0);
constexpr Colour wireRed = rgb(192, 0, 0);
constexpr Colour groundGreen = rgb(0, 96, 0);

inline std::string frameText(const Canvas& canvas) {
  static constexpr const char* kinds[] = {"line", "outline", "bar"};
  std::ostringstream text;
  for (const CanvasItem& item : canvas.items()) {
    text << kinds[item.kind] << ' ' << +item.colour.red << ',' << +item.colour.green << ','
         << +item.colour.blue << ' ' << item.x1 << ' ' << item.y1 << ' ' << item.x2 << ' '
         << item.y2 << '\n';
  }
  return text.str();
}

// A frame that differs is left in the folder for temporary files, to be looked at.
inline void expectFrame(const Canvas& canvas, const std::string& name) {
  std::ifstream file(std::string(DATA_FOLDER) + "/" + name, std::ios::binary);
  const std::string stored{std::istreambuf_iterator<char>(file), {}};
  const std::string drawn = frameText(canvas);
  if (drawn == stored) return;
  const auto left = std::filesystem::temp_directory_path() / name;
  std::ofstream(left, std::ios::binary) << drawn;
  ADD_FAILURE() << name << " differs from what was drawn; see " << left;
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
  void type(char key, int repeats = 1) {
    for (int i = 0; i < repeats; ++i) {
      canvas.userKeyDown(key);
      canvas.userKey(static_cast<char32_t>(key));
    }
    canvas.userKeyUp(key);
  }

  Canvas& canvas;
};

class GraphTest : public CanvasTest {
 protected:
  static constexpr std::size_t mapAddress = 0x100;

  GraphTest() : CanvasTest(DR_GRAPH.Picture1) { graphState = GraphState{}; }
  ~GraphTest() override { DR_GRAPH.unload(); }

  // Loads a car of one fuel map; its cells hold `cells` in reading order, then 0.
  void load(int columns, int rows, const Bytes& cells) {
    startWithMap("TYPE_UNIT\r\nCAR\r\n" +
                 mapBlock("HIGH_FUEL", "&H100", columns, rows, columns * rows, "0", "High fuel") +
                 mapBlock("TP_SCALE_FUEL", "&H40", 4, 1, 4) +
                 mapBlock("RPM_SCALE_FUEL", "&H50", 4, 1, 4, "50"));
    Bytes bytes(0x1000);
    bytes[0] = 1;  // so that the image counts as loaded
    for (std::size_t k = 0; k < 4; ++k) {
      bytes[0x40 + k] = static_cast<std::uint8_t>(64 + k);
      bytes[0x50 + k] = static_cast<std::uint8_t>(16 + k);
    }
    std::copy(cells.begin(), cells.end(), bytes.begin() + mapAddress);
    loadImage(bytes);
  }
  // The same with 4 x 3 cells of 10, 20, ... 120 and then the first of them as told.
  void loadSmall(std::uint8_t first = 10) {
    Bytes cells;
    for (int value = 10; value <= 120; value += 10) {
      cells.push_back(static_cast<std::uint8_t>(value));
    }
    cells[0] = first;
    load(4, 3, cells);
  }
  Bytes saveAnew() {
    std::filesystem::remove(path("saved.bin"));
    return saveImage("saved.bin");
  }
  void open() { pick("DISP_3D_Graph"); }
  void compareWith(const Bytes& bytes) {
    editorState.compareImage = bytes;
    editorState.compareLoaded = 1;
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
  // The marker that was drawn last, "red" or "yellow" and its middle.
  std::string lastMarker() const {
    if (canvas.items().empty()) return "none";
    const CanvasItem& item = canvas.items().back();
    if (item.kind != CanvasItem::bar || item.x2 - item.x1 != 4) return "none";
    return (item.colour == markerRed ? "red " : "yellow ") + std::to_string(item.x1 + 2) + " " +
           std::to_string(item.y1 + 2);
  }
  std::string cell(int row, int column) const { return form1().Grid1.text(row, column); }
  std::string readOuts() const {
    return DR_GRAPH.Label2.caption() + "|" + DR_GRAPH.Label3.caption() + "|" +
           DR_GRAPH.Label4.caption();
  }
};
