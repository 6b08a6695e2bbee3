#include "frontend/qt/windows/make_window.h"

#include <array>
#include <string_view>

#include "controls/window.h"

QWidget* makeForm1Window();
QWidget* makeForm2Window();
QWidget* makeForm3Window();
QWidget* makeForm4Window();
QWidget* makeForm5Window();
QWidget* makeForm6Window();
QWidget* makeForm7Window();
QWidget* makeForm8Window();
QWidget* makeForm9Window();
QWidget* makeForm10Window();
QWidget* makeForm11Window();
QWidget* makeForm13Window();
QWidget* makeD2GraphWindow();
QWidget* makeDrGraphWindow();
QWidget* makeOddEvenWindow();
QWidget* makeAboutWindow();
QWidget* makeSplashWindow();

namespace {

struct Layout {
  std::string_view window;
  QWidget* (*make)();
};

constexpr std::array layouts{
    Layout{"Form1", makeForm1Window},      Layout{"Form3", makeForm3Window},
    Layout{"Form2", makeForm2Window},      Layout{"Form9", makeForm9Window},
    Layout{"Form4", makeForm4Window},      Layout{"Form5", makeForm5Window},
    Layout{"Form6", makeForm6Window},      Layout{"Form7", makeForm7Window},
    Layout{"Form8", makeForm8Window},      Layout{"Form10", makeForm10Window},
    Layout{"Form11", makeForm11Window},    Layout{"Form13", makeForm13Window},
    Layout{"D2_GRAPH", makeD2GraphWindow}, Layout{"DR_GRAPH", makeDrGraphWindow},
    Layout{"oddeven", makeOddEvenWindow},  Layout{"frmAbout", makeAboutWindow},
    Layout{"frmSplash", makeSplashWindow},
};

}  // namespace

QWidget* makeWindow(Window& window) {
  for (const Layout& layout : layouts) {
    if (layout.window == window.name()) return layout.make();
  }
  return nullptr;
}
