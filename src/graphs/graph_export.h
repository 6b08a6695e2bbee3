// What the graph windows show as a file for others, from a menu of their own.
#pragma once

#include <string>

#include "controls/canvas.h"
#include "controls/controls.h"
#include "controls/picture.h"

// The menu that opens on a canvas. Its row writes what `picture` makes of the window into a file
// whose proposed name ends in `name`.
class PictureMenu {
 public:
  explicit PictureMenu(Window& owner);
  void wire(Canvas& canvas, Picture (*picture)(), std::string (*name)());
  void takeWords();

  MenuItem menu;

 private:
  MenuItem& exportRow_;
};
