#include "frontend/qt/grid_view.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "frontend/qt/bind_controls.h"
#include "frontend/qt/event_tap.h"
#include "frontend/qt/grid_header.h"
#include "frontend/qt/grid_model.h"
#include "frontend/qt/grid_painting.h"
#include "frontend/qt/look.h"
#include "frontend/qt/text.h"

GridView::GridView(Grid& record, QWidget* parent)
    : QTableView(parent), record_(record), model_(new GridModel(record, this)) {
  setFont(gridFont());
  setUpHeader(new GridHeader(Qt::Horizontal, record, this));
  setUpHeader(new GridHeader(Qt::Vertical, record, this));
  across_.header = horizontalHeader();
  down_.header = verticalHeader();
  setModel(model_);
  setSelectionMode(NoSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setAutoScroll(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  QSizePolicy policy = sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
  viewport()->setBackgroundRole(QPalette::Window);
  tapCorner();
  record.observer = [this](const Change& change) { observe(change); };
  shapeChanged_ = true;
  applyChanges();
}

GridView::~GridView() { record_.observer = nullptr; }

void GridView::setUpHeader(QHeaderView* header) {
  const Qt::Orientation orientation = header->orientation();
  const bool across = orientation == Qt::Horizontal;
  header->setMinimumSectionSize(1);
  header->setSectionResizeMode(QHeaderView::Fixed);
  header->setSectionsClickable(true);
  across ? setHorizontalHeader(header) : setVerticalHeader(header);
  header->setVisible((across ? record_.fixedRows() : record_.fixedColumns()) > 0);
  connect(header, &QHeaderView::sectionPressed, this,
          [this, orientation](int section) { pressSection(orientation, section); });
  connect(header, &QHeaderView::sectionEntered, this,
          [this, orientation](int section) { enterSection(orientation, section); });
}

// For as long as it takes to see where something came back.
void GridView::lightUp() {
  constexpr int lightMilliseconds = 900;
  lit_ = true;
  updateAll();
  light_.start(lightMilliseconds, this);
}

void GridView::endLight() {
  light_.stop();
  lit_ = false;
  updateAll();
}

void GridView::observe(const Change& change) {
  switch (change.kind) {
    case Change::focus:
      return setFocus(Qt::OtherFocusReason);
    case Change::cell:
    case Change::mark:
      return updateCell(change.row, change.column);
    case Change::cells:
    case Change::marks:
      return updateAll();
    case Change::repaint:
      applyChanges();
      return viewport()->repaint();
    case Change::shape:
      shapeChanged_ = true;
      break;
    case Change::selection:
      updateAll();
      break;
    case Change::light:
      return lightUp();
    case Change::values:
      break;
  }
  schedule();
}

void GridView::schedule() {
  if (scheduled_) return;
  scheduled_ = true;
  QMetaObject::invokeMethod(
      this, [this] { applyChanges(); }, Qt::QueuedConnection);
}

void GridView::applyChanges() {
  scheduled_ = false;
  if (shapeChanged_) showShape();
  shapeChanged_ = false;
  showCurrentCell();
  showValues();
  for (const Direction* direction : {&across_, &down_}) {
    if (direction->follower) direction->follower->updateAll();
  }
}

void GridView::showShape() {
  model_->reset();
  showSizes();
  if (onShape) onShape();
}

void GridView::showSizes() {
  if (record_.columns() > 0) {
    horizontalHeader()->setDefaultSectionSize(pixels(record_.columnWidth(lastColumn()), zoom_));
    verticalHeader()->setFixedWidth(pixels(record_.columnWidth(0), zoom_));
    for (int column = record_.fixedColumns(); column < lastColumn(); ++column) {
      const int width = pixels(record_.columnWidth(column), zoom_);
      const int section = column - record_.fixedColumns();
      if (columnWidth(section) != width) setColumnWidth(section, width);
    }
  }
  if (record_.rows() > 0) {
    verticalHeader()->setDefaultSectionSize(pixels(record_.rowHeight(lastRow()), zoom_));
    horizontalHeader()->setFixedHeight(pixels(record_.rowHeight(0), zoom_));
  }
  noteBars();
  updateGeometry();
}

// The cell with the cursor stays in sight.
void GridView::setZoom(int percent) {
  if (percent == zoom_) return;
  const int row = record_.row() - record_.fixedRows();
  const int column = record_.column() - record_.fixedColumns();
  const bool inSight = viewport()->rect().intersects(placeOf(row, column));
  zoom_ = percent;
  setFont(gridFont(zoom_));
  showSizes();
  updateAll();
  if (!inSight) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        showCell({record_.row(), record_.column()});
      },
      Qt::QueuedConnection);
}

void GridView::showValues() {
  setEnabled(record_.enabled());
  setToolTip(shownTip(record_.toolTip()));
  showNames(this, record_);
  if (visible_ == record_.visible()) return;
  visible_ = record_.visible();
  setVisible(visible_);
}

