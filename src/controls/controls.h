// The small control records: label, frame, text box, check box, option, list, tab strip, progress
// bar, menu item and timer. Button, grid and canvas have files of their own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/colour.h"
#include "controls/control.h"
#include "controls/window.h"

class Label : public Captioned {
 public:
  using Captioned::Captioned;
  Colour colour() const { return colour_; }
  void setColour(Colour colour) { assign(colour_, colour); }

  void userClick();
  std::function<void()> onClick;

 private:
  Colour colour_ = black;
};

// A captioned border around a group of controls.
class Frame : public Captioned {
 public:
  using Captioned::Captioned;

  void userClick();
  std::function<void()> onClick;
};

class TextBox;

// Told of a box before its text changes.
class TextWatch {
 public:
  virtual void textChanges(TextBox& box) = 0;

 protected:
  ~TextWatch() = default;
};

class TextBox : public Control {
 public:
  explicit TextBox(Window& owner, std::string text = {}) : Control(owner), text_(std::move(text)) {}
  const std::string& text() const { return text_; }
  void setText(std::string text);
  // The longest text in characters that the user's editing can make; 0: no limit.
  void setMaxLength(int characters) { assign(maxLength_, characters); }
  Mark mark() const { return mark_; }
  void setMark(Mark mark) { assign(mark_, mark); }

  enum class By { keys, other };
  // What filter and limit leave of the user's editing, which made `text` of the box's text: what
  // was typed passes the filter; nothing makes a text longer than the limit, and one that the
  // program set beyond it can only become shorter. The box's text where nothing is left of the
  // editing.
  std::string edited(std::string_view text, By by) const;
  // The user's door, for typing, pasting and whatever else a box can do.
  void userEdit(std::string_view text, By by = By::other);

  // Which characters may be typed; none set: all.
  std::function<bool(char32_t)> keyFilter;
  std::function<void()> onChange;

  TextWatch* watch = nullptr;

 protected:
  // A box that gets the focus selects its whole text.
  void gotFocus() override;

 private:
  void changing(const std::string& to);

  std::string text_;
  int maxLength_ = 0;
  Mark mark_ = Mark::none;
};

// A key filter: decimal digits alone.
bool digitKey(char32_t key);

class CheckBox : public Captioned {
 public:
  using Captioned::Captioned;
  bool checked() const { return checked_; }
  void setChecked(bool on) { assign(checked_, on); }

  // `userMouseDown` is the press of a mouse button, before the change that a click brings.
  void userMouseDown();
  void userToggle();
  std::function<void()> onMouseDown;
  std::function<void()> onChange;

 private:
  bool checked_ = false;
};

class Option;

// Options of which at most one is selected.
class OptionGroup {
 public:
  OptionGroup() = default;
  OptionGroup(const OptionGroup&) = delete;
  OptionGroup& operator=(const OptionGroup&) = delete;
  Option* selected() const;
  void select(const Option* chosen);
  const std::vector<Option*>& members() const { return members_; }

 private:
  friend class Option;
  std::vector<Option*> members_;
};

class Option : public Captioned {
 public:
  Option(Window& owner, OptionGroup& group, std::string caption = {});
  bool selected() const { return selected_; }
  OptionGroup& group() const { return *group_; }

  void userMouseDown();
  void userSelect();
  std::function<void()> onMouseDown;
  std::function<void()> onSelect;

 private:
  friend class OptionGroup;
  OptionGroup* group_;
  bool selected_ = false;
};

class ListBox : public Control {
 public:
  ListBox(Window& owner, std::vector<std::string> items)
      : Control(owner), items_(std::move(items)) {}
  const std::vector<std::string>& items() const { return items_; }
  // The selected line, counted from 0; -1: none.
  int index() const { return index_; }
  void setIndex(int index) { assign(index_, index); }
  // The selected line's text, "" for none.
  std::string text() const;
  void selectText(std::string_view text);

  void userMouseDown();
  // Selecting the line that is selected already is no change.
  void userSelect(int index);
  std::function<void()> onMouseDown;
  std::function<void()> onChange;

 private:
  std::vector<std::string> items_;
  int index_ = -1;
};

class TabStrip : public Control {
 public:
  struct Tab {
    std::string caption;
    std::string toolTip;
    std::string note = {};        // a marked tab's, told below its tool tip
    std::string secondLine = {};  // below the caption
    bool operator==(const Tab&) const = default;
  };
  TabStrip(Window& owner, std::vector<Tab> tabs) : Control(owner), tabs_(std::move(tabs)) {}
  // Tabs are counted from 1.
  int count() const { return static_cast<int>(tabs_.size()); }
  const Tab& tab(int number) const { return tabs_.at(static_cast<std::size_t>(number - 1)); }
  void setCaption(int number, std::string text);
  void setTabToolTip(int number, std::string text);
  void setSecondLine(int number, std::string text);
  // A tab with a note bears a mark; "" takes it away.
  void setNote(int number, std::string text);
  int selected() const { return selected_; }

  // A click on a tab, on the selected one as well.
  void userSelect(int number);
  std::function<void()> onClick;

 private:
  std::vector<Tab> tabs_;
  int selected_ = 1;
};

// Runs from 0 to 100.
class ProgressBar : public Control {
 public:
  using Control::Control;
  int value() const { return value_; }
  void setValue(int value) { assign(value_, value); }

 private:
  int value_ = 0;
};

// An entry of a menu: a command, a submenu or a separator (caption "-").
class MenuItem final : public Captioned {
 public:
  MenuItem(Window& owner, std::string name, std::string caption = {}, std::string shortcut = {})
      : Captioned(owner, std::move(caption)),
        name_(std::move(name)),
        shortcut_(std::move(shortcut)) {}
  // The item's name in the program ("file_load"), the same in every language.
  const std::string& name() const { return name_; }
  const std::string& shortcut() const { return shortcut_; }
  // Whether the entry bears a tick; nothing for one that can't bear any.
  std::optional<bool> checked() const { return checked_; }
  void setChecked(bool on) { assign(checked_, std::optional(on)); }
  MenuItem& add(std::unique_ptr<MenuItem> child);
  const std::vector<std::unique_ptr<MenuItem>>& children() const { return children_; }
  // This item or the one below it that bears the name; null when there is none.
  MenuItem* find(std::string_view name);

  void userPick();
  // The menu below this item is about to be shown.
  void userOpen();
  std::function<void()> onClick;
  std::function<void()> onOpen;

 private:
  std::string name_;
  std::string shortcut_;
  std::optional<bool> checked_;
  std::vector<std::unique_ptr<MenuItem>> children_;
};

// Fires `onTimer` once per interval while it is enabled.
class Timer : public Control {
 public:
  Timer(Window& owner, int milliseconds) : Control(owner), interval_(milliseconds) {
    setEnabled(false);
  }
  int interval() const { return interval_; }
  // Starts a new interval from now.
  void restart(int milliseconds);

  // The interval has run out.
  void fire();
  std::function<void()> onTimer;

 private:
  int interval_;
};
