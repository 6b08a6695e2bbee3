// Smoothing: inside the selected rectangle of an 8-bit map each inner cell becomes the mean of its
// two neighbours, first along the rows, then along the columns; a pair that holds a value at or
// above a threshold is left alone.
#pragma once

#include <cstdint>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"
#include "core/map_kinds.h"

// `Text1` is the threshold.
struct Form10 : Window {
  Form10();

  Label Label1{*this}, Label2{*this};
  TextBox Text1{*this};
  Button Command1{*this, "OK"}, Command2{*this, "CANCEL"};

 private:
  void fill();
  void accept();
};

extern Form10 form10;

// The menu command.
void smooth();

// Smooths the selection of a map's grid in place. Afterwards the selection runs from its top left
// to its bottom right. The last two rows of the selection get no pass along the rows, the last two
// columns none along the columns: fewer than 3 rows or 3 columns change nothing.
void SMOOTH_DATA(const MapKind& kind, std::int32_t threshold);
