#include "frontend/qt/grid_painting.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStaticText>
#include <QWidget>
#include <optional>
#include <unordered_map>
#include <utility>

#include "core/map_palette.h"
#include "frontend/qt/look.h"
#include "frontend/qt/mark_painting.h"
#include "frontend/qt/text.h"

namespace {

constexpr double textMargin = 3;  // pixels to the left and right of a cell's text
constexpr std::size_t keptTexts = 4096;
constexpr double selectionShare = 0.72;     // of the tint in a selected cell's colour
constexpr double disabledShare = 0.93;      // of the window's ground in a disabled cell's colour
constexpr double disabledLineShare = 0.75;  // the same of its lines
constexpr double lineShare = 0.25;          // of the ink in lines that have no colour of their own
constexpr double touchedShare = 0.09;       // of the ink in a touched cell's colour
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

bool contains(int low, int high, int value) { return value >= low && value <= high; }

// Whether the block touches the row or the column of a cell.
bool touches(const GridBlock& block, int row, int column) {
  return contains(block.top, block.bottom, row) || contains(block.left, block.right, column);
}

}  // namespace

QColor fadedCell(const QColor& cell, const QPalette& palette) {
  return mixed(cell, palette.color(QPalette::Window), disabledShare);
}

QColor touchedCell(const QColor& cell, const QPalette& palette) {
  return mixed(cell, palette.color(QPalette::Text), touchedShare);
}

CellPainter::CellPainter(QPainter& painter, const Grid& record, const QWidget& view,
                         CellMarks marks)
    : painter_(painter),
      record_(record),
      view_(view),
      marks_(marks),
      block_(marks.selection ? record.block() : GridBlock{0, 0, -1, -1}),
      scale_(gridScale(view.font())),
      textHeight_(view.fontMetrics().height()) {
  painter.setFont(view.font());
  startLaidOutTexts(view.font());
}

bool CellPainter::inSelection(int row, int column) const {
  return contains(block_.top, block_.bottom, row) && contains(block_.left, block_.right, column);
}

CellPainter::Colours CellPainter::coloursOf(int row, int column) const {
  const std::optional<Colour>& text = record_.look().text;
  const QPalette& desktops = view_.palette();
  if (!record_.painted(row, column)) {
    return {desktops.color(QPalette::Base), desktops.color(QPalette::Text)};
  }
  const Colour ground = shownColour(record_.background(row, column));
  return {shown(ground), shown(text ? shownInk(*text, ground) : inkOn(ground))};
}

void CellPainter::drawText(const QRect& area, const std::string& text, Side side) {
  if (text.empty()) return;
  const LaidOut& entry = laidOut(text);
  if (entry.width > area.width() - 2) {
    return drawSqueezed(painter_, area.adjusted(1, 0, -1, 0), text, entry.width);
  }
  const int margin = qRound(textMargin * scale_);
  const bool tight = entry.width > area.width() - 2 * margin;
  int left = area.left() + (area.width() - entry.width) / 2;
  if (side == Side::left) left = area.left() + margin;
  if (side == Side::right && !tight) left = area.right() + 1 - margin - entry.width;
  painter_.drawStaticText(left, area.top() + (area.height() - textHeight_) / 2, entry.text);
}

void CellPainter::paintLines(const QRect& area) {
  const QPalette& palette = view_.palette();
  const QColor lines = record_.look().lines ? shown(*record_.look().lines)
                                            : mixed(palette.color(QPalette::Base),
                                                    palette.color(QPalette::Text), lineShare);
  painter_.fillRect(area, view_.isEnabled()
                              ? lines
                              : mixed(lines, palette.color(QPalette::Window), disabledLineShare));
}

void CellPainter::lineEdge(const QRect& area, Qt::Edge edge) {
  QRect line = area;
  edge == Qt::BottomEdge ? line.setTop(area.bottom() - edgeWidth + 1)
                         : line.setLeft(area.right() - edgeWidth + 1);
  painter_.fillRect(line, view_.palette().color(QPalette::Highlight));
}

// The current cell keeps its own colours inside the border of the selection.
void CellPainter::paintCell(const QRect& area, int row, int column) {
  auto [ground, ink] = coloursOf(row, column);
  const bool current = row == record_.row() && column == record_.column();
  const bool litRow = contains(marks_.lit.top, marks_.lit.bottom, row);
  const bool lit = view_.isEnabled() && touches(marks_.lit, row, column);
  if (!view_.isEnabled()) {
    ground = fadedCell(ground, view_.palette());
    ink = view_.palette().color(QPalette::Disabled, QPalette::WindowText);
  } else if (lit) {
    ground = touchedCell(ground, view_.palette());
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
  const QRect room = inside.adjusted(unstorable ? qRound(markSize * scale_) : 0, 0, 0, 0);
  drawText(room, record_.text(row, column),
           column < record_.look().leftColumns ? Side::left : Side::right);
}

void CellPainter::paintMark(const QRect& area, int row, int column) {
  ::paintMark(painter_, area.topLeft(), record_.mark(row, column), scale_);
}

void CellPainter::paintHeaderCell(const QRect& area, int row, int column) {
  const bool touched =
      view_.isEnabled() && (touches(block_, row, column) || touches(marks_.lit, row, column));
  const QColor ground = view_.palette().color(QPalette::Button);
  const QRect inside = area.adjusted(0, 0, -1, -1);
  const QColor ink = view_.palette().color(QPalette::ButtonText);
  painter_.fillRect(area, mixed(ground, ink, lineShare));
  painter_.fillRect(inside, touched ? touchedCell(ground, view_.palette()) : ground);
  if (touched) lineEdge(inside, row < record_.fixedRows() ? Qt::BottomEdge : Qt::RightEdge);
  if (row >= record_.rows() || column >= record_.columns()) return;
  painter_.setPen(ink);
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
