#include "controls/canvas.h"

#include "controls/handler.h"

void Canvas::clear() { items_.clear(); }

void Canvas::drawLine(int x1, int y1, int x2, int y2, Colour colour) {
  add({CanvasItem::line, colour, x1, y1, x2, y2});
}

void Canvas::drawOutline(int x1, int y1, int x2, int y2, Colour colour) {
  add({CanvasItem::outline, colour, x1, y1, x2, y2});
}

void Canvas::drawBar(int x1, int y1, int x2, int y2, Colour colour) {
  add({CanvasItem::bar, colour, x1, y1, x2, y2});
}

void Canvas::userMouseDown() {
  if (!takesInput()) return;
  userFocus();
  runHandler(onMouseDown);
}

void Canvas::userClick(int x, int y) {
  if (takesInput()) runHandler(onClick, x, y);
}

void Canvas::userMenu() {
  if (takesInput()) runHandler(onMenu);
}

void Canvas::userKeyDown(int keyCode) {
  if (takesInput()) runHandler(onKeyDown, keyCode);
}

void Canvas::userKey(char32_t key) {
  if (takesInput()) runHandler(onKey, key);
}

void Canvas::userControlKey(char32_t key) {
  if (takesInput()) runHandler(onControlKey, key);
}

void Canvas::userKeyUp(int keyCode) {
  if (takesInput()) runHandler(onKeyUp, keyCode);
}
