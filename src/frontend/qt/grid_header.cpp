#include "frontend/qt/grid_header.h"

#include "frontend/qt/grid_painting.h"
#include "frontend/qt/grid_view.h"

GridHeader::GridHeader(Qt::Orientation orientation, const Grid& record, GridView* view)
    : QHeaderView(orientation, view), record_(record), view_(*view) {}

void GridHeader::paintSection(QPainter* painter, const QRect& area, int section) const {
  CellPainter cells(*painter, record_, *this, view_.marks());
  if (orientation() == Qt::Horizontal) {
    cells.paintHeaderCell(area, 0, section + record_.fixedColumns());
  } else {
    cells.paintHeaderCell(area, section + record_.fixedRows(), 0);
  }
}
