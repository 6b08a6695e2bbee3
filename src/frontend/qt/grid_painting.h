// How cells, headers and the selection of a grid record are painted.
#pragma once

#include <QColor>
#include <QRect>
#include <string>

#include "controls/grid.h"

class QPainter;
class QWidget;

// Paints cells of one grid in one paint event.
class CellPainter {
 public:
  // `view` tells font, palette and whether the grid takes input.
  CellPainter(QPainter& painter, const Grid& record, const QWidget& view);

  // The ground of an area of cells, of which the lines at the cells' right and lower edges stay.
  void paintLines(const QRect& area);
  void paintCell(const QRect& area, int row, int column);
  // A fixed cell. One whose row or column the selection touches is marked.
  void paintHeaderCell(const QRect& area, int row, int column);
  // The border around the selected block, which covers `area`.
  void paintSelectionBorder(const QRect& area, bool focused);

 private:
  enum class Side { middle, right };
  bool inSelection(int row, int column) const;
  QColor groundOf(int row, int column) const;
  void drawText(const QRect& area, const std::string& text, Side side);

  QPainter& painter_;
  const Grid& record_;
  const QWidget& view_;
  GridBlock block_;
  int textHeight_;
};
