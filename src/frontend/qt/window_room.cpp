#include "frontend/qt/window_room.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

#include "frontend/qt/grid_view.h"

namespace {

// What the layout asks for without the bars that its grids had at their last size.
QSize sizeWithoutBars(const QWidget* window) {
  QSize wanted = window->sizeHint();
  for (const GridView* grid : window->findChildren<GridView*>()) {
    wanted -= grid->sizeHint() - grid->contentSize();
  }
  return wanted;
}

}  // namespace

QSize roomFor(const QWidget* window) {
  constexpr QSize frame(16, 48);
  return window->screen()->availableSize() - frame;
}

QSize openingSize(const QWidget* window) {
  // At 150 % a window can end up a part of a pixel smaller than is asked for, and a grid that lacks
  // that part shows both scroll bars.
  constexpr QSize reserve(1, 1);
  const QSize room = roomFor(window);
  const int bar = window->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  QSize wanted = sizeWithoutBars(window) + reserve;
  const bool tooHigh = wanted.height() > room.height();
  const bool tooWide = wanted.width() > room.width();
  if (tooHigh) wanted.rwidth() += bar;
  if (tooWide) wanted.rheight() += bar;
  return wanted.boundedTo(room);
}
