// The air/fuel table: for the fuel map of the current tab, the ratio that each cell's number stands
// for. Read-only; it reads the grid as it stands, so edits that are not yet in the image count too.
#pragma once

#include <cstdint>
#include <string>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/grid.h"
#include "controls/window.h"

struct Form5 : Window {
  Form5();

  // Cells that fit the table; of a larger map the first ones are shown.
  static constexpr int columns = 16;
  static constexpr int rows = 16;

  Frame Frame1{*this};
  Grid Grid1;
  Button Command1{*this, "CLOSE"};

 private:
  void fill();
};

extern Form5 form5;

// The menu command.
void AF_DISP_FORM();

// 14.7 / ((number + 128) / 128), the sum and its quotient in single precision, the rest in double.
float airFuelRatio(float number);

// Fills `targetGrid` and the frame's caption from the map in `sourceGrid`; the other arguments come
// from its MapEntry. Cells are coloured by their number, as in the map's own grid.
void showAfTable(Grid& targetGrid, const Grid& sourceGrid, int columns, int rows,
                 const std::string& caption, std::int32_t address);
