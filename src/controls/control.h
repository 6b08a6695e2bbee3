// What every control record has: whether it is enabled and visible, its tool tip, its window, the
// handlers that the owning window gives it, and one observer that a front end may set.
// Program-side setters store and tell the observer; user-side doors store and run a handler.
#pragma once

#include <functional>
#include <string>
#include <utility>

class Window;

// What changed in a record. `row` and `column` count for `cell` only.
struct Change {
  enum Kind { values, focus, cell, cells, shape, selection, repaint };
  Kind kind = values;
  int row = 0;
  int column = 0;
};

class Control {
 public:
  explicit Control(Window& owner) : window_(&owner) {}
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Window& window() const { return *window_; }
  bool enabled() const { return enabled_; }
  void setEnabled(bool on) { assign(enabled_, on); }
  bool visible() const { return visible_; }
  void setVisible(bool on) { assign(visible_, on); }
  const std::string& toolTip() const { return toolTip_; }
  void setToolTip(std::string text) { assign(toolTip_, std::move(text)); }

  // Gives this control its window's focus, as if the user had gone there.
  void setFocus();
  // Asks for an immediate repaint.
  void refresh() { tell({Change::repaint}); }

  // True when a gesture may reach the control: it is enabled, its window takes input and no box,
  // prompt or file dialog stands before it.
  bool takesInput() const;

  // The user's doors to the focus. Both are harmless when nothing changes.
  void userFocus();
  void userLeave();

  std::function<void(const Change&)> observer;
  std::function<void()> onGotFocus;
  std::function<void()> onLostFocus;

 protected:
  ~Control() = default;
  virtual void gotFocus();

  void tell(const Change& change) const {
    if (observer) observer(change);
  }
  template <class Value>
  void assign(Value& field, Value value) {
    if (field == value) return;
    field = std::move(value);
    tell({Change::values});
  }

 private:
  friend class Window;
  Window* window_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string toolTip_;
};
