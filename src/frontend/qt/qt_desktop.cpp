#include "frontend/qt/qt_desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>
#include <QWidget>
#include <array>

#include "controls/window.h"
#include "frontend/qt/bind_menu.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/picture_painting.h"
#include "frontend/qt/sound.h"
#include "frontend/qt/text.h"
#include "frontend/qt/window_room.h"
#include "frontend/qt/windows/make_window.h"

namespace {

#ifdef Q_OS_WIN
constexpr std::array calculators{"calc"};
#else
constexpr std::array calculators{"gnome-calculator", "kcalc", "galculator", "mate-calc", "xcalc"};
#endif

QSettings openStore() { return QSettings(QStringLiteral("ZELKOVA"), QStringLiteral("ZELKOVA")); }

QString storeKey(const std::string& section, const std::string& key) {
  return shown(section) + QLatin1Char('/') + shown(key);
}

bool written(QSettings& store) {
  store.sync();
  return store.status() == QSettings::NoError;
}

// Brings the grids up to date, and what the layouts around them know of their sizes.
void applyGridChanges(QWidget* window) {
  for (GridView* grid : window->findChildren<GridView*>()) {
    grid->applyChanges();
    for (QWidget* each = grid; each != window; each = each->parentWidget()) each->updateGeometry();
  }
}

// In the middle of the other window, or of the screen as long as that window isn't shown.
// At the right of the other window where there is room, else in the screen's lower right corner.
void placeBeside(QWidget* widget, const QWidget* other) {
  if (!other) return;
  const QRect screen = other->screen()->availableGeometry();
  const QRect frame = other->frameGeometry();
  const QSize margins = frame.size() - other->size();
  const QSize size = widget->size() + margins;
  if (frame.right() + size.width() < screen.right()) {
    widget->move(frame.right() + 1, frame.top());
  } else {
    widget->move(screen.right() - size.width(), screen.bottom() - size.height());
  }
}

void takeOpeningSize(QWidget* widget) {
  applyGridChanges(widget);
  widget->ensurePolished();
  widget->resize(openingSize(widget));
}

void centre(QWidget* widget, const QWidget* other) {
  const QRect frame =
      other && other->isVisible() ? other->frameGeometry() : widget->screen()->availableGeometry();
  widget->move(frame.center() - QPoint(widget->width() / 2, widget->height() / 2));
}

}  // namespace

QtDesktop::~QtDesktop() {
  for (const auto& widget : windows_) delete widget.data();
}

void QtDesktop::setClipboardText(const std::string& text) {
  QGuiApplication::clipboard()->setText(shown(text));
}

void QtDesktop::setClipboardTable(const std::string& text, const std::string& html) {
  auto* const data = new QMimeData;
  data->setText(shown(text));
  data->setHtml(shown(html));
  QGuiApplication::clipboard()->setMimeData(data);
}

bool QtDesktop::clipboardHasHtml() {
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  return data && data->hasHtml();
}

std::optional<std::string> QtDesktop::clipboardText() {
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  if (!data || !data->hasText()) return std::nullopt;
  return stored(data->text());
}

void QtDesktop::keepUserData() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  if (folder.isEmpty()) return;
  dataFolder_ = stored(QDir::toNativeSeparators(folder + QStringLiteral("/ZELKOVA")));
}

std::string QtDesktop::pngOf(const Picture& picture) { return pngBytes(picture); }

std::string QtDesktop::storedValue(const std::string& section, const std::string& key) {
  return stored(openStore().value(storeKey(section, key)).toString());
}

bool QtDesktop::storeValue(const std::string& section, const std::string& key,
                           const std::string& value) {
  QSettings store = openStore();
  store.setValue(storeKey(section, key), shown(value));
  return written(store);
}

bool QtDesktop::deleteSection(const std::string& section) {
  QSettings store = openStore();
  if (!store.childGroups().contains(shown(section))) return false;
  store.remove(shown(section));
  return written(store);
}

std::vector<std::pair<std::string, std::string>> QtDesktop::storedSection(
    const std::string& section) {
  QSettings store = openStore();
  store.beginGroup(shown(section));
  std::vector<std::pair<std::string, std::string>> rows;
  for (const QString& key : store.childKeys()) {
    rows.emplace_back(stored(key), stored(store.value(key).toString()));
  }
  return rows;
}

void QtDesktop::playSound(const std::string& path, SoundMode mode) {
  startSound(path, mode == SoundMode::looping);
}

void QtDesktop::stopSound() { endSound(); }

bool QtDesktop::startProgram(const std::string& path) {
  const QFileInfo program(shown(path));
  return program.isFile() && program.isExecutable() &&
         QProcess::startDetached(program.absoluteFilePath(), {});
}

bool QtDesktop::startCalculator() {
  for (const char* calculator : calculators) {
    if (QProcess::startDetached(QString::fromLatin1(calculator), {})) return true;
  }
  return false;
}

bool QtDesktop::openAddress(const std::string& address) {
  return QDesktopServices::openUrl(QUrl::fromUserInput(shown(address)));
}

void QtDesktop::setBusyPointer(bool on) {
  if (on == busy_) return;
  busy_ = on;
  if (on) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

QWidget* QtDesktop::widgetOf(Window& window) {
  if (QWidget* const widget = windows_.value(&window)) return widget;
  QWidget* const made = makeWindow(window);
  windows_[&window] = made;
  return made;
}

void QtDesktop::prepareWindow(Window& window) { widgetOf(window); }

void QtDesktop::showWindow(Window& window) {
  QWidget* const widget = widgetOf(window);
  if (!widget) return;
  if (!widget->isVisible() && window.centredOn()) {
    QWidget* const other = windows_.value(window.centredOn());
    takeOpeningSize(widget);
    window.standsBeside() ? placeBeside(widget, other) : centre(widget, other);
  }
  widget->show();
  widget->raise();
  widget->activateWindow();
}

void QtDesktop::hideWindow(Window& window) {
  QWidget* const widget = windows_.value(&window);
  if (!widget) return;
  widget->hide();
  // The next opening starts at the record's first control.
  if (QWidget* const last = widget->focusWidget()) last->clearFocus();
  if (QWidget* const below = widget->parentWidget()) below->activateWindow();
}

void QtDesktop::bringToFront(Window& window) {
  QWidget* const widget = windows_.value(&window);
  if (!widget) return;
  widget->raise();
  widget->activateWindow();
}

void QtDesktop::popUpMenu(MenuItem& menu) {
  QWidget* const owner = windows_.value(&menu.window());
  menuOf(menu, owner)->popup(menuPlace());
}

void QtDesktop::quit() {
  over_ = true;
  QCoreApplication::quit();
}
