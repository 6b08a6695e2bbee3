#include "frontend/languages.h"

#include <string>

#include "core/address_map.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "frontend/main_menu.h"

namespace {

struct LabelCaption {
  Label Form1::*label;
  const char* english;
};

const LabelCaption labelCaptions[] = {
    {&Form1::Label22, "HEX this frame inside"},
    {&Form1::Label37, "Specification"},
    {&Form1::Label15, "RPM"},
    {&Form1::Label16, "RPM"},
};

const char* const tabCaptions[] = {"Hi octane fuel map",
                                   "Hi octane Ig-time map",
                                   "Low octane fuel map",
                                   "Low octane Ig-time map",
                                   "VQ map",
                                   "Add.map 1",
                                   "Add.map 2",
                                   "Add.map 3",
                                   "Add.map 4",
                                   "Add.map 5",
                                   "Add.map 6",
                                   "Add.map 7",
                                   "Add.map 8",
                                   "Global"};

}  // namespace

void CHANGE_CAPT(int language) {
  if (language != 1) return;
  Form1& form = form1();
  for (const LabelCaption& each : labelCaptions) (form.*each.label).setCaption(each.english);
  if (editorState.addressMap.typeUnit.empty()) showTypeUnit();
  int tab = 0;
  for (const char* caption : tabCaptions) form.TabStrip1.setCaption(++tab, caption);
  form.Frame5.setCaption(Form1::airflowFrame.english);
  for (const MenuRow& row : menuRows()) {
    MenuItem* item = form.menuBar.find(row.name);
    if (item && *row.english) item->setCaption(row.english);
  }
}
