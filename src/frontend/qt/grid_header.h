// The header of a grid view: the record's fixed row or column, painted from its cells.
#pragma once

#include <QHeaderView>

#include "controls/grid.h"

class GridView;

class GridHeader : public QHeaderView {
 public:
  GridHeader(Qt::Orientation orientation, const Grid& record, GridView* view);

 protected:
  void paintSection(QPainter* painter, const QRect& area, int section) const override;

 private:
  const Grid& record_;
  const GridView& view_;
};
