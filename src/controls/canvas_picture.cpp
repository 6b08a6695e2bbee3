#include "controls/canvas_picture.h"

#include <algorithm>

namespace {

constexpr int lineHeight = 14;  // pixels

// The lines of a design are level or upright.
PictureBox boxOf(const Line& line) {
  const Line::Place& at = line.place();
  PictureBox box;
  const bool level = at.y1 == at.y2;
  const int reach = at.width / 2;
  box.x = std::min(at.x1, at.x2) - (level ? 0 : reach);
  box.y = std::min(at.y1, at.y2) - (level ? reach : 0);
  box.width = level ? std::max(at.x1, at.x2) - box.x + 1 : at.width;
  box.height = level ? at.width : std::max(at.y1, at.y2) - box.y + 1;
  box.fill = line.colour();
  return box;
}

PictureBox boxOf(const PlacedLabel& placed, int canvasWidth) {
  const std::string& text = placed.label->caption();
  PictureBox box{placed.x, placed.y, placed.width, placed.height};
  if (placed.width > 0) {
    box.align = PictureBox::centre;
  } else {
    box.x -= PictureBox::room;
    box.width = canvasWidth - box.x;
    box.height = lineHeight * static_cast<int>(1 + std::count(text.begin(), text.end(), '\n'));
  }
  box.text = text;
  box.ink = placed.label->colour();
  return box;
}

}  // namespace

Picture canvasPicture(const Canvas& canvas, std::span<const PlacedLabel> labels,
                      std::span<const Line* const> lines) {
  Picture picture{canvas.width(), canvas.height(), black, canvas.items()};
  for (const Line* line : lines) {
    if (line->visible()) picture.boxes.push_back(boxOf(*line));
  }
  for (const PlacedLabel& placed : labels) {
    if (placed.label->visible()) picture.boxes.push_back(boxOf(placed, canvas.width()));
  }
  return picture;
}
