// Tells the tour what stands where in the running program. A question is one line of JSON on the
// standard input, its answer one line on the standard output; questions are answered between
// events, so an answer also says that all that came before has been dealt with. The door only
// looks: keys and mouse are the display's own.
//
// {"ask": "look"}: the active window's title and name, how many keys and presses of a mouse button
//   have come in so far, and what is in sight: of the active window and of every open menu.
// {"ask": "cell", "grid": ID, "row": R, "column": C}: where a cell of a grid stands; data cells
//   count from 0.
// Places are [left, top, width, height] in pixels of the screen.
#include <unistd.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QGenericPlugin>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTableView>
#include <QWindow>
#include <array>
#include <string>
#include <thread>

namespace {

// Logical places count from the screen's corner, as pixels do.
QJsonArray onScreen(const QWidget* widget, const QRect& area) {
  const qreal ratio = widget->devicePixelRatioF();
  const QPoint corner = widget->mapToGlobal(area.topLeft());
  QJsonArray place;
  for (const int side : {corner.x(), corner.y(), area.width(), area.height()}) {
    place.append(qRound(side * ratio));
  }
  return place;
}

// The name by which assistive programs know a widget.
QString spokenName(QWidget* widget) {
  QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(widget);
  return spoken ? spoken->text(QAccessible::Name) : QString();
}

QJsonObject entry(const char* kind, const QString& name, const QObject* object,
                  const QJsonArray& place) {
  return {{"kind", kind},
          {"name", name},
          {"object", object->objectName()},
          {"id", QString::number(reinterpret_cast<quintptr>(object), 16)},
          {"place", place}};
}

void addActions(QJsonArray& found, const QWidget* owner, const auto* menu) {
  for (const QAction* action : owner->actions()) {
    if (!action->isVisible() || action->isSeparator()) continue;
    QString text = action->text();
    found.append(entry("row", text.remove(QLatin1Char('&')), action,
                       onScreen(owner, menu->actionGeometry(const_cast<QAction*>(action)))));
  }
}

void addTabs(QJsonArray& found, const QTabBar* tabs) {
  for (int i = 0; i < tabs->count(); ++i) {
    QString text = tabs->tabText(i);
    found.append(
        entry("tab", text.remove(QLatin1Char('&')), tabs, onScreen(tabs, tabs->tabRect(i))));
  }
}

// What of a widget lies in sight; nothing where it is scrolled away.
QRect inSight(const QWidget* widget) { return widget->visibleRegion().boundingRect(); }

// A window that the display has not yet shown takes no mouse.
bool isOnDisplay(const QWidget* widget) {
  const QWindow* const native = widget->window()->windowHandle();
  return widget->isVisible() && native && native->isExposed();
}

void addWidget(QJsonArray& found, QWidget* widget) {
  if (!isOnDisplay(widget)) return;
  if (const auto* const bar = qobject_cast<QMenuBar*>(widget)) return addActions(found, bar, bar);
  if (const auto* const menu = qobject_cast<QMenu*>(widget)) return addActions(found, menu, menu);
  if (const auto* const tabs = qobject_cast<QTabBar*>(widget)) return addTabs(found, tabs);
  if (inSight(widget).isEmpty()) return;
  const auto* const table = qobject_cast<QTableView*>(widget);
  QJsonObject row = entry(table ? "grid" : widget->metaObject()->className(), spokenName(widget),
                          widget, onScreen(widget, inSight(widget)));
  row["focus"] = widget->hasFocus();
  if (table) {
    row["rows"] = table->model()->rowCount();
    row["columns"] = table->model()->columnCount();
  }
  if (const auto* const button = qobject_cast<QAbstractButton*>(widget)) {
    row["text"] = button->text().remove(QLatin1Char('&'));
  }
  found.append(row);
}

void addAll(QJsonArray& found, QWidget* window) {
  addWidget(found, window);
  for (QWidget* widget : window->findChildren<QWidget*>()) {
    if (widget->window() == window) addWidget(found, widget);
  }
}

QJsonObject whereIs(const QJsonObject& question) {
  for (const QWidget* widget : QApplication::allWidgets()) {
    const auto* const grid = qobject_cast<const QTableView*>(widget);
    if (!grid || QString::number(reinterpret_cast<quintptr>(widget), 16) != question["grid"])
      continue;
    const QRect cell =
        grid->visualRect(grid->model()->index(question["row"].toInt(), question["column"].toInt()));
    if (!cell.isEmpty() && inSight(grid->viewport()).contains(cell.center())) {
      return {{"place", onScreen(grid->viewport(), cell)}};
    }
  }
  return {};
}

bool isModifier(const QEvent* event) {
  const int key = static_cast<const QKeyEvent*>(event)->key();
  return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
         key == Qt::Key_Meta || key == Qt::Key_AltGr;
}

class Door : public QObject {
 public:
  Door() {
    qApp->installEventFilter(this);
    std::thread([this] { listen(); }).detach();
  }

  // Every key that comes in, shortcuts too, is first offered to its native window.
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!watched->isWindowType()) return false;
    if (event->type() == QEvent::ShortcutOverride && !isModifier(event)) ++keys_;
    if (event->type() == QEvent::MouseButtonPress) ++presses_;
    return false;
  }

 private:
  // Reads on a thread of its own until the tour closes its end.
  void listen() {
    std::string line;
    std::array<char, 4096> part;
    for (;;) {
      const auto size = read(0, part.data(), static_cast<unsigned>(part.size()));
      if (size <= 0) return;
      for (const char* letter = part.data(); letter != part.data() + size; ++letter) {
        if (*letter != '\n') {
          line += *letter;
          continue;
        }
        const QByteArray question = QByteArray::fromStdString(line);
        QMetaObject::invokeMethod(qApp, [this, question] { answer(question); });
        line.clear();
      }
    }
  }

  void answer(const QByteArray& line) const {
    const QJsonObject question = QJsonDocument::fromJson(line).object();
    const QJsonObject found = question["ask"] == QLatin1String("cell") ? whereIs(question) : look();
    const QByteArray text = QJsonDocument(found).toJson(QJsonDocument::Compact) + '\n';
    for (qsizetype sent = 0; sent < text.size();) {
      const auto size = write(1, text.data() + sent, static_cast<unsigned>(text.size() - sent));
      if (size <= 0) return;
      sent += size;
    }
  }

  QJsonObject look() const {
    QJsonArray found;
    QWidget* const active = QApplication::activeWindow();
    if (active) addAll(found, active);
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top != active && qobject_cast<QMenu*>(top)) addWidget(found, top);
    }
    return {{"title", active ? active->windowTitle() : QString()},
            {"window", active ? active->objectName() : QString()},
            {"native", active ? static_cast<qint64>(active->winId()) : 0},
            {"place", active ? onScreen(active, active->rect()) : QJsonArray()},
            {"keys", keys_},
            {"presses", presses_},
            {"found", found}};
  }

  int keys_ = 0;
  int presses_ = 0;
};

}  // namespace

class DoorPlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "door.json")

 public:
  QObject* create(const QString&, const QString&) override { return new Door; }
};

#include "door.moc"
