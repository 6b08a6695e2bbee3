#include "frontend/qt/window_place.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QWidget>
#include <algorithm>
#include <optional>
#include <string>

#include "controls/desktop.h"
#include "frontend/qt/event_tap.h"
#include "frontend/qt/text.h"

namespace {

const std::string section = "Main Window";
const std::string key = "Place";
const QString maximised = QStringLiteral("maximised");
// What a frame adds, as far as it isn't known yet.
constexpr QMargins frame(8, 40, 8, 8);

QList<QRect> roomOnScreens() {
  QList<QRect> rooms;
  for (const QScreen* screen : QGuiApplication::screens()) {
    rooms << screen->availableGeometry().marginsRemoved(frame);
  }
  return rooms;
}

std::int64_t commonArea(const QRect& one, const QRect& other) {
  const QRect common = one & other;
  return common.isValid() ? std::int64_t{common.width()} * common.height() : 0;
}

// "left top width height", then "maximised" if it was; nothing for any other text.
std::optional<QRect> rectOf(const QStringList& words) {
  constexpr int mostPixels = 100'000;
  constexpr qsizetype numbers = 4;
  if (words.size() < numbers) return {};
  int values[numbers];
  for (qsizetype i = 0; i < numbers; ++i) {
    bool read = false;
    values[i] = words[i].toInt(&read);
    if (!read || std::abs(values[i]) > mostPixels) return {};
  }
  const QRect rect(values[0], values[1], values[2], values[3]);
  return rect.isValid() ? std::optional(rect) : std::nullopt;
}

void restore(QWidget* window) {
  const QStringList words =
      shown(desktop().storedValue(section, key)).split(QLatin1Char(' '), Qt::SkipEmptyParts);
  const std::optional<QRect> last = rectOf(words);
  if (!last) return;
  const QRect place =
      onScreens({last->topLeft(), last->size().expandedTo(window->minimumSize())}, roomOnScreens());
  window->setGeometry(place);
  if (words.contains(maximised)) window->setWindowState(Qt::WindowMaximized);
}

void keep(const QWidget* window) {
  const QRect rect = window->isMaximized() ? window->normalGeometry() : window->geometry();
  QStringList words;
  for (const int number : {rect.x(), rect.y(), rect.width(), rect.height()}) {
    words << QString::number(number);
  }
  if (window->isMaximized()) words << maximised;
  desktop().storeValue(section, key, stored(words.join(QLatin1Char(' '))));
}

}  // namespace

QRect onScreens(QRect wanted, const QList<QRect>& screens) {
  if (screens.isEmpty()) return wanted;
  const QRect room = *std::ranges::max_element(
      screens, {}, [&](const QRect& screen) { return commonArea(wanted, screen); });
  wanted.setSize(wanted.size().boundedTo(room.size()));
  wanted.moveRight(std::min(wanted.right(), room.right()));
  wanted.moveBottom(std::min(wanted.bottom(), room.bottom()));
  wanted.moveLeft(std::max(wanted.left(), room.left()));
  wanted.moveTop(std::max(wanted.top(), room.top()));
  return wanted;
}

void keepPlace(QWidget* window) {
  restore(window);
  tapEvents(window, [window](QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous()) keep(window);
    return false;
  });
}
