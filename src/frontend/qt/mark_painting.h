// The signs of marked cells and boxes: told apart by their shape, drawn dark and bright side by
// side, so that they stand out from every map colour.
#pragma once

#include <QPoint>
#include <QWidget>

#include "controls/controls.h"

class QPainter;

constexpr int markSize = 7;  // pixels; texts of three digits begin beside it

// Draws the sign of `mark`, enlarged by `scale`, with its upper left corner at `corner`; nothing
// for Mark::none.
void paintMark(QPainter& painter, QPoint corner, Mark mark, double scale = 1);

// The sign beside a box. It keeps its room while the box bears none.
class MarkView : public QWidget {
 public:
  explicit MarkView(const TextBox& record);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const TextBox& record_;
};
