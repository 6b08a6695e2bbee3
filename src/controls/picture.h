// A picture as plain data: filled boxes with texts in them. Pixels, y downward.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/colour.h"

struct PictureBox {
  enum Align { left, centre, right };
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  std::optional<Colour> fill = {};
  std::optional<Colour> border = {};
  std::string text = {};
  Colour ink = black;
  Align align = left;
  bool bold = false;
};

struct Picture {
  static constexpr int fontPixels = 12;
  int width = 0;
  int height = 0;
  Colour ground = white;
  std::vector<PictureBox> boxes;
};
