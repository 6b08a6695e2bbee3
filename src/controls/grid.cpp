#include "controls/grid.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "controls/gesture.h"
#include "controls/handler.h"
#include "controls/mark_meaning.h"

std::function<std::string(Mark)> markMeaning;

Grid::Grid(Window& owner, int rows, int columns, int fixedRows, int fixedColumns, Look look)
    : Control(owner),
      rows_(rows),
      columns_(columns),
      fixedRows_(fixedRows),
      fixedColumns_(fixedColumns),
      look_(look),
      cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {
  selection_ = {fixedRows, fixedColumns, fixedRows, fixedColumns};
}

void Grid::resize(int rows, int columns) {
  if (rows < 0 || columns < 0) throw Failure(badSubscript);
  if (static_cast<std::int64_t>(rows) * columns > maximumCells) throw Failure(badSubscript);
  std::vector<Cell> cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
  for (int r = 0; r < std::min(rows, rows_); ++r) {
    for (int c = 0; c < std::min(columns, columns_); ++c) {
      cells[static_cast<std::size_t>(r * columns + c)] = std::move(cell(r, c));
    }
  }
  cells_ = std::move(cells);
  rows_ = rows;
  columns_ = columns;
  const int top = std::min(fixedRows_, std::max(rows - 1, 0));
  const int left = std::min(fixedColumns_, std::max(columns - 1, 0));
  selection_ = {top, left, top, left};
  changed(Change::shape);
}

void Grid::changed(Change::Kind kind) {
  // A shape or a selection is told at once, so that a view never reads outside the cells.
  if (kind == Change::cells && !redraw_) {
    dirty_ = true;
  } else {
    tell({kind});
  }
}

void Grid::swapCell(int row, int column, Cell& other) {
  Cell& target = cell(row, column);
  std::swap(target, other);
  std::swap(target.mark, other.mark);
  cellChanged(row, column);
}

void Grid::setMark(int row, int column, Mark mark) {
  Cell& target = cell(row, column);
  if (target.mark == mark) return;
  target.mark = mark;
  if (redraw_) return tell({Change::mark, row, column});
  marksDirty_ = true;
}

void Grid::clearMarks() {
  for (Cell& each : cells_) each.mark = Mark::none;
  redraw_ ? tell({Change::marks}) : void(marksDirty_ = true);
}

void Grid::lightUp(std::vector<std::int32_t> cells) {
  litCells_ = std::move(cells);
  tell({Change::light});
}

void Grid::clear() {
  for (Cell& each : cells_) each = {};
  changed(Change::cells);
}

GridBlock Grid::block() const {
  const auto [top, bottom] = std::minmax(selection_.row, selection_.rowSel);
  const auto [left, right] = std::minmax(selection_.column, selection_.columnSel);
  return {top, left, bottom, right};
}

void Grid::selectionChanged(const GridSelection& selection) {
  if (selection == selection_) return;
  selection_ = selection;
  changed(Change::selection);
}

void Grid::setRow(int row) {
  checkRow(row);
  selectionChanged({row, selection_.column, row, selection_.column});
}

void Grid::setColumn(int column) {
  checkColumn(column);
  selectionChanged({selection_.row, column, selection_.row, column});
}

void Grid::setSelection(const GridSelection& selection) {
  checkRow(selection.row);
  checkRow(selection.rowSel);
  checkColumn(selection.column);
  checkColumn(selection.columnSel);
  selectionChanged(selection);
}

std::string Grid::spokenCell(int row, int column) const {
  const auto named = [](const std::string& header, int number, const auto& meaning, int place) {
    const std::string name = header.empty() ? std::to_string(number + 1) : header;
    const std::string more = meaning ? meaning(place) : std::string();
    return more.empty() ? name : name + " (" + more + ')';
  };
  const std::string meaning = markMeaning ? markMeaning(mark(row, column)) : "";
  const std::string rowHeader = fixedColumns_ > 0 ? text(row, 0) : std::string();
  const std::string columnHeader = fixedRows_ > 0 ? text(0, column) : std::string();
  return named(rowHeader, row - fixedRows_, rowMeaning, row) + ", " +
         named(columnHeader, column - fixedColumns_, columnMeaning, column) + ": " +
         text(row, column) + (meaning.empty() ? "" : ", " + meaning);
}

