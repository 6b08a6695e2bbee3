// Binding of menus: an item with children is a submenu, the caption "-" a separator, any other an
// action with its shortcut. Items that come later are shown as well.
#pragma once

#include <QPoint>

#include "controls/controls.h"

class QMenu;
class QMenuBar;
class QWidget;

void bind(QMenuBar* bar, MenuItem& root);

// Where a menu pops up: at the pointer, or at the place that the last `MenuPlace` in force names.
QPoint menuPlace();
class MenuPlace {
 public:
  explicit MenuPlace(QPoint onScreen);
  ~MenuPlace();
  MenuPlace(const MenuPlace&) = delete;
  MenuPlace& operator=(const MenuPlace&) = delete;
};

// The menu in which the children of `item` stand: the one on a menu bar, or one made for `owner` at
// the first call.
QMenu* menuOf(MenuItem& item, QWidget* owner);
