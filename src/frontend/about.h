// The version window: version, warning, a link to the manual and, if the settings say so, a looping
// sound.
#pragma once

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"

struct FrmAbout : Window {
  FrmAbout();

  Label lblVersion{*this}, att1{*this};
  Label Label2{*this, "Support SITE"};
  Label Label6{*this};  // the address; a click opens it
  Label Picture1{*this}, Picture2{*this}, picIcon{*this};
  Button cmdOK{*this, "OK"};

 private:
  void open();
  void openSupport();
};

extern FrmAbout frmAbout;

// The menu command.
void ver_displ();
