// The view of a canvas record: paints its display list at the screen's density and forwards keys
// and presses. Labels may be placed on it as children.
#pragma once

#include <QScrollArea>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <optional>

#include "controls/canvas.h"
#include "controls/controls.h"

class QLabel;

class CanvasView : public QWidget {
 public:
  explicit CanvasView(Canvas& record, QWidget* parent = nullptr);
  ~CanvasView() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
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
QLabel* labelOn(CanvasView* canvas, Label& record, int x, int y);
