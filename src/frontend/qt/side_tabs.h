// A tab bar that stands upright at a window's left side, with level captions: many tabs stay
// readable without scrolling.
#pragma once

#include <QTabBar>
#include <QWheelEvent>

class SideTabs : public QTabBar {
 public:
  explicit SideTabs(QWidget* parent = nullptr);

 protected:
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  // A turn of the wheel over the captions leaves the tab in force.
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

 private:
  void paintTab(QPainter& painter, int index) const;
};
