// The way into the address-designated editor: a dialog asks for a stretch of the image by its
// start, bytes per row and rows; then everything edited so far is written back and the stretch is
// shown.
#pragma once

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"

// `Text1` is the start in hexadecimal, `Text2` bytes per row, `Text3` rows.
struct Form13 : Window {
  Form13();

  Label Label1{*this}, Label2{*this}, Label3{*this};
  TextBox Text1{*this}, Text2{*this}, Text3{*this};
  Button Command1{*this, "OK"}, Command2{*this, "CANCEL"};

 private:
  void fill();
  void accept();
  bool takeEntries() const;
};

extern Form13 form13;

// The menu command.
void ADR_EDIT();
