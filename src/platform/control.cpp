#include "platform/control.h"

#include "platform/window.h"

bool Control::takesInput() const { return enabled_ && window_->takesInput(); }

void Control::setFocus() {
  if (!enabled_) return;
  window_->moveFocus(this);
  tell({Change::focus});
}

void Control::userFocus() {
  if (takesInput()) window_->moveFocus(this);
}

void Control::userLeave() {
  if (window_->focus_ == this) window_->moveFocus(nullptr);
}

void Control::gotFocus() {
  if (onGotFocus) onGotFocus();
}
