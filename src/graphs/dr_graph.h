// The window "3D GRAPH EDIT": canvas, labels and lines on it, and the display parameters below.
#pragma once

#include <array>

#include "controls/button.h"
#include "controls/canvas.h"
#include "controls/canvas_picture.h"
#include "controls/controls.h"
#include "controls/line.h"
#include "controls/window.h"
#include "graphs/graph_export.h"

struct DrGraph : Window {
  DrGraph();

  // Captions and tool tips in the language in force.
  void takeWords();

  static constexpr int canvasWidth = 593;
  static constexpr int canvasHeight = 377;
  static constexpr int tipMilliseconds = 5000;

  Canvas Picture1{*this, canvasWidth, canvasHeight};
  // On the canvas: map, read-outs, axes, legend, busy notice, tip.
  Label Label1{*this}, Label2{*this}, Label3{*this}, Label4{*this};
  Label Label7{*this}, Label8{*this}, Label9{*this}, Label10{*this}, Label11{*this}, Label12{*this};
  Label Label19{*this}, Label20{*this};
  Label Label17{*this};
  Label Label13{*this};
  Line Line1, Line2, Line3, Line4;
  std::array<const Line*, 4> linesOnCanvas() const { return {&Line1, &Line2, &Line3, &Line4}; }
  // Without the notice and the tip, which come and go.
  std::array<PlacedLabel, 12> labelsOnCanvas();
  PictureMenu pictureMenu{*this};

  Frame Frame1{*this};
  Label Label5{*this};
  CheckBox Check1{*this, "8Bit"}, Check2{*this, "7Bit"};
  Label Label6{*this};
  TextBox Text2{*this, "125"};
  Label Label14{*this};
  ListBox List1{*this, {"1", "2", "3", "4", "5"}};
  Label Label15{*this, "X"};
  Label Label16{*this};
  OptionGroup viewDirection;
  // Hands that point to the right and to the left.
  Option Option1{*this, viewDirection, "☞"}, Option2{*this, viewDirection, "☜"};
  Label Label18{*this};
  CheckBox Check3{*this, "On/Off"};

  Button Command1{*this, "CANCEL"}, Command2{*this, "OK"}, Command3{*this};
  Timer Timer1{*this, tipMilliseconds};

  // False until the window has first become the active one, and again after it is unloaded.
  bool formActive = false;
};

extern DrGraph DR_GRAPH;
