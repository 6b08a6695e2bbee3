#include "controls/gesture.h"

namespace {

GestureWatch* watchInForce = nullptr;
int depth = 0;

}  // namespace

void watchGestures(GestureWatch* watch) { watchInForce = watch; }

Gesture::Gesture(const GestureThread& thread) {
  if (++depth == 1 && watchInForce) watchInForce->gestureBegins(thread);
}

Gesture::~Gesture() {
  if (--depth == 0 && watchInForce) watchInForce->gestureEnds();
}

void endGestureThread() {
  if (watchInForce) watchInForce->threadEnds();
}
