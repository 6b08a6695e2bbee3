// A line that belongs to a window's design, such as an axis or a sample in a legend. It lies on a
// canvas and survives its clearing.
#pragma once

#include "controls/colour.h"
#include "controls/control.h"

class Line : public Control {
 public:
  // Where the line runs, in the canvas's pixels, both ends included.
  struct Place {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    int width = 1;
  };
  Line(Window& owner, Place place, Colour colour)
      : Control(owner), place_(place), colour_(colour) {}
  const Place& place() const { return place_; }
  Colour colour() const { return colour_; }

 private:
  Place place_;
  Colour colour_;
};
