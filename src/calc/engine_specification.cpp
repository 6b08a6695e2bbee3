#include "calc/engine_specification.h"

#include "core/boost.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/engine_summary.h"
#include "core/settings_file.h"
#include "platform/numbers.h"

Form2 form2;

namespace {

struct Field {
  Label Form2::*label;
  Wording caption;
  TextBox Form2::*box;
  Wording toolTip;
};

const Field fields[] = {
    {&Form2::Label1,
     {"排気量", "Exhaust quantity"},
     &Form2::Text1,
     {"エンジンの総排気量を入力してください。", "I input exhaust quantity of an engine."}},
    {&Form2::Label2,
     {"インジェクター噴射量", "Injector blast-off quantity"},
     &Form2::Text2,
     {"インジェクター１本あたりの噴射量を入力してください。",
      "I input injector around 1 capacity."}},
    {&Form2::Label5,
     {"気筒数", "Cylinder number"},
     &Form2::Text3,
     {"エンジンの気筒数を入力してください。", "I input a cylinder number of an engine."}},
};

}  // namespace

Form2::Form2() : Window("Form2") {
  wireDialog(*this, {[this] { fill(); }, &Command2, [this] { accept(); }, &Command1, &Text1});
  for (const Field& field : fields) {
    (this->*field.box).keyFilter = digitKey;
    (this->*field.box).nameAfter({&(this->*field.label)});
  }
  Text1.nameAfter({&Label1, &Label3});
  Text2.nameAfter({&Label2, &Label4});
}

void Form2::fill() {
  setCaption(captioned({"仕様設定", "Specification set up"}));
  for (const Field& field : fields) {
    (this->*field.label).setCaption(captioned(field.caption));
    (this->*field.box).setToolTip(captioned(field.toolTip));
  }
}

void Form2::accept() {
  editorState.displacement = cellNumber(Text1.text());
  editorState.injectorSize = cellNumber(Text2.text());
  editorState.cylinders = cellNumber(Text3.text());
  saveSettingsOrTell("仕様設定");
  recalculateBoost();
  showEngineSummary();
  closeDialog(*this);
}

void set_spl() {
  form2.Text1.setText(decimalText(editorState.displacement));
  form2.Text2.setText(decimalText(editorState.injectorSize));
  form2.Text3.setText(decimalText(editorState.cylinders));
  openDialog(form2);
}
