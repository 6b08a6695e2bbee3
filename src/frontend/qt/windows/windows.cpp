#include "frontend/qt/windows/windows.h"

#include <array>
#include <string_view>

#include "platform/window.h"

QWidget* makeForm1Window();

namespace {

struct Layout {
  std::string_view window;
  QWidget* (*make)();
};

constexpr std::array layouts{
    Layout{"Form1", makeForm1Window},
};

}  // namespace

QWidget* makeWindow(Window& window) {
  for (const Layout& layout : layouts) {
    if (layout.window == window.name()) return layout.make();
  }
  return nullptr;
}
