#include "frontend/qt/grid_painting.h"

#include <QFontMetrics>
#include <QHash>
#include <QPainter>
#include <QStaticText>
#include <QWidget>

#include "frontend/qt/look.h"
#include "frontend/qt/text.h"

namespace {

constexpr int textMargin = 3;  // pixels to the left and right of a cell's text
constexpr int keptTexts = 4096;
constexpr QRgb selectionTint = qRgb(206, 228, 255);
constexpr double selectionShare = 0.72;  // of the tint in a selected cell's colour
constexpr double disabledShare = 0.75;   // of the ground in a disabled cell's colour
const QColor focusedBorder(255, 191, 0);
const QColor restingBorder(110, 116, 128);

// Texts as they were laid out, since maps show the same few numbers again and again.
struct LaidOut {
  QStaticText text;
  int width = 0;
};

const LaidOut& laidOut(const QString& text, const QFont& font) {
  static QHash<QString, LaidOut> kept;
  static QFont keptFont;
  if (font != keptFont || kept.size() > keptTexts) kept.clear();
  keptFont = font;
  LaidOut& entry = kept[text];
  if (entry.text.text().isEmpty()) {
    entry.text.setTextFormat(Qt::PlainText);
    entry.text.setText(text);
    entry.text.prepare({}, font);
    entry.width = QFontMetrics(font).horizontalAdvance(text);
  }
  return entry;
}

// A text that is wider than its cell is squeezed into it.
void drawSqueezed(QPainter& painter, const QRect& area, const QString& text, int width) {
  painter.save();
  painter.translate(area.left(), 0);
  painter.scale(static_cast<double>(area.width()) / width, 1);
  painter.drawText(QRect(0, area.top(), width, area.height()), Qt::AlignCenter, text);
  painter.restore();
}

void drawText(QPainter& painter, const QRect& area, const QString& text, bool toTheRight) {
  if (text.isEmpty()) return;
  const LaidOut& entry = laidOut(text, painter.font());
  const QRect room = area.adjusted(textMargin, 0, -textMargin, 0);
  if (entry.width > area.width() - 2) {
    return drawSqueezed(painter, area.adjusted(1, 0, -1, 0), text, entry.width);
  }
  const bool tight = entry.width > room.width();
  const int left = toTheRight && !tight ? room.right() + 1 - entry.width
                                        : area.left() + (area.width() - entry.width) / 2;
  const QFontMetrics metrics = painter.fontMetrics();
  painter.drawStaticText(left, area.top() + (area.height() - metrics.height()) / 2, entry.text);
}

QColor mixed(const QColor& one, const QColor& other, double share) {
  const auto part = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return QColor(part(one.red(), other.red()), part(one.green(), other.green()),
                part(one.blue(), other.blue()));
}

bool selected(const Grid& record, int row, int column) {
  const GridBlock block = record.block();
  return row >= block.top && row <= block.bottom && column >= block.left && column <= block.right;
}

}  // namespace

void paintCell(QPainter& painter, const QRect& area, const Grid& record, int row, int column,
               const QWidget& view) {
  QColor ground =
      shown(record.painted(row, column) ? record.background(row, column) : record.look().ground);
  QColor ink = shown(record.look().text);
  const bool current = row == record.row() && column == record.column();
  if (!view.isEnabled()) {
    ground = mixed(ground, view.palette().color(QPalette::Window), disabledShare);
    ink = view.palette().color(QPalette::Disabled, QPalette::Text);
  } else if (!current && selected(record, row, column)) {
    ground = mixed(ground, QColor(selectionTint), selectionShare);
    ink = Qt::black;
  }
  const QColor lines = shown(record.look().lines);
  const QRect inside = area.adjusted(0, 0, -1, -1);
  painter.fillRect(inside, ground);
  painter.fillRect(QRect(area.right(), area.top(), 1, area.height()), lines);
  painter.fillRect(QRect(area.left(), area.bottom(), area.width(), 1), lines);
  painter.setPen(ink);
  drawText(painter, inside, shown(record.text(row, column)), true);
}

void paintHeaderCell(QPainter& painter, const QRect& area, const Grid& record, int row, int column,
                     const QWidget& view) {
  const bool outside = row >= record.rows() || column >= record.columns();
  const GridBlock block = record.block();
  const bool touched =
      (row >= block.top && row <= block.bottom) || (column >= block.left && column <= block.right);
  const QPalette& palette = view.palette();
  const QColor ground = palette.color(QPalette::Button);
  painter.fillRect(area, touched && view.isEnabled() ? ground.darker(110) : ground);
  const QColor line = ground.darker(125);
  painter.fillRect(QRect(area.right(), area.top(), 1, area.height()), line);
  painter.fillRect(QRect(area.left(), area.bottom(), area.width(), 1), line);
  if (outside) return;
  painter.setFont(view.font());
  painter.setPen(palette.color(QPalette::ButtonText));
  drawText(painter, area.adjusted(0, 0, -1, -1), shown(record.text(row, column)), false);
}

void paintSelectionBorder(QPainter& painter, const QRect& area, bool focused) {
  painter.setPen(
      QPen(focused ? focusedBorder : restingBorder, 2, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(area);
}
