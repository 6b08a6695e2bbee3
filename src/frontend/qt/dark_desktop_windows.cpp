#include <QSettings>

#include "frontend/qt/dark_desktop.h"

void askForDark(std::function<void()> tell) {
  const QSettings personal(QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\"
                                          "CurrentVersion\\Themes\\Personalize"),
                           QSettings::NativeFormat);
  if (personal.value(QStringLiteral("AppsUseLightTheme"), 1).toInt() == 0) tell();
}
