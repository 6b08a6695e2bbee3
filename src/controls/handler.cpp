#include "controls/handler.h"

std::function<void(int)> onEscapedFailure;
