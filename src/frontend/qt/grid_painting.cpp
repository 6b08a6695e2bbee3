#include "frontend/qt/grid_painting.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStaticText>
#include <QWidget>
#include <unordered_map>
#include <utility>

#include "frontend/qt/look.h"
#include "frontend/qt/mark_painting.h"
#include "frontend/qt/text.h"

namespace {

constexpr int textMargin = 3;  // pixels to the left and right of a cell's text
constexpr std::size_t keptTexts = 4096;
constexpr double selectionShare = 0.72;  // of the tint in a selected cell's colour
constexpr double disabledShare = 0.93;   // of the window's ground in a disabled cell's colour
constexpr double lineShare = 0.75;       // the same of its lines
constexpr int touchedShade = 110;
constexpr int edgeWidth = 2;
constexpr QColor selectionTint(206, 228, 255);
constexpr QColor litBorder(255, 235, 59);

// Texts as they were laid out, since maps show the same few numbers again and again.
struct LaidOut {
  QStaticText text;
  int width = 0;
};

std::unordered_map<std::string, LaidOut> laidOutTexts;
QFont laidOutFont;

void startLaidOutTexts(const QFont& font) {
  if (font == laidOutFont && laidOutTexts.size() < keptTexts) return;
  laidOutTexts.clear();
  laidOutFont = font;
}

const LaidOut& laidOut(const std::string& text) {
  const auto [place, isNew] = laidOutTexts.try_emplace(text);
  LaidOut& entry = place->second;
  if (isNew) {
    entry.text.setTextFormat(Qt::PlainText);
    entry.text.setText(shown(text));
    entry.text.prepare({}, laidOutFont);
    entry.width = QFontMetrics(laidOutFont).horizontalAdvance(shown(text));
  }
  return entry;
}

// A text that is wider than its cell is squeezed into it.
void drawSqueezed(QPainter& painter, const QRect& area, const std::string& text, int width) {
  painter.save();
  painter.translate(area.left(), 0);
  painter.scale(static_cast<double>(area.width()) / width, 1);
  painter.drawText(QRect(0, area.top(), width, area.height()), Qt::AlignCenter, shown(text));
  painter.restore();
}

QColor mixed(const QColor& one, const QColor& other, double share) {
  const auto part = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return QColor(part(one.red(), other.red()), part(one.green(), other.green()),
                part(one.blue(), other.blue()));
}

bool contains(int low, int high, int value) { return value >= low && value <= high; }

// Whether the block touches the row or the column of a cell.
bool touches(const GridBlock& block, int row, int column) {
  return contains(block.top, block.bottom, row) || contains(block.left, block.right, column);
}

}  // namespace

QColor fadedCell(const QColor& ground) { return mixed(ground, groundColour, disabledShare); }

QColor touchedCell(const QColor& ground) { return ground.darker(touchedShade); }

CellPainter::CellPainter(QPainter& painter, const Grid& record, const QWidget& view,
                         CellMarks marks)
    : painter_(painter),
      record_(record),
      view_(view),
      marks_(marks),
      block_(marks.selection ? record.block() : GridBlock{0, 0, -1, -1}),
      textHeight_(view.fontMetrics().height()) {
  painter.setFont(view.font());
  startLaidOutTexts(view.font());
}

bool CellPainter::inSelection(int row, int column) const {
  return contains(block_.top, block_.bottom, row) && contains(block_.left, block_.right, column);
}

QColor CellPainter::groundOf(int row, int column) const {
  return shown(record_.painted(row, column) ? record_.background(row, column)
                                            : record_.look().ground);
}

void CellPainter::drawText(const QRect& area, const std::string& text, Side side) {
  if (text.empty()) return;
  const LaidOut& entry = laidOut(text);
  if (entry.width > area.width() - 2) {
    return drawSqueezed(painter_, area.adjusted(1, 0, -1, 0), text, entry.width);
  }
  const bool tight = entry.width > area.width() - 2 * textMargin;
  int left = area.left() + (area.width() - entry.width) / 2;
  if (side == Side::left) left = area.left() + textMargin;
  if (side == Side::right && !tight) left = area.right() + 1 - textMargin - entry.width;
  painter_.drawStaticText(left, area.top() + (area.height() - textHeight_) / 2, entry.text);
}

