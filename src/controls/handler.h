// Running the handlers that gestures reach. What escapes from one ends that gesture, not the
// program.
#pragma once

#include <functional>
#include <type_traits>

#include "controls/gesture.h"
#include "platform/failure.h"

// Told of the number of a failure that no command caught. Where nobody listens, it goes on to the
// caller of the gesture.
extern std::function<void(int)> onEscapedFailure;

template <class... Arguments>
void runHandler(const std::function<void(Arguments...)>& handler,
                const std::type_identity_t<Arguments>&... arguments) {
  if (!handler) return;
  const Gesture gesture;
  if (!onEscapedFailure) return handler(arguments...);
  const int number = trapFailure([&] { handler(arguments...); });
  if (number != 0) onEscapedFailure(number);
}
