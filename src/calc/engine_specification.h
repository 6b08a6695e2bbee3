// The engine's three numbers - displacement, injector size, cylinders - and the dialog that edits
// them. They only feed the boost figures; nothing here touches the image.
#pragma once

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"

struct Form2 : Window {
  Form2();

  Label Label1{*this}, Label2{*this}, Label5{*this};  // before Text1, Text2, Text3
  Label Label3{*this, "cc"}, Label4{*this, "cc"};     // behind Text1 and Text2
  TextBox Text1{*this}, Text2{*this}, Text3{*this, "4"};
  Button Command2{*this, "OK"}, Command1{*this, "CANCEL"};

 private:
  void fill();
  void accept();
};

extern Form2 form2;

// The menu command.
void set_spl();
