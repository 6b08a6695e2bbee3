// The view of a line that belongs to a canvas's design.
#pragma once

#include <QWidget>

#include "controls/line.h"

class LineView : public QWidget {
 public:
  LineView(Line& record, QWidget* canvas);
  ~LineView() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void showValues();

  Line& record_;
};
