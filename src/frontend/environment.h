// The environment dialog: folders, step keys, colour rate, language, graph parameters, and the
// deletion of the recent-files list.
#pragma once

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"

struct Form9 : Window {
  Form9();

  Label Label1{*this}, Label2{*this}, Label3{*this, "+ Key assign"}, Label4{*this, "- Key assign"},
      Label5{*this, "Grid Backcolor rate"}, Label6{*this, "3D Graph Parameters"},
      Label7{*this, "X"}, Label8{*this, "Y"}, Label9{*this, "X"}, Label10{*this, "Y"},
      Label11{*this, "Language"};
  TextBox Text1{*this}, Text2{*this}, Text3{*this}, Text4{*this}, Text5{*this}, Text6{*this},
      Text7{*this}, Text8{*this}, Text9{*this};
  CheckBox Check1{*this, "English?"};
  Button Command1{*this, "OK"}, Command2{*this, "CANCEL"}, Command3{*this}, Command4{*this},
      Command5{*this};

  // Whether a change of the language box tells of the restart that it needs: from the moment at
  // which the dialog is the active window until it is unloaded.
  bool languagePromptArmed = false;

 private:
  void setTexts();
  void takeOver();
  void tellLanguageChange();
};

extern Form9 form9;

// The menu command.
void SET_DEFAULT_FOLDER();
