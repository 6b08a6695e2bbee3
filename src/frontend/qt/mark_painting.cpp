#include "frontend/qt/mark_painting.h"

#include <QPainter>
#include <QPolygon>

#include "frontend/qt/look.h"

namespace {

constexpr int edgeOfCorner = 2;  // pixels along the cell's sides

// A dark corner with a bright edge.
void paintCorner(QPainter& painter) {
  const auto triangle = [](int size) {
    return QPolygon({QPoint(0, 0), QPoint(size, 0), QPoint(0, size)});
  };
  painter.setBrush(Qt::white);
  painter.drawPolygon(triangle(markSize));
  painter.setBrush(inkColour);
  painter.drawPolygon(triangle(markSize - edgeOfCorner));
}

// A bright cross on a dark square with a bright edge.
void paintCross(QPainter& painter) {
  constexpr double arm = 1;  // pixels from the square's edge
  const QRect square(0, 0, markSize - 1, markSize - 1);
  painter.fillRect(square.adjusted(0, 0, 1, 1), Qt::white);
  painter.fillRect(square, inkColour);
  painter.setPen(QPen(Qt::white, 1.5));
  const QRectF cross = QRectF(square).adjusted(arm, arm, -arm, -arm);
  painter.drawLine(cross.topLeft(), cross.bottomRight());
  painter.drawLine(cross.topRight(), cross.bottomLeft());
}

}  // namespace

void paintMark(QPainter& painter, QPoint corner, Mark mark, double scale) {
  if (mark == Mark::none) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.translate(corner);
  painter.scale(scale, scale);
  mark == Mark::differs ? paintCorner(painter) : paintCross(painter);
  painter.restore();
}

MarkView::MarkView(const TextBox& record) : record_(record) {
  setFixedSize(markSize + 1, markSize + 1);
}

void MarkView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintMark(painter, {}, record_.mark());
}
