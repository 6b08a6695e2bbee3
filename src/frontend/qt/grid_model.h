// A thin table model over a grid record: it reads the record's cells and copies none. The fixed
// first row and column are the headers. It knows the record's size only since the last reset, and
// never reads outside the record in between.
#pragma once

#include <QAbstractTableModel>

#include "controls/grid.h"

class GridModel : public QAbstractTableModel {
 public:
  GridModel(const Grid& record, QObject* parent);
  void reset();
  // A cell has another text: assistive programs are told; the view reads the record itself.
  void tellSpoken(int row, int column);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QVariant textAt(int row, int column) const;

  const Grid& record_;
  int rows_ = 0;
  int columns_ = 0;
};
