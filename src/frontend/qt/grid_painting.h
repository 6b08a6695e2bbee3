// How cells, headers and the selection of a grid record are painted.
#pragma once

#include <QColor>
#include <QRect>
#include <string>

#include "controls/grid.h"

class QPainter;
class QPalette;
class QWidget;

// What is marked in a grid beside the colours of its cells.
struct CellMarks {
  bool selection = true;  // the record's own
  // Of a scale: the rows or columns that its map's selection touches, and no others.
  GridBlock lit{0, 0, -1, -1};
};

// The border around the selected cells: a line between two edges.
struct BorderLook {
  QColor line;
  QColor edge;
  int lineWidth;
  int wholeWidth;
};
constexpr BorderLook focusedBorder{QColor(255, 191, 0), QColor(16, 18, 24), 2, 4};
constexpr BorderLook restingBorder{QColor(255, 255, 255), QColor(16, 18, 24), 1, 3};
// The colour of a cell that takes no input.
QColor fadedCell(const QColor& cell, const QPalette& palette);
// The ground of a header or scale cell that the selection touches; the side towards the map is
// lined in the accent's colour.
QColor touchedCell(const QColor& cell, const QPalette& palette);

// Paints cells of one grid in one paint event.
class CellPainter {
 public:
  // `view` tells font, palette and whether the grid takes input.
  CellPainter(QPainter& painter, const Grid& record, const QWidget& view, CellMarks marks);

  // The ground of an area of cells, of which the lines at the cells' right and lower edges stay.
  void paintLines(const QRect& area);
  void paintCell(const QRect& area, int row, int column);
  // The mark that the cell bears, above whatever border runs around it.
  void paintMark(const QRect& area, int row, int column);
  // A fixed cell. One whose row or column the selection touches is marked.
  void paintHeaderCell(const QRect& area, int row, int column);
  // The border around the selected block, which covers `area`.
  void paintSelectionBorder(const QRect& area, bool focused);
  // A cell to which the eye is drawn for a moment.
  void paintLitCell(const QRect& area);

 private:
  enum class Side { middle, left, right };
  bool inSelection(int row, int column) const;
  void lineEdge(const QRect& area, Qt::Edge edge);
  struct Colours {
    QColor ground;
    QColor ink;
  };
  Colours coloursOf(int row, int column) const;
  void drawText(const QRect& area, const std::string& text, Side side);

  QPainter& painter_;
  const Grid& record_;
  const QWidget& view_;
  CellMarks marks_;
  GridBlock block_;
  double scale_;
  int textHeight_;
};