// The selection is painted from the record; this tells assistive programs which cells are meant.
void GridView::showCurrentCell() {
  const QModelIndex index =
      model_->index(record_.row() - record_.fixedRows(), record_.column() - record_.fixedColumns());
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  const GridBlock block = record_.block();
  const auto cell = [this](int row, int column) {
    return model_->index(row - record_.fixedRows(), column - record_.fixedColumns());
  };
  const QItemSelection cells(cell(block.top, block.left), cell(block.bottom, block.right));
  if (cells == selectionModel()->selection()) return;
  selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
}

void GridView::updateCell(int row, int column) {
  const int section = column - record_.fixedColumns();
  if (row < record_.fixedRows()) return horizontalHeader()->viewport()->update();
  if (section < 0) return verticalHeader()->viewport()->update();
  const int line = row - record_.fixedRows();
  viewport()->update(placeOf(line, section));
  model_->tellSpoken(line, section);
}

void GridView::updateAll() {
  viewport()->update();
  horizontalHeader()->viewport()->update();
  verticalHeader()->viewport()->update();
}

// A scale shows where its map's selection is, and its own while the user works on it.
CellMarks GridView::marks() const {
  CellMarks marks;
  const GridView* const map = across_.leader ? across_.leader : down_.leader;
  if (!map) return marks;
  marks.selection = hasFocus();
  if (!map->isEnabled()) return marks;
  const GridBlock block = map->record_.block();
  const int across = record_.fixedColumns() - map->record_.fixedColumns();
  const int down = record_.fixedRows() - map->record_.fixedRows();
  if (across_.leader) {
    marks.lit.left = block.left + across;
    marks.lit.right = block.right + across;
  } else {
    marks.lit.top = block.top + down;
    marks.lit.bottom = block.bottom + down;
  }
  return marks;
}

QSize GridView::contentSizeAt(int percent) const {
  const auto total = [percent](int count, auto sizeOf) {
    int sum = 0;
    for (int i = 0; i < count; ++i) sum += pixels(sizeOf(i), percent);
    return sum;
  };
  return QSize(total(record_.columns(), [this](int c) { return record_.columnWidth(c); }),
               total(record_.rows(), [this](int r) { return record_.rowHeight(r); })) +
         QSize(frameWidth(), frameWidth()) * 2;
}

QSize GridView::contentSize() const {
  const QHeaderView& across = *horizontalHeader();
  const QHeaderView& down = *verticalHeader();
  const int width = across.length() + (down.isHidden() ? 0 : down.maximumWidth());
  const int height = down.length() + (across.isHidden() ? 0 : across.maximumHeight());
  return QSize(width, height) + QSize(frameWidth(), frameWidth()) * 2;
}

QSize GridView::sizeHint() const {
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  return contentSize() + QSize(needsBarBeside_ ? bar : 0, needsBarBelow_ ? bar : 0);
}

QSize GridView::minimumSizeHint() const {
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const QSize least = QSize(5 * bar, 4 * bar).boundedTo(sizeHint());
  // Of a scale whose map scrolls, its one row or column stays whole.
  return QSize(down_.leader ? sizeHint().width() : least.width(),
               across_.leader ? sizeHint().height() : least.height());
}

// Room for a scroll bar is asked for where one is needed, so that it doesn't cover the last cells.
void GridView::noteBars() {
  const auto needed = [this](const Direction& direction, int has, int wants) {
    if (direction.leader || !testAttribute(Qt::WA_Resized)) return false;
    return has < wants || (direction.follower && direction.bar->maximum() > 0);
  };
  const QSize content = contentSize();
  const bool below = needed(across_, width(), content.width());
  const bool beside = needed(down_, height(), content.height());
  if (below == needsBarBelow_ && beside == needsBarBeside_) return;
  needsBarBelow_ = below;
  needsBarBeside_ = beside;
  updateGeometry();
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  noteBars();
}

int GridView::Direction::partnersBeyond() const {
  if (!partner()) return 0;
  const bool across = bar->orientation() == Qt::Horizontal;
  return across ? partner()->across_.beyond : partner()->down_.beyond;
}

void GridView::follow(GridView* leader, Direction GridView::*direction) {
  Direction& own = this->*direction;
  Direction& other = leader->*direction;
  own.leader = leader;
  other.follower = this;
  connect(other.bar, &QScrollBar::valueChanged, own.bar, &QScrollBar::setValue);
  connect(own.bar, &QScrollBar::valueChanged, other.bar, &QScrollBar::setValue);
}

void GridView::followColumnsOf(GridView* leader) {
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  follow(leader, &GridView::across_);
}

void GridView::followRowsOf(GridView* leader) {
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  follow(leader, &GridView::down_);
}

