// A tab bar that stands upright at a window's left side, with level captions: many tabs stay
// readable without scrolling.
#pragma once

#include <QTabBar>
#include <QWheelEvent>
#include <functional>
#include <utility>

class SideTabs : public QTabBar {
 public:
  explicit SideTabs(QWidget* parent = nullptr);
  // Tells which tabs stand for something that isn't there; they can be chosen, but are faint.
  void setAbsent(std::function<bool(int index)> absent) { absent_ = std::move(absent); }
  // Tells what stands faintly below a tab's caption, "" for nothing. A long one makes the tabs
  // wider to some degree; what has no room then is cut.
  void setSecondLine(std::function<QString(int index)> line) { secondLine_ = std::move(line); }
  // Tells which tabs bear a dot.
  void setMarked(std::function<bool(int index)> marked) { marked_ = std::move(marked); }

 protected:
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  // A turn of the wheel over the captions leaves the tab in force.
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

 private:
  void paintTab(QPainter& painter, int index) const;
  void paintCaption(QPainter& painter, const QRect& area, int index) const;
  QFont secondFont() const;

  std::function<QString(int)> secondLine_ = [](int) { return QString(); };
  std::function<bool(int)> absent_ = [](int) { return false; };
  std::function<bool(int)> marked_ = [](int) { return false; };
};
