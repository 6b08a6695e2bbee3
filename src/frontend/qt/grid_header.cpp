#include "frontend/qt/grid_header.h"

#include "frontend/qt/grid_painting.h"

GridHeader::GridHeader(Qt::Orientation orientation, const Grid& record, QWidget* parent)
    : QHeaderView(orientation, parent), record_(record) {}

void GridHeader::paintSection(QPainter* painter, const QRect& area, int section) const {
  if (orientation() == Qt::Horizontal) {
    paintHeaderCell(*painter, area, record_, 0, section + record_.fixedColumns(), *this);
  } else {
    paintHeaderCell(*painter, area, record_, section + record_.fixedRows(), 0, *this);
  }
}
