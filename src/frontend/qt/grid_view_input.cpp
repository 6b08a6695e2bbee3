#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_menu.h"
#include "frontend/qt/grid_model.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/key_text.h"

namespace {

constexpr int dragMilliseconds = 40;  // between two steps of a drag outside the view

}  // namespace

std::optional<GridView::Cell> GridView::cellAt(QPoint point) const {
  const int row = rowAt(point.y());
  const int column = columnAt(point.x());
  if (row < 0 || column < 0) return std::nullopt;
  return Cell{row + record_.fixedRows(), column + record_.fixedColumns()};
}

// The cell under a point; for a point outside the view the next cell in that direction.
GridView::Cell GridView::nearestCell(QPoint point) const {
  const QRect area = viewport()->rect();
  const QPoint inside(std::clamp(point.x(), area.left(), area.right()),
                      std::clamp(point.y(), area.top(), area.bottom()));
  const auto beyond = [](int value, int low, int high) {
    return value < low ? -1 : value > high ? 1 : 0;
  };
  const int row = rowAt(inside.y());
  const int column = columnAt(inside.x());
  return {row < 0 ? lastRow()
                  : row + record_.fixedRows() + beyond(point.y(), area.top(), area.bottom()),
          column < 0
              ? lastColumn()
              : column + record_.fixedColumns() + beyond(point.x(), area.left(), area.right())};
}

void GridView::select(Cell anchor, Cell corner) {
  record_.userSelect({anchor.row, anchor.column, corner.row, corner.column});
}

void GridView::extendTo(Cell corner) {
  select({record_.row(), record_.column()}, corner);
  showCell({record_.rowSel(), record_.columnSel()});
}

void GridView::showCell(Cell cell) {
  scrollTo(model_->index(cell.row - record_.fixedRows(), cell.column - record_.fixedColumns()));
}

void GridView::selectAll() {
  select({record_.fixedRows(), record_.fixedColumns()}, {lastRow(), lastColumn()});
}

void GridView::pressCell(Cell cell, bool extend) {
  if (extend) return extendTo(cell);
  select(cell, cell);
  showCell(cell);
}

void GridView::mousePressEvent(QMouseEvent* event) {
  applyChanges();
  const auto cell = cellAt(event->position().toPoint());
  if (event->button() == Qt::RightButton) return openMenuAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && cell) {
    pressCell(*cell, event->modifiers() & Qt::ShiftModifier);
    dragPoint_ = event->position().toPoint();
  }
  record_.userMouseDown(event->button() == Qt::LeftButton ? MouseButton::left
                                                          : MouseButton::middle);
}

// A press outside the selection selects the cell first; inside it, and where no menu opens, the
// selection stays.
void GridView::openMenuAt(QPoint point) {
  if (!record_.onMouseDown) return;
  const GridBlock block = record_.block();
  const auto cell = cellAt(point);
  if (cell && (cell->row < block.top || cell->row > block.bottom || cell->column < block.left ||
               cell->column > block.right)) {
    select(*cell, *cell);
  }
  record_.userMouseDown(MouseButton::right);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  if (!dragPoint_ || !(event->buttons() & Qt::LeftButton)) return;
  dragTo(event->position().toPoint());
  if (viewport()->rect().contains(*dragPoint_)) {
    dragTimer_.stop();
  } else if (!dragTimer_.isActive()) {
    dragTimer_.start(dragMilliseconds, this);
  }
}

void GridView::dragTo(QPoint point) {
  dragPoint_ = point;
  extendTo(nearestCell(point));
}

void GridView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == light_.timerId()) return endLight();
  if (event->timerId() == rest_.timerId()) return endKey();
  if (event->timerId() != dragTimer_.timerId()) return QTableView::timerEvent(event);
  if (dragPoint_) dragTo(*dragPoint_);
}

void GridView::mouseReleaseEvent(QMouseEvent*) {
  dragPoint_.reset();
  dragTimer_.stop();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  const auto cell = cellAt(event->position().toPoint());
  if (!cell || event->button() != Qt::LeftButton) return mousePressEvent(event);
  select(*cell, *cell);
  dragPoint_.reset();
  record_.userDoubleClick();
}

// The mouse opened its menu at the press; the key opens it at the current cell.
void GridView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Keyboard) return;
  showCell({record_.row(), record_.column()});
  const QRect cell =
      placeOf(record_.row() - record_.fixedRows(), record_.column() - record_.fixedColumns());
  const MenuPlace place(viewport()->mapToGlobal(cell.bottomRight()));
  record_.userMouseDown(MouseButton::right);
}

