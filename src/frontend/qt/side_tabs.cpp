#include "frontend/qt/side_tabs.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "frontend/qt/look.h"

namespace {

constexpr int textMargin = 12;     // pixels to both sides of a caption
constexpr int lineMargin = 5;      // pixels above and below a caption
constexpr int widestSecond = 150;  // pixels, of what makes the tabs wider
constexpr int markWidth = 3;       // pixels, of the bar beside the selected tab
constexpr int rounding = 3;
constexpr int dotSize = 6;   // pixels across
constexpr int dotRoom = 10;  // pixels to the right of what is written

}  // namespace

SideTabs::SideTabs(QWidget* parent) : QTabBar(parent) {
  setShape(RoundedWest);
  setElideMode(Qt::ElideNone);
  setExpanding(false);
  setDrawBase(false);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QFont SideTabs::secondFont() const {
  constexpr double share = 0.85;
  QFont second = font();
  second.setPixelSize(qRound(fontInfo().pixelSize() * share));
  return second;
}

QSize SideTabs::tabSizeHint(int index) const {
  const QFontMetrics metrics = fontMetrics();
  const QFontMetrics second(secondFont());
  int widest = 0;
  for (int i = 0; i < count(); ++i) {
    widest = std::max({widest, metrics.size(Qt::TextShowMnemonic, tabText(i)).width(),
                       std::min(second.horizontalAdvance(secondLine_(i)), byFont(widestSecond))});
  }
  const QSize size(widest + 2 * textMargin, metrics.height() + 2 * lineMargin);
  if (secondLine_(index).isEmpty()) return size;
  // The second line takes the margins' room.
  return size + QSize(0, second.height() - lineMargin);
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
  paintCaption(painter, area.adjusted(textMargin, 0, -dotRoom, 0), index);
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

void SideTabs::paintCaption(QPainter& painter, const QRect& area, int index) const {
  const bool present = isEnabled() && !absent_(index);
  const QString second = secondLine_(index);
  const int below = second.isEmpty() ? 0 : QFontMetrics(secondFont()).height();
  const int first = fontMetrics().height();
  const QRect caption(area.left(), area.top() + (area.height() - first - below) / 2,
                      area.width() + dotRoom, first);
  painter.setFont(font());
  painter.setPen(present ? palette().color(QPalette::WindowText) : absentInk(palette()));
  painter.drawText(caption, Qt::AlignVCenter | Qt::TextShowMnemonic, tabText(index));
  if (second.isEmpty()) return;
  painter.setFont(secondFont());
  painter.setPen(faintInk(palette()));
  const QRect line(area.left(), caption.bottom() + 1, area.width(), below);
  painter.drawText(line, Qt::AlignVCenter,
                   painter.fontMetrics().elidedText(second, Qt::ElideRight, line.width()));
}

void SideTabs::keyPressEvent(QKeyEvent* event) {
  const int step = event->key() == Qt::Key_Up ? -1 : event->key() == Qt::Key_Down ? 1 : 0;
  if (step == 0) return QTabBar::keyPressEvent(event);
  setCurrentIndex(std::clamp(currentIndex() + step, 0, count() - 1));
}
