// Odd/even pairs: an image joined from, or split into, two files of which each holds every other
// byte. The odd file has the image's offsets 0, 2, 4 ..., the even file 1, 3, 5 ...
#pragma once

#include <cstdint>
#include <string>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"

struct OddEven : Window {
  OddEven();

  ListBox List1{*this, {"64", "128", "256", "512", "1024", "2048"}};
  Frame Frame1{*this, "ROM size (Kbit)"}, Frame2{*this, "File Format"};
  OptionGroup formats;
  Option Option1{*this, formats, "Binary"}, Option2{*this, formats, "IntelHEX"};
  Label Label1{*this}, Label2{*this};
  Button Command1{*this}, Command2{*this};  // load, save
  Button Close{*this, "CLOSE"};
};

extern OddEven oddeven;

// The menu command.
void odd_even_file();
