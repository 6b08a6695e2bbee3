// The grid of the address-designated editor: a stretch of the image as hexadecimal bytes. Its cells
// reach the image only at OK; then all maps and parameters are drawn again from the image.
#pragma once

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/grid.h"
#include "controls/window.h"

struct Form6 : Window {
  Form6();

  MenuItem menuBar{*this, "menuBar"};
  Frame Frame1{*this};
  Grid eGrid;
  Button Command1{*this, "OK"}, Command2{*this, "CANCEL"};

 private:
  void fill();
  void accept();

  MenuItem& edit_02;
  MenuItem& e_cpy;
  MenuItem& HSARITUKE;
  MenuItem& goMenu;
  MenuItem& goToAddress;
};

// Loading it shows the stretch that `EditorState.addressEditStart`, `addressEditColumns` and
// `addressEditRows` name; it must lie in the image and fit a grid.
extern Form6 form6;
