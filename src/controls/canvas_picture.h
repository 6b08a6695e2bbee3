// A canvas as a picture, with what its window laid on it.
#pragma once

#include <span>

#include "controls/canvas.h"
#include "controls/controls.h"
#include "controls/line.h"
#include "controls/picture.h"

// Where a label lies on a canvas. In a place of fixed size its text stands in the middle, else it
// begins at the point.
struct PlacedLabel {
  Label* label = nullptr;
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

// What is hidden is left out.
Picture canvasPicture(const Canvas& canvas, std::span<const PlacedLabel> labels,
                      std::span<const Line* const> lines = {});
