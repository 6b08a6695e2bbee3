#include "controls/window.h"

#include "controls/button.h"
#include "controls/desktop.h"
#include "controls/gesture.h"
#include "controls/handler.h"

std::function<void(const Window&)> onHelp;

void Window::setCaption(std::string text) {
  if (caption_ == text) return;
  caption_ = std::move(text);
  tell({Change::values});
}

void Window::setEnabled(bool on) {
  enabled_ = on;
  tell({Change::values});
}

void Window::setTopmost(bool on) {
  topmost_ = on;
  tell({Change::values});
}

bool Window::takesInput() const {
  if (!enabled_ || !loaded_ || (beside_ && !beside_->takesInput())) return false;
  return !(hasDesktop() && desktop().asking());
}

void Window::load() {
  if (loaded_) return;
  loaded_ = true;
  enabled_ = true;
  active_ = false;
  focus_ = nullptr;
  if (onLoad) onLoad();
}

void Window::unload() {
  if (!loaded_) return;
  loaded_ = false;
  active_ = false;
  focus_ = nullptr;
  if (onUnload) onUnload();
  desktop().hideWindow(*this);
}

void Window::userActivate() {
  if (!loaded_) return;
  if (!active_) {
    active_ = true;
    runHandler(onActivate);
    if (!focus_ && firstFocus) firstFocus->setFocus();
  }
  runHandler(onFront);
}

void Window::userClose() {
  if (!takesInput()) return;
  if (onClose) return runHandler(onClose);
  if (cancelButton) cancelButton->userClick();
}

void Window::userEnter() {
  endGestureThread();
  if (defaultButton) defaultButton->userClick();
}

void Window::userEscape() {
  if (cancelButton && escapeCancels) cancelButton->userClick();
}

void Window::userKey() {
  if (takesInput()) runHandler(onKey);
}

void Window::userDrop(const std::vector<std::string>& paths, bool control) {
  if (takesDrops()) runHandler(onDrop, paths, control);
}

void Window::userHelp() {
  if (takesInput()) runHandler(onHelp, *this);
}

void Window::userUndo() {
  if (takesInput()) runHandler(onUndo);
}

void Window::userRedo() {
  if (takesInput()) runHandler(onRedo);
}

void Window::moveFocus(Control* to) {
  if (focus_ == to) return;
  Control* const from = focus_;
  focus_ = to;
  endGestureThread();
  if (from) runHandler(from->onLostFocus);
  if (focus_ == to && to) to->gotFocus();
}
