#include "platform/button.h"

#include "platform/handler.h"

void Button::userClick() {
  if (takesInput()) runHandler(onClick);
}
