// Looks into the events of an object without subclassing it.
#pragma once

#include <QEvent>
#include <QObject>
#include <functional>
#include <utility>

class EventTap : public QObject {
 public:
  // `tap` answers true when the object itself must not see the event.
  EventTap(QObject* object, std::function<bool(QEvent*)> tap)
      : QObject(object), tap_(std::move(tap)) {
    object->installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* event) override { return tap_(event); }

 private:
  std::function<bool(QEvent*)> tap_;
};

// The tap lives as long as the object. The tap that was set last sees an event first.
inline void tapEvents(QObject* object, std::function<bool(QEvent*)> tap) {
  new EventTap(object, std::move(tap));
}
