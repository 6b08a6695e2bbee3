// A picture as plain data: a drawing, and on it filled boxes with texts in them. Pixels, y
// downward.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/canvas_item.h"
#include "controls/colour.h"

struct PictureBox {
  enum Align { left, centre, right };
  static constexpr int usualFont = 12;  // pixels
  static constexpr int room = 4;        // left of a text and right of it
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  std::optional<Colour> fill = {};
  std::optional<Colour> border = {};
  std::string text = {};  // lines with line feeds between them, around the box's middle
  Colour ink = black;
  Align align = left;
  bool bold = false;
  int fontPixels = usualFont;
};

struct Picture {
  int width = 0;
  int height = 0;
  Colour ground = white;
  std::vector<CanvasItem> drawing = {};
  std::vector<PictureBox> boxes = {};
};
