#include "frontend/qt/grid_header.h"

#include "frontend/qt/grid_painting.h"

GridHeader::GridHeader(Qt::Orientation orientation, const Grid& record, QWidget* parent)
    : QHeaderView(orientation, parent), record_(record) {}

void GridHeader::paintSection(QPainter* painter, const QRect& area, int section) const {
  CellPainter cells(*painter, record_, *this);
  if (orientation() == Qt::Horizontal) {
    cells.paintHeaderCell(area, 0, section + record_.fixedColumns());
  } else {
    cells.paintHeaderCell(area, section + record_.fixedRows(), 0);
  }
}
