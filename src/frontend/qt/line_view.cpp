#include "frontend/qt/line_view.h"

#include <QPainter>
#include <algorithm>

#include "frontend/qt/canvas_view.h"
#include "frontend/qt/look.h"

namespace {

QRect around(const Line::Place& place, const CanvasView& canvas) {
  const int reach = place.width;
  const QPoint from(std::min(place.x1, place.x2) - reach, std::min(place.y1, place.y2) - reach);
  const QPoint to(std::max(place.x1, place.x2) + reach, std::max(place.y1, place.y2) + reach);
  return QRectF(canvas.placeOf(from), canvas.placeOf(to)).toAlignedRect().adjusted(0, 0, 1, 1);
}

}  // namespace

LineView::LineView(Line& record, CanvasView* canvas)
    : QWidget(canvas), record_(record), canvas_(*canvas) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  canvas->onPlace([this] { setGeometry(around(record_.place(), canvas_)); });
  record.observer = [this](const Change&) { showValues(); };
  showValues();
}

LineView::~LineView() { record_.observer = nullptr; }

void LineView::showValues() {
  if (isVisibleTo(parentWidget()) != record_.visible()) setVisible(record_.visible());
}

void LineView::paintEvent(QPaintEvent*) {
  const Line::Place& place = record_.place();
  QPainter painter(this);
  painter.setPen(QPen(shown(record_.colour()), place.width));
  painter.translate(canvas_.placeOf({}) - pos());
  painter.scale(canvas_.scale(), canvas_.scale());
  painter.drawLine(place.x1, place.y1, place.x2, place.y2);
}
