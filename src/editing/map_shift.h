// Map shift: a whole 8-bit map moves by one column inside its grid. The column that falls off is
// lost, the one that opens up is filled with 0. Beside the two high-octane maps the load scale can
// move along.
#pragma once

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"
#include "core/map_kinds.h"

// `Option1` shifts left, `Option2` right; `Check1` takes the load scale along.
struct Form11 : Window {
  Form11();

  OptionGroup directions;
  Option Option1{*this, directions}, Option2{*this, directions};
  Label Label1{*this}, Label2{*this};
  CheckBox Check1{*this};
  Button Command1{*this, "OK"}, Command2{*this, "CANCEL"};

 private:
  void fill();
};

extern Form11 form11;

// The menu command.
void DT_SFT();

// The dialog's OK: shifts the map of the current tab as the dialog says. An absent map stays.
void shiftCommand();

// Shifts a byte map as the dialog's direction says, and the load scale beside it if `alongScale`.
void shiftMap(const MapKind& kind, bool alongScale);

// Shifts the cells of a map's grid from row 1 to `rows` and column 1 to `columns` in the direction
// that the dialog's options tell. The current cell ends on the cell written last.
void MAP_SHIFT(const MapKind& kind, int columns, int rows);
