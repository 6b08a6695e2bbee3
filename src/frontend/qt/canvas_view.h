// The view of a canvas record: paints its display list at the screen's density and forwards keys
// and presses. Labels may be placed on it as children.
#pragma once

#include <QScrollArea>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "controls/canvas.h"
#include "controls/canvas_picture.h"

class QLabel;

class CanvasView : public QWidget {
 public:
  explicit CanvasView(Canvas& record, QWidget* parent = nullptr);
  ~CanvasView() override;
  // The picture grows with the widget, drawn anew in each size; it is never smaller than designed.
  void growWithRoom();
  // Another size than the designed one, in percent of it.
  void setZoom(int percent);
  QSize sizeAt(int percent) const;
  // Runs `follow` now and whenever the picture has another place.
  void onPlace(std::function<void()> follow);
  // Where a point of the picture stands in the widget, and by what it is enlarged.
  QPointF placeOf(QPointF point) const { return origin_ + point * scale_; }
  double scale() const { return scale_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void showValues();
  bool isHeld(const QKeyEvent& event) const;
  void releaseHeldKey();

  struct HeldKey {
    int code;
    std::uint32_t scanCode;
  };
  Canvas& record_;
  double scale_ = 1;
  QPointF origin_;
  std::vector<std::function<void()>> followers_;
  std::optional<HeldKey> heldKey_;
  QTimer release_;
  unsigned long long releasedAt_ = 0;  // time stamp of the event
};

// A frame around a canvas. It shows whether the canvas has the focus, and scrolls the canvas where
// the window has less room than that.
class CanvasFrame : public QScrollArea {
 public:
  explicit CanvasFrame(CanvasView* canvas);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
};

// Places a label on the canvas; presses go through it to the canvas.
QLabel* labelOn(CanvasView* canvas, const PlacedLabel& placed);

// A drawing in the painter's own pixels.
void paintItems(QPainter& painter, const std::vector<CanvasItem>& items);
