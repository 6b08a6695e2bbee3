// The record of a window: title, whether it takes input, where it stands, which of its controls has
// the focus, and what happens when it is loaded, becomes active, is closed and is unloaded.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "controls/control.h"

class Window;

// Told which window's user asks for help.
extern std::function<void(const Window&)> onHelp;

class Button;

class Window {
 public:
  explicit Window(std::string name) : name_(std::move(name)) {}
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  // The window's name in the program ("Form1"), the same in every language.
  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string text);
  bool enabled() const { return enabled_; }
  void setEnabled(bool on);
  // Between load and unload. Only a loaded window takes input.
  bool loaded() const { return loaded_; }
  bool active() const { return active_; }
  bool topmost() const { return topmost_; }
  void setTopmost(bool on);
  // The window over whose middle this one is placed; none until `centreOn`.
  const Window* centredOn() const { return centredOn_; }
  void centreOn(const Window& other) { centredOn_ = &other; }
  // Stays open beside a window, and takes input while that one does.
  void standBeside(const Window& other) { beside_ = &other; }
  bool standsBeside() const { return beside_; }

  // Its controls, in the order in which they were made.
  const std::vector<Control*>& controls() const { return controls_; }

  Control* focus() const { return focus_; }
  bool takesInput() const;
  // Repaints the window with all its controls at once.
  void refresh() { tell({Change::repaint}); }

  // Whether files may be dropped on it now.
  bool takesDrops() const { return onDrop && takesInput(); }

  // Runs the load handler; a window that is already loaded stays as it is.
  void load();
  // Runs the unload handler and leaves the front end without the window.
  void unload();

  // The user's doors.
  void userActivate();
  // The close box: the `onClose` handler if there is one, else a click on the cancel button, else
  // nothing.
  void userClose();
  // Enter and Escape: a click on the default or the cancel button.
  void userEnter();
  void userEscape();
  // Any key pressed while the window or one of its controls has the focus; runs before the control
  // sees the key.
  void userKey();
  // Files that the user dropped on the window, "" for each that is none of this machine's;
  // `control`: with the Ctrl key held.
  void userDrop(const std::vector<std::string>& paths, bool control);
  // The key for help.
  void userHelp();
  void userUndo();
  void userRedo();

  Button* defaultButton = nullptr;
  Button* cancelButton = nullptr;
  bool escapeCancels = true;
  // The control that has the focus when the window opens.
  Control* firstFocus = nullptr;
  std::function<void(const Change&)> observer;
  std::function<void()> onLoad;
  std::function<void()> onActivate;  // the first time only
  // Each time at which the window becomes the active one.
  std::function<void()> onFront;
  std::function<void()> onClose;
  std::function<void()> onUnload;
  std::function<void()> onKey;
  std::function<void(const std::vector<std::string>&, bool)> onDrop;
  // A window's own steps back and forth, beside those of the main window.
  std::function<void()> onUndo;
  std::function<void()> onRedo;

 private:
  friend class Control;
  void tell(const Change& change) const {
    if (observer) observer(change);
  }
  void moveFocus(Control* to);

  std::vector<Control*> controls_;
  std::string name_;
  std::string caption_;
  bool enabled_ = true;
  bool loaded_ = false;
  bool active_ = false;
  bool topmost_ = false;
  const Window* centredOn_ = nullptr;
  const Window* beside_ = nullptr;
  Control* focus_ = nullptr;
};
