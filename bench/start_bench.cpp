// Start of the program beside a bare main window with five menus, each in a process of its own.
// Usage: start_bench bare | splash | form1. Prints milliseconds from the start of main to the first
// paint (of the splash window; for form1: until the main window stands ready behind it) and the
// peak memory in KiB. Run from a portable folder by bench/start_race.sh.
#include <sys/resource.h>

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <string_view>

#include "core/form1.h"
#include "frontend/qt/look.h"
#include "frontend/qt/pictures.h"
#include "frontend/qt/qt_desktop.h"
#include "frontend/qt/text.h"
#include "frontend/startup.h"

namespace {

using Clock = std::chrono::steady_clock;

void tell(Clock::time_point start) {
  const std::chrono::duration<double, std::milli> taken = Clock::now() - start;
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  std::printf("%.2f %ld\n", taken.count(), used.ru_maxrss);
  std::fflush(stdout);
  std::_Exit(0);
}

class FirstPaint : public QObject {
 public:
  explicit FirstPaint(std::function<void()> then) : then_(std::move(then)) {}
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && object->isWidgetType()) {
      QCoreApplication::instance()->removeEventFilter(this);
      QTimer::singleShot(0, then_);
    }
    return false;
  }

 private:
  std::function<void()> then_;
};

void showBareWindow() {
  auto* const window = new QMainWindow;
  for (const char* title : {"one", "two", "three", "four", "five"}) {
    window->menuBar()->addMenu(QString::fromLatin1(title))->addAction(QStringLiteral("entry"));
  }
  window->resize(1000, 700);
  window->show();
}

}  // namespace

int main(int argc, char** argv) {
  const Clock::time_point start = Clock::now();
  const std::string_view mode = argc > 1 ? argv[1] : "bare";
  QApplication application(argc, argv);
  QtDesktop desktopInForce;
  useDesktop(&desktopInForce);
  FirstPaint firstPaint([&] {
    if (mode == "form1") {
      QApplication::setWindowIcon(programIcon());
      desktopInForce.prepareWindow(form1());
    }
    tell(start);
  });
  application.installEventFilter(&firstPaint);
  if (mode == "bare") {
    showBareWindow();
  } else {
    dressApplication();
    startProgram(stored(QDir::toNativeSeparators(QCoreApplication::applicationDirPath())));
  }
  return QApplication::exec();
}
