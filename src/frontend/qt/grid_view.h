// The view of a grid record: a table view whose cells and headers are painted from the record, and
// whose selection is the record's one rectangle. Changes are gathered: one cell repaints its own
// rectangle; size and visibility are shown once, behind the event that changed them.
#pragma once

#include <QBasicTimer>
#include <QPoint>
#include <QTableView>
#include <functional>
#include <optional>

#include "controls/grid.h"

class CellPainter;
struct CellMarks;
class GridModel;

class GridView : public QTableView {
 public:
  explicit GridView(Grid& record, QWidget* parent = nullptr);
  ~GridView() override;

  // Scrolls with another grid, so that the cells stay over (beside) its columns (rows). Both scroll
  // as far as the longer one needs.
  void followColumnsOf(GridView* leader);
  void followRowsOf(GridView* leader);
  // What is marked in the view beside the colours of its cells.
  CellMarks marks() const;
  // Shows at once what waits for the end of the event.
  void applyChanges();

  // How large cells, headers and texts are, in percent.
  void setZoom(int percent);
  // All cells and headers.
  QSize contentSize() const;
  // The same at another zoom.
  QSize contentSizeAt(int percent) const;
  // Runs when the number of cells or their widths and heights have changed.
  std::function<void()> onShape;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  // Selects all data cells.
  void selectAll() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void updateGeometries() override;

 private:
  // A cell of the record, headers counted.
  struct Cell {
    int row;
    int column;
  };

  // One direction in which the view may scroll together with another.
  struct Direction {
    QScrollBar* bar;
    QHeaderView* header;
    GridView* leader = nullptr;
    GridView* follower = nullptr;
    int beyond = 0;  // pixels of this view's own cells that its viewport doesn't show
    GridView* partner() const { return leader ? leader : follower; }
    int partnersBeyond() const;
  };

  // Set-up, observing and sizes: grid_view.cpp
  void setUpHeader(QHeaderView* header);
  void tapCorner();
  void observe(const Change& change);
  void schedule();
  void showShape();
  void showSizes();
  void showValues();
  void showCurrentCell();
  void updateCell(int row, int column);
  void updateAll();
  void noteBars();
  void follow(GridView* leader, Direction GridView::*direction);
  void settle(Direction GridView::*direction, int maximum, int value);
  void shareRange(Direction GridView::*direction);
  // Where a cell of the model stands in the viewport.
  QRect placeOf(int row, int column) const;
  void paintSelection(CellPainter& cells) const;
  void paintLitCells(CellPainter& cells) const;
  void lightUp();
  void endLight();
  void endKey();

  // Keys and mouse: grid_view_input.cpp
  int lastRow() const { return record_.rows() - 1; }
  int lastColumn() const { return record_.columns() - 1; }
  std::optional<Cell> cellAt(QPoint point) const;
  Cell nearestCell(QPoint point) const;
  void select(Cell anchor, Cell corner);
  void extendTo(Cell corner);
  void showCell(Cell cell);
  void pressCell(Cell cell, bool extend);
  void pressSection(Qt::Orientation orientation, int section);
  void enterSection(Qt::Orientation orientation, int section);
  void selectSections(Qt::Orientation orientation, int from, int to);
  // Where a movement key leads from `cell`, maybe past the edge; nothing for other keys.
  std::optional<Cell> cellByKey(Cell cell, const QKeyEvent& event) const;
  bool moveByKey(const QKeyEvent& event);
  bool editByKey(const QKeyEvent& event);
  bool typeKey(const QKeyEvent& event);
  void dragTo(QPoint point);
  void openMenuAt(QPoint point);

  Grid& record_;
  GridModel* model_;
  bool visible_ = true;
  bool scheduled_ = false;
  bool shapeChanged_ = false;
  int zoom_ = 100;  // percent
  bool needsBarBelow_ = false;
  bool needsBarBeside_ = false;
  std::optional<QPoint> dragPoint_;
  QBasicTimer dragTimer_;
  QBasicTimer light_;
  QBasicTimer rest_;  // after a key came up
  bool lit_ = false;
  Direction across_{horizontalScrollBar(), nullptr};
  Direction down_{verticalScrollBar(), nullptr};
  bool settling_ = false;
};