void CellPainter::paintLines(const QRect& area) {
  const QColor lines = shown(record_.look().lines);
  painter_.fillRect(area, view_.isEnabled() ? lines : mixed(lines, groundColour, lineShare));
}

void CellPainter::lineEdge(const QRect& area, Qt::Edge edge) {
  QRect line = area;
  edge == Qt::BottomEdge ? line.setTop(area.bottom() - edgeWidth + 1)
                         : line.setLeft(area.right() - edgeWidth + 1);
  painter_.fillRect(line, accentColour);
}

// The current cell keeps its own colours inside the border of the selection.
void CellPainter::paintCell(const QRect& area, int row, int column) {
  QColor ground = groundOf(row, column);
  QColor ink = shown(record_.look().text);
  const bool current = row == record_.row() && column == record_.column();
  const bool litRow = contains(marks_.lit.top, marks_.lit.bottom, row);
  const bool lit = view_.isEnabled() && touches(marks_.lit, row, column);
  if (!view_.isEnabled()) {
    ground = fadedCell(ground);
    ink = faintColour;
  } else if (lit) {
    ground = touchedCell(ground);
  } else if (!current && inSelection(row, column)) {
    ground = mixed(ground, selectionTint, selectionShare);
    ink = Qt::black;
  }
  const QRect inside = area.adjusted(0, 0, -1, -1);
  painter_.fillRect(inside, ground);
  if (lit) lineEdge(inside, litRow ? Qt::RightEdge : Qt::BottomEdge);
  painter_.setPen(ink);
  // What can't be stored is often long: its sign covers none of it.
  const bool unstorable = record_.mark(row, column) == Mark::unstorable;
  const QRect room = inside.adjusted(unstorable ? markSize : 0, 0, 0, 0);
  drawText(room, record_.text(row, column),
           column < record_.look().leftColumns ? Side::left : Side::right);
}

void CellPainter::paintMark(const QRect& area, int row, int column) {
  ::paintMark(painter_, area.topLeft(), record_.mark(row, column));
}

void CellPainter::paintHeaderCell(const QRect& area, int row, int column) {
  constexpr int lineShade = 125;
  const bool touched =
      view_.isEnabled() && (touches(block_, row, column) || touches(marks_.lit, row, column));
  const QColor ground = view_.palette().color(QPalette::Button);
  const QRect inside = area.adjusted(0, 0, -1, -1);
  painter_.fillRect(area, ground.darker(lineShade));
  painter_.fillRect(inside, touched ? touchedCell(ground) : ground);
  if (touched) lineEdge(inside, row < record_.fixedRows() ? Qt::BottomEdge : Qt::RightEdge);
  if (row >= record_.rows() || column >= record_.columns()) return;
  painter_.setPen(view_.palette().color(QPalette::ButtonText));
  drawText(inside, record_.text(row, column), Side::middle);
}

void CellPainter::paintSelectionBorder(const QRect& area, bool focused) {
  const BorderLook& look = focused ? focusedBorder : restingBorder;
  painter_.setBrush(Qt::NoBrush);
  for (const auto& [colour, width] :
       {std::pair(look.edge, look.wholeWidth), std::pair(look.line, look.lineWidth)}) {
    painter_.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter_.drawRect(area);
  }
}

// Dark and bright side by side, so that it stands out from every map colour.
void CellPainter::paintLitCell(const QRect& area) {
  painter_.setBrush(Qt::NoBrush);
  painter_.setPen(Qt::black);
  painter_.drawRect(area.adjusted(0, 0, -2, -2));
  painter_.setPen(QPen(litBorder, 2));
  painter_.drawRect(area.adjusted(2, 2, -3, -3));
}
