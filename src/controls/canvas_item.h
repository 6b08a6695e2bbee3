// One stroke of a drawing. Pixels, y downward.
#pragma once

#include "controls/colour.h"

struct CanvasItem {
  enum Kind { line, outline, bar };
  Kind kind = line;
  Colour colour;
  // A line from the first point to the second, or the opposite corners of a rectangle, both
  // corners included.
  int x1 = 0;
  int y1 = 0;
  int x2 = 0;
  int y2 = 0;
  bool operator==(const CanvasItem&) const = default;
};
