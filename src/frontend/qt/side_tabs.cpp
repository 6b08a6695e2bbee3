#include "frontend/qt/side_tabs.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace {

constexpr int textMargin = 12;  // pixels to both sides of a caption
constexpr int lineMargin = 5;   // pixels above and below a caption
constexpr int markWidth = 3;    // pixels, of the bar beside the selected tab
constexpr int rounding = 3;
constexpr int dotSize = 6;  // pixels across

}  // namespace

SideTabs::SideTabs(QWidget* parent) : QTabBar(parent) {
  setShape(RoundedWest);
  setElideMode(Qt::ElideNone);
  setExpanding(false);
  setDrawBase(false);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QSize SideTabs::tabSizeHint(int) const {
  const QFontMetrics metrics = fontMetrics();
  int widest = 0;
  for (int i = 0; i < count(); ++i) {
    widest = std::max(widest, metrics.size(Qt::TextShowMnemonic, tabText(i)).width());
  }
  return QSize(widest + 2 * textMargin, metrics.height() + 2 * lineMargin);
}

QSize SideTabs::minimumTabSizeHint(int index) const { return tabSizeHint(index); }

void SideTabs::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (int i = 0; i < count(); ++i) paintTab(painter, i);
}

void SideTabs::paintTab(QPainter& painter, int index) const {
  const QRect area = tabRect(index).adjusted(0, 0, -1, -1);
  const bool chosen = index == currentIndex();
  painter.setPen(Qt::NoPen);
  if (chosen) {
    painter.setBrush(palette().base());
    painter.drawRoundedRect(area, rounding, rounding);
    painter.fillRect(QRect(area.left(), area.top(), markWidth, area.height()),
                     palette().highlight());
  } else if (area.contains(mapFromGlobal(QCursor::pos())) && isEnabled()) {
    painter.setBrush(palette().midlight());
    painter.drawRoundedRect(area, rounding, rounding);
  }
  const QRect text = area.adjusted(textMargin, 0, 0, 0);
  const bool present = isEnabled() && !absent_(index);
  QPalette inks = palette();
  inks.setCurrentColorGroup(present ? QPalette::Active : QPalette::Disabled);
  style()->drawItemText(&painter, text, Qt::AlignVCenter | Qt::TextShowMnemonic, inks, present,
                        tabText(index), QPalette::WindowText);
  if (marked_(index)) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().windowText());
    const int room = (textMargin - dotSize) / 2;
    painter.drawEllipse(
        QRect(area.right() - room - dotSize, area.center().y() - dotSize / 2, dotSize, dotSize));
  }
  if (chosen && hasFocus()) {
    painter.setPen(QPen(palette().highlight(), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area, rounding, rounding);
  }
}

void SideTabs::keyPressEvent(QKeyEvent* event) {
  const int step = event->key() == Qt::Key_Up ? -1 : event->key() == Qt::Key_Down ? 1 : 0;
  if (step == 0) return QTabBar::keyPressEvent(event);
  setCurrentIndex(std::clamp(currentIndex() + step, 0, count() - 1));
}
