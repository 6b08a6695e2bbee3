#include "platform/button.h"

void Button::userClick() {
  if (takesInput() && onClick) onClick();
}
