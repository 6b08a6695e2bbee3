// The bracket around one gesture of the user, from its door to the end of its handlers: the unit
// of undo. What runs inside it, nested handlers included, belongs to the outermost gesture.
#pragma once

// What ties several gestures into one for the user: a key that repeats on a control, characters
// typed into a box. A gesture without a control stands alone.
struct GestureThread {
  const void* control = nullptr;
  char32_t key = 0;
  bool operator==(const GestureThread&) const = default;
};

// Told of gestures. One watch at most; null takes it away.
class GestureWatch {
 public:
  virtual void gestureBegins(const GestureThread& thread) = 0;
  virtual void gestureEnds() = 0;
  // The key came up, the box was left: what comes next is a gesture of its own.
  virtual void threadEnds() = 0;

 protected:
  ~GestureWatch() = default;
};

void watchGestures(GestureWatch* watch);

class Gesture {
 public:
  explicit Gesture(const GestureThread& thread = {});
  ~Gesture();
  Gesture(const Gesture&) = delete;
  Gesture& operator=(const Gesture&) = delete;
};

void endGestureThread();
