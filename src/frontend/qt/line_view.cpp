#include "frontend/qt/line_view.h"

#include <QPainter>
#include <algorithm>

#include "frontend/qt/look.h"

namespace {

QRect around(const Line::Place& place) {
  const int reach = place.width;
  const QPoint from(std::min(place.x1, place.x2) - reach, std::min(place.y1, place.y2) - reach);
  const QPoint to(std::max(place.x1, place.x2) + reach, std::max(place.y1, place.y2) + reach);
  return QRect(from, to);
}

}  // namespace

LineView::LineView(Line& record, QWidget* canvas) : QWidget(canvas), record_(record) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setGeometry(around(record.place()));
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
  painter.translate(-pos());
  painter.drawLine(place.x1, place.y1, place.x2, place.y2);
}