void GridView::pressSection(Qt::Orientation orientation, int section) {
  setFocus(Qt::MouseFocusReason);
  const bool extend = QGuiApplication::keyboardModifiers() & Qt::ShiftModifier;
  const int anchor = orientation == Qt::Horizontal ? record_.column() - record_.fixedColumns()
                                                   : record_.row() - record_.fixedRows();
  selectSections(orientation, extend ? anchor : section, section);
}

void GridView::enterSection(Qt::Orientation orientation, int section) {
  const int anchor = orientation == Qt::Horizontal ? record_.column() - record_.fixedColumns()
                                                   : record_.row() - record_.fixedRows();
  selectSections(orientation, anchor, section);
}

void GridView::selectSections(Qt::Orientation orientation, int from, int to) {
  if (orientation == Qt::Horizontal) {
    select({record_.fixedRows(), from + record_.fixedColumns()},
           {lastRow(), to + record_.fixedColumns()});
  } else {
    select({from + record_.fixedRows(), record_.fixedColumns()},
           {to + record_.fixedRows(), lastColumn()});
  }
}

std::optional<GridView::Cell> GridView::cellByKey(Cell cell, const QKeyEvent& event) const {
  const bool far = event.modifiers() & Qt::ControlModifier;
  const Cell first{record_.fixedRows(), record_.fixedColumns()};
  const int page = std::max(viewport()->height() / std::max(rowHeight(0), 1) - 1, 1);
  switch (event.key()) {
    case Qt::Key_Left:
      return Cell{cell.row, far ? first.column : cell.column - 1};
    case Qt::Key_Right:
      return Cell{cell.row, far ? lastColumn() : cell.column + 1};
    case Qt::Key_Up:
      return Cell{far ? first.row : cell.row - 1, cell.column};
    case Qt::Key_Down:
      return Cell{far ? lastRow() : cell.row + 1, cell.column};
    case Qt::Key_PageUp:
      return Cell{cell.row - page, cell.column};
    case Qt::Key_PageDown:
      return Cell{cell.row + page, cell.column};
    case Qt::Key_Home:
      return far ? first : Cell{cell.row, first.column};
    case Qt::Key_End:
      return Cell{far ? lastRow() : cell.row, lastColumn()};
    default:
      return std::nullopt;
  }
}

bool GridView::moveByKey(const QKeyEvent& event) {
  const bool extend = event.modifiers() & Qt::ShiftModifier;
  const Cell from =
      extend ? Cell{record_.rowSel(), record_.columnSel()} : Cell{record_.row(), record_.column()};
  const std::optional<Cell> cell = cellByKey(from, event);
  if (!cell) return false;
  if (extend) {
    extendTo(*cell);
  } else {
    select(*cell, *cell);
    showCell({record_.row(), record_.column()});
  }
  return true;
}

bool GridView::editByKey(const QKeyEvent& event) {
  const int key = event.key();
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  // In a dialog Enter belongs to the default button.
  if (enter && record_.window().defaultButton) return false;
  if ((!enter && key != Qt::Key_F2) || !record_.onDoubleClick) return false;
  record_.userDoubleClick();
  return true;
}

bool GridView::typeKey(const QKeyEvent& event) {
  const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if ((event.modifiers() & commands) == Qt::ControlModifier) {
    const char32_t key = characterWithControl(event);
    if (key == 0) return false;
    record_.userControlKey(key);
    return true;
  }
  const auto characters = event.text().toUcs4();
  if (characters.isEmpty() || (event.modifiers() & commands)) return false;
  if (!QChar::isPrint(characters.front())) return false;
  record_.userKey(characters.front());
  return true;
}

void GridView::keyPressEvent(QKeyEvent* event) {
  rest_.stop();
  applyChanges();
  if (event->matches(QKeySequence::SelectAll)) return selectAll();
  if (!moveByKey(*event) && !editByKey(*event) && !typeKey(*event)) event->ignore();
}

void GridView::endKey() {
  rest_.stop();
  record_.userKeyRest();
}

void GridView::keyReleaseEvent(QKeyEvent* event) {
  constexpr int restMilliseconds = 60;  // longer than between the two halves of a repeat
  if (event->isAutoRepeat()) return;
  record_.userKeyUp();
  rest_.start(restMilliseconds, this);
}

void GridView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  updateAll();
  forwardFocusIn(record_);
}

void GridView::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  updateAll();
  forwardFocusOut(record_, event->reason());
}
