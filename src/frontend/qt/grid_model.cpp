#include "frontend/qt/grid_model.h"

#include <QAccessible>
#include <algorithm>

#include "frontend/qt/text.h"

GridModel::GridModel(const Grid& record, QObject* parent)
    : QAbstractTableModel(parent), record_(record) {
  reset();
}

void GridModel::reset() {
  beginResetModel();
  rows_ = std::max(record_.rows() - record_.fixedRows(), 0);
  columns_ = std::max(record_.columns() - record_.fixedColumns(), 0);
  endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::textAt(int row, int column) const {
  if (row >= record_.rows() || column >= record_.columns()) return {};
  return shown(record_.text(row, column));
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = index.row() + record_.fixedRows();
  const int column = index.column() + record_.fixedColumns();
  if (role == Qt::DisplayRole) return textAt(row, column);
  const bool spoken =
      role == Qt::AccessibleTextRole && row < record_.rows() && column < record_.columns();
  return spoken ? shown(record_.spokenCell(row, column)) : QVariant();
}

void GridModel::tellSpoken(int row, int column) {
  if (!QAccessible::isActive()) return;
  emit dataChanged(index(row, column), index(row, column), {Qt::AccessibleTextRole});
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Horizontal) return textAt(0, section + record_.fixedColumns());
  return textAt(section + record_.fixedRows(), 0);
}
