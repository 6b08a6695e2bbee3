// The view of a line that belongs to a canvas's design, and grows with it.
#pragma once

#include <QWidget>

#include "controls/line.h"

class CanvasView;

class LineView : public QWidget {
 public:
  LineView(Line& record, CanvasView* canvas);
  ~LineView() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void showValues();

  Line& record_;
  const CanvasView& canvas_;
};
