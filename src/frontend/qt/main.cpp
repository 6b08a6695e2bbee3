// Starts the editor in real windows.
#include <QApplication>
#include <QDir>

#include "frontend/qt/look.h"
#include "frontend/qt/qt_desktop.h"
#include "frontend/qt/text.h"
#include "frontend/startup.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  dressApplication();
  QtDesktop desktopInForce;
  useDesktop(&desktopInForce);
  startProgram(stored(QDir::toNativeSeparators(QCoreApplication::applicationDirPath())));
  const int status = desktopInForce.over() ? 0 : QApplication::exec();
  useDesktop(nullptr);
  return status;
}