std::string Grid::clip() const {
  const GridBlock area = block();
  std::string text;
  for (int r = area.top; r <= area.bottom; ++r) {
    if (r > area.top) text += '\r';
    for (int c = area.left; c <= area.right; ++c) {
      if (c > area.left) text += '\t';
      text += cell(r, c).text;
    }
  }
  return text;
}

void Grid::setRedraw(bool on) {
  redraw_ = on;
  if (!on) return;
  if (std::exchange(marksDirty_, false)) tell({Change::marks});
  if (std::exchange(dirty_, false)) tell({Change::cells});
}

int Grid::columnWidth(int column) const {
  const auto index = static_cast<std::size_t>(column);
  const int own = index < ownWidths_.size() ? ownWidths_[index] : 0;
  return own > 0 ? own : widthOfAll_;
}

int Grid::rowHeight(int row) const {
  const auto index = static_cast<std::size_t>(row);
  const int own = index < ownHeights_.size() ? ownHeights_[index] : 0;
  return own > 0 ? own : designRowHeight;
}

void Grid::setColumnWidths(int twips) {
  ownWidths_.clear();
  widthOfAll_ = twips;
  changed(Change::shape);
}

void Grid::setColumnWidth(int column, int twips) {
  checkColumn(column);
  const auto index = static_cast<std::size_t>(column);
  if (ownWidths_.size() <= index) ownWidths_.resize(index + 1);
  ownWidths_[index] = twips;
  changed(Change::shape);
}

void Grid::setRowHeight(int row, int twips) {
  checkRow(row);
  const auto index = static_cast<std::size_t>(row);
  if (ownHeights_.size() <= index) ownHeights_.resize(index + 1);
  ownHeights_[index] = twips;
  changed(Change::shape);
}

void Grid::userSelect(const GridSelection& selection) {
  if (!takesInput() || rows_ <= fixedRows_ || columns_ <= fixedColumns_) return;
  const auto inRows = [this](int row) { return std::clamp(row, fixedRows_, rows_ - 1); };
  const auto inColumns = [this](int column) {
    return std::clamp(column, fixedColumns_, columns_ - 1);
  };
  const GridSelection former = selection_;
  selectionChanged({inRows(selection.row), inColumns(selection.column), inRows(selection.rowSel),
                    inColumns(selection.columnSel)});
  if (selection_ != former) runHandler(onSelect);
}

void Grid::userDoubleClick() {
  if (takesInput()) runHandler(onDoubleClick);
}

void Grid::userKey(char32_t key) { pressKey(key, key, onKey); }

void Grid::userControlKey(char32_t key) {
  constexpr char32_t withControl = 1U << 31;  // no character's
  pressKey(key, key | withControl, onControlKey);
}

void Grid::pressKey(char32_t key, char32_t held, const std::function<void(char32_t)>& handler) {
  if (!takesInput()) return;
  heldKey_ = held;
  const Gesture gesture({this, held});
  runHandler(handler, key);
}

void Grid::userKeyUp() {
  if (!takesInput()) return;
  const Gesture gesture({this, heldKey_});
  runHandler(onKeyUp);
}

void Grid::userKeyRest() { endGestureThread(); }

void Grid::userMouseDown(MouseButton button) {
  if (takesInput()) runHandler(onMouseDown, button);
}

GridPause::GridPause(Grid& grid, Hide hide)
    : grid_(grid), redraw_(grid.redraw()), visible_(grid.visible()) {
  grid_.setRedraw(false);
  if (hide == Hide::yes) grid_.setVisible(false);
}

GridPause::~GridPause() {
  grid_.setVisible(visible_);
  grid_.setRedraw(redraw_);
}
