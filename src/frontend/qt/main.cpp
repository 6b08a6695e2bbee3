// Starts the editor in real windows.
#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

#include "controls/handler.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/error_log.h"
#include "core/form1.h"
#include "frontend/command_line.h"
#include "frontend/qt/look.h"
#include "frontend/qt/pictures.h"
#include "frontend/qt/qt_desktop.h"
#include "frontend/qt/text.h"
#include "frontend/qt/window_place.h"
#include "frontend/startup.h"
#include "platform/failure.h"
#include "platform/program_call.h"

namespace {

// The toolkit's own texts, such as those of file dialogs, follow the windows' language where their
// translation is installed.
void translateToolkit() {
  if (editorState.english == 1) return;
  auto* const translator = new QTranslator(QCoreApplication::instance());
  if (translator->load(QStringLiteral("qtbase_ja"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  }
}

// A failure that no command caught ends its gesture alone; what the user has edited stays.
void tellEscapedFailure(int number) {
  desktop().setBusyPointer(false);
  logError("ZELKOVA", number, failureText(number));
  showFailure(number);
}

}  // namespace

int main(int argc, char** argv) {
  const CommandLine asked = readCommandLine(programArguments(argc, argv));
  if (!asked.text.empty()) {
    tellCaller(asked.status == 0 ? Stream::output : Stream::error, asked.text);
    return asked.status;
  }
  // Those of the desktop open where it has any, unless the toolkit's own are asked for.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs,
                                 qEnvironmentVariableIsSet("ZELKOVA_OWN_DIALOGS"));
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  dressApplication();
  followDarkDesktop();
  QtDesktop desktopInForce;
  desktopInForce.keepUserData();
  useDesktop(&desktopInForce);
  onEscapedFailure = tellEscapedFailure;
  startProgram(stored(QDir::toNativeSeparators(QCoreApplication::applicationDirPath())),
               asked.files);
  translateToolkit();
  // The icon is read and the main window is built while the splash window stands.
  constexpr int splashIsPainted = 60;  // milliseconds
  QTimer::singleShot(splashIsPainted, [&desktopInForce] {
    QApplication::setWindowIcon(programIcon());
    desktopInForce.prepareWindow(form1());
    keepPlace(desktopInForce.widgetOf(form1()));
  });
  const int status = desktopInForce.over() ? 0 : QApplication::exec();
  useDesktop(nullptr);
  return status;
}
