#include "platform/handler.h"

std::function<void(int)> onEscapedFailure;
