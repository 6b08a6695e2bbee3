// A tab bar that stands upright at a window's left side, with level captions: many tabs stay
// readable without scrolling.
#pragma once

#include <QTabBar>

class SideTabs : public QTabBar {
 public:
  explicit SideTabs(QWidget* parent = nullptr);

 protected:
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void paintTab(QPainter& painter, int index) const;
};