// The toolkit cuts a range to the view's own cells, which would carry the partner along: nobody
// hears of it before both have the range of the longer one.
void GridView::updateGeometries() {
  if (settling_) return QTableView::updateGeometries();
  settling_ = true;
  const QScrollBar& across = *across_.bar;
  const QScrollBar& down = *down_.bar;
  const QSize ranges(across.maximum(), down.maximum());
  const QPoint place(across.value(), down.value());
  across_.bar->blockSignals(across_.partner());
  down_.bar->blockSignals(down_.partner());
  QTableView::updateGeometries();
  settle(&GridView::across_, ranges.width(), place.x());
  settle(&GridView::down_, ranges.height(), place.y());
  settling_ = false;
  shareRange(&GridView::across_);
  shareRange(&GridView::down_);
}

// Puts back what the toolkit set. It doesn't know of a bar that the partner alone needs, and of the
// cells that such a bar covers.
void GridView::settle(Direction GridView::*direction, int maximum, int value) {
  Direction& own = this->*direction;
  if (!own.partner()) return;
  const bool across = direction == &GridView::across_;
  const int covered = own.header->length() - (across ? viewport()->width() : viewport()->height());
  const bool barForPartner = across ? down_.partnersBeyond() > 0 : across_.partnersBeyond() > 0;
  own.beyond = std::max(own.bar->maximum(), barForPartner ? covered : 0);
  own.bar->setRange(0, maximum);
  own.bar->setValue(value);
  own.bar->blockSignals(false);
}

void GridView::shareRange(Direction GridView::*direction) {
  Direction& own = this->*direction;
  GridView* const partner = own.partner();
  if (!partner) return;
  const Direction& other = partner->*direction;
  own.bar->setMaximum(std::max(own.beyond, own.partnersBeyond()));
  own.header->setOffset(own.bar->value());
  if (other.bar->maximum() != own.bar->maximum()) partner->updateGeometries();
  if (own.follower) noteBars();
  viewport()->update();
}

void GridView::paintEvent(QPaintEvent* event) {
  const QRect area = event->rect();
  // The record may already have another size than the model.
  const int rows = std::min(model_->rowCount(), record_.rows() - record_.fixedRows());
  const int columns = std::min(model_->columnCount(), record_.columns() - record_.fixedColumns());
  const int firstRow = rowAt(area.top());
  const int firstColumn = columnAt(area.left());
  if (firstRow < 0 || firstColumn < 0 || firstRow >= rows || firstColumn >= columns) return;
  const int lastRow =
      rowAt(area.bottom()) < 0 ? rows - 1 : std::min(rowAt(area.bottom()), rows - 1);
  const int lastColumn =
      columnAt(area.right()) < 0 ? columns - 1 : std::min(columnAt(area.right()), columns - 1);
  QPainter painter(viewport());
  CellPainter cells(painter, record_, *this, marks());
  cells.paintLines(placeOf(firstRow, firstColumn) | placeOf(lastRow, lastColumn));
  const auto paintEach = [&](void (CellPainter::*paint)(const QRect&, int, int)) {
    for (int row = firstRow; row <= lastRow; ++row) {
      for (int column = firstColumn; column <= lastColumn; ++column) {
        (cells.*paint)(placeOf(row, column), row + record_.fixedRows(),
                       column + record_.fixedColumns());
      }
    }
  };
  paintEach(&CellPainter::paintCell);
  paintSelection(cells);
  if (lit_) paintLitCells(cells);
  paintEach(&CellPainter::paintMark);
}

QRect GridView::placeOf(int row, int column) const {
  return QRect(columnViewportPosition(column), rowViewportPosition(row), columnWidth(column),
               rowHeight(row));
}

void GridView::paintSelection(CellPainter& cells) const {
  const GridBlock block = record_.block();
  const int top = block.top - record_.fixedRows();
  const int left = block.left - record_.fixedColumns();
  const int bottom = block.bottom - record_.fixedRows();
  const int right = block.right - record_.fixedColumns();
  if (!isEnabled() || !marks().selection || top < 0 || left < 0 || !model_->hasIndex(bottom, right))
    return;
  cells.paintSelectionBorder(placeOf(top, left) | placeOf(bottom, right), hasFocus());
}

void GridView::paintLitCells(CellPainter& cells) const {
  for (const std::int32_t place : record_.litCells()) {
    const int row = place / record_.columns() - record_.fixedRows();
    const int column = place % record_.columns() - record_.fixedColumns();
    if (model_->hasIndex(row, column)) cells.paintLitCell(placeOf(row, column));
  }
}

// The corner stands for the fixed cell in row 0 and column 0.
void GridView::tapCorner() {
  auto* const corner = findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
  if (!corner) return;
  tapEvents(corner, [this, corner](QEvent* event) {
    if (event->type() != QEvent::Paint) return false;
    QPainter painter(corner);
    CellPainter(painter, record_, *this, marks()).paintHeaderCell(corner->rect(), 0, 0);
    return true;
  });
}
