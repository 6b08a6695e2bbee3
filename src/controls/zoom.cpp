#include "controls/zoom.h"

#include <algorithm>

#include "controls/handler.h"
#include "controls/window.h"

void Zoom::set(int percent, bool fits) {
  percent_ = std::clamp(percent, least, most);
  fits_ = fits;
  if (observer) observer();
}

void Zoom::userTurn(int notches) {
  if (window_.takesInput()) runHandler(onTurn, notches);
}
