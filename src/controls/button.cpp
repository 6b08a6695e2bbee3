#include "controls/button.h"

#include "controls/handler.h"

void Button::userClick() {
  if (takesInput()) runHandler(onClick);
}
