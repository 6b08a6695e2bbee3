#include "frontend/qt/bind_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QShortcut>
#include <QWidget>
#include <QWindow>
#include <utility>

#include "frontend/qt/event_tap.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/text.h"

namespace {

bool takeClose(Window& record, QEvent* event) {
  record.userClose();
  event->setAccepted(!record.loaded());
  return true;
}

// Keys that no control of the window wanted.
bool takeKey(Window& record, QEvent* event) {
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (!enter && key != Qt::Key_Escape) return false;
  event->accept();
  enter ? record.userEnter() : record.userEscape();
  return true;
}

bool takeEvent(Window& record, QEvent* event) {
  switch (event->type()) {
    case QEvent::Close:
      return takeClose(record, event);
    case QEvent::KeyPress:
      return takeKey(record, event);
    case QEvent::WindowActivate:
      record.userActivate();
      return false;
    default:
      return false;
  }
}

// The native window sees each key once, before the control that has the focus.
void tellEveryKey(QWidget* widget, Window& record) {
  widget->winId();
  tapEvents(widget->windowHandle(), [&record](QEvent* event) {
    if (event->type() == QEvent::KeyPress) record.userKey();
    return false;
  });
}

void addStepKeys(QWidget* widget, Window& record) {
  const auto add = [widget](const char* keys, auto run) {
    for (const QKeySequence& each : QKeySequence::listFromString(QLatin1String(keys))) {
      QObject::connect(new QShortcut(each, widget), &QShortcut::activated, widget, run);
    }
  };
  add("Ctrl+Z", [&record] { record.userUndo(); });
  add("Ctrl+Y; Ctrl+Shift+Z", [&record] { record.userRedo(); });
}

void repaintAll(QWidget* widget) {
  for (GridView* grid : widget->findChildren<GridView*>()) grid->applyChanges();
  widget->repaint();
}

}  // namespace

void bindWindow(QWidget* widget, Window& record, std::function<void()> onShape) {
  const auto show = [widget, &record] { widget->setWindowTitle(shown(record.caption())); };
  record.observer = [widget, show, onShape = std::move(onShape)](const Change& change) {
    if (change.kind == Change::repaint) return repaintAll(widget);
    if (change.kind == Change::shape && onShape) return onShape();
    show();
  };
  show();
  widget->setObjectName(shown(record.name()));
  tapEvents(widget, [&record](QEvent* event) { return takeEvent(record, event); });
  if (record.onKey) tellEveryKey(widget, record);
  if (record.onUndo) addStepKeys(widget, record);
  QObject::connect(widget, &QObject::destroyed, [&record] { record.observer = nullptr; });
}
