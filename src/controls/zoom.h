// How large a part of a window is shown: a percentage, or as large as its room allows.
#pragma once

#include <functional>

class Window;

class Zoom {
 public:
  // Percent.
  static constexpr int least = 75;
  static constexpr int usual = 100;
  static constexpr int most = 300;

  explicit Zoom(Window& owner) : window_(owner) {}
  // What was asked for; what is shown, which is another where it follows the room.
  int percent() const { return percent_; }
  int shown() const { return fits_ ? fitting_ : percent_; }
  bool fits() const { return fits_; }
  // `percent` is brought within the limits.
  void set(int percent, bool fits);
  // What the room allows, as the front end found.
  void setFitting(int percent) { fitting_ = percent; }

  // The user turns the wheel with Ctrl held, `notches` away from himself.
  void userTurn(int notches);

  std::function<void(int)> onTurn;
  std::function<void()> observer;

 private:
  Window& window_;
  int percent_ = usual;
  int fitting_ = usual;
  bool fits_ = false;
};
