// What every control record has: whether it is enabled and visible, its tool tip, what it is
// called, its window, the handlers that the owning window gives it, and one observer that a front
// end may set. Program-side setters store and tell the observer; user-side doors store and run a
// handler.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

class Captioned;
class Window;

// What changed in a record. `row` and `column` count for `cell` and `mark` only.
struct Change {
  enum Kind { values, focus, cell, cells, mark, marks, shape, selection, repaint, light };
  Kind kind = values;
  int row = 0;
  int column = 0;
};

// A sign on a cell or a box: it differs from what it is compared with, or the image can't take what
// stands in it.
enum class Mark : unsigned char { none, differs, unstorable };

class Control {
 public:
  // Enters the control into its window's list.
  explicit Control(Window& owner);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Window& window() const { return *window_; }
  bool enabled() const { return enabled_; }
  void setEnabled(bool on) { assign(enabled_, on); }
  bool visible() const { return visible_; }
  void setVisible(bool on) { assign(visible_, on); }
  const std::string& toolTip() const { return toolTip_; }
  void setToolTip(std::string text) { assign(toolTip_, std::move(text)); }

  // What the user calls the control: the captions that stand for it on the screen, then its own
  // text. It follows the captions.
  std::string spokenName() const;
  void nameAfter(std::initializer_list<Captioned*> captions) { refer(nameParts_, captions); }
  const std::vector<const Captioned*>& namedAfter() const { return nameParts_; }
  // The own text of a control that shows none.
  virtual const std::string& ownName() const { return ownName_; }
  void setOwnName(std::string text) { assign(ownName_, std::move(text)); }
  // What the control tells beside its name: the captions of its read-outs, else its tool tip.
  std::string description() const;
  void describeBy(std::initializer_list<Captioned*> captions) { refer(readOuts_, captions); }

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
  ~Control();
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
  friend class Captioned;
  void refer(std::vector<const Captioned*>& parts, std::initializer_list<Captioned*> captions);

  Window* window_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string toolTip_;
  std::string ownName_;
  std::vector<const Captioned*> nameParts_;
  std::vector<const Captioned*> readOuts_;
};

// A control with a text on it, which may be what other controls are called by. Those must not
// outlive its last change.
class Captioned : public Control {
 public:
  explicit Captioned(Window& owner, std::string caption = {})
      : Control(owner), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }
  void setCaption(std::string text);
  const std::string& ownName() const override { return caption_; }
  // The capital by which the keyboard chooses it among its like; 0 for none. It is no part of the
  // caption.
  char letter() const { return letter_; }
  void setLetter(char letter) { assign(letter_, letter); }

 protected:
  ~Captioned() = default;

 private:
  friend class Control;
  std::string caption_;
  char letter_ = 0;
  std::vector<const Control*> callers_;
};
