// A drawing surface as a display list since the last clear. Coordinates are pixels, y grows
// downward; what lies outside the surface is lost at its edge.
#pragma once

#include <functional>
#include <vector>

#include "controls/canvas_item.h"
#include "controls/colour.h"
#include "controls/control.h"

class Canvas : public Control {
 public:
  Canvas(Window& owner, int width, int height) : Control(owner), width_(width), height_(height) {}
  int width() const { return width_; }
  int height() const { return height_; }
  const std::vector<CanvasItem>& items() const { return items_; }

  void clear();
  void setPen(Colour colour) { pen_ = colour; }
  void moveTo(int x, int y) {
    x_ = x;
    y_ = y;
  }
  // A line in the pen's colour from the last point; the end becomes the last point.
  void lineTo(int x, int y) {
    add({CanvasItem::line, pen_, x_, y_, x, y});
    moveTo(x, y);
  }
  void drawLine(int x1, int y1, int x2, int y2, Colour colour);
  void drawOutline(int x1, int y1, int x2, int y2, Colour colour);
  void drawBar(int x1, int y1, int x2, int y2, Colour colour);
  // Shows what was drawn since the last repaint.
  void repaint() { tell({Change::cells}); }

  // The user's doors. `key` is one of the codes below or a character's.
  void userMouseDown();
  // A press of the left button, behind that, at a point of the surface.
  void userClick(int x, int y);
  // The right button or the menu key.
  void userMenu();
  void userKeyDown(int keyCode);
  void userKey(char32_t key);
  // The same with Ctrl, for a key that is no command of the window.
  void userControlKey(char32_t key);
  void userKeyUp(int keyCode);
  std::function<void()> onMouseDown;
  std::function<void(int x, int y)> onClick;
  std::function<void()> onMenu;
  std::function<void(int)> onKeyDown;
  std::function<void(char32_t)> onKey;
  std::function<void(char32_t)> onControlKey;
  std::function<void(int)> onKeyUp;

 private:
  void add(const CanvasItem& item) { items_.push_back(item); }

  int width_;
  int height_;
  std::vector<CanvasItem> items_;
  Colour pen_;
  int x_ = 0;
  int y_ = 0;
};

// Codes of the cursor keys in `onKeyDown` and `onKeyUp`. Other keys bring their character, or 0.
constexpr int leftKey = 37;
constexpr int upKey = 38;
constexpr int rightKey = 39;
constexpr int downKey = 40;
