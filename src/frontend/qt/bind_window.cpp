#include "frontend/qt/bind_window.h"

#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>
#include <QWidget>
#include <QWindow>
#include <string>
#include <utility>
#include <vector>

#include "frontend/qt/bind_controls.h"
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

// Files are read where they are, never moved: whatever the other program proposes, this is a copy.
bool takeDragged(Window& record, QDropEvent* event) {
  const bool taken = record.takesDrops() && event->mimeData()->hasUrls() &&
                     event->possibleActions().testFlag(Qt::CopyAction);
  if (taken) event->setDropAction(Qt::CopyAction);
  event->setAccepted(taken);
  return true;
}

// The other program waits until the drop is over, which must not be as long as a box stands open.
bool takeDrop(QObject* widget, Window& record, QDropEvent* event) {
  takeDragged(record, event);
  if (!event->isAccepted()) return true;
  std::vector<std::string> paths;
  for (const QUrl& url : event->mimeData()->urls()) {
    paths.push_back(stored(QDir::toNativeSeparators(url.toLocalFile())));
  }
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  QMetaObject::invokeMethod(
      widget, [&record, paths, control] { record.userDrop(paths, control); }, Qt::QueuedConnection);
  return true;
}

bool takeEvent(QObject* widget, Window& record, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
      return takeDragged(record, static_cast<QDropEvent*>(event));
    case QEvent::Drop:
      return takeDrop(widget, record, static_cast<QDropEvent*>(event));
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
  tapEvents(widget, [widget, &record](QEvent* event) { return takeEvent(widget, record, event); });
  widget->setAcceptDrops(record.onDrop != nullptr);
  if (record.onKey) tellEveryKey(widget, record);
  if (record.onUndo) addStepKeys(widget, record);
  leadLabelsToFields(widget);
  QObject::connect(new QShortcut(Qt::Key_F1, widget), &QShortcut::activated, widget,
                   [&record] { record.userHelp(); });
  QObject::connect(widget, &QObject::destroyed, [&record] { record.observer = nullptr; });
}
