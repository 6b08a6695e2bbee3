// What the map tools have in common: their guards, how their dialogs open and close, what their
// fields take, and what they refuse at OK.

#include <array>

#include "editing/add_multiply.h"
#include "editing/smoothing.h"
#include "map_tools_bed.h"

namespace {

class MapToolDialogs : public MapToolsTest {};

TEST_F(MapToolDialogs, RefuseWithoutImageThenOnTheWrongTabElseOpenAndCloseWithoutEffect) {
  startWithMap(smallMap());
  const std::string rom = "ROM DATA reads and been crowded, ", tab = "With this screen, ";
  // What is told without an image, and then on the tab without a map; "": it opens.
  const std::array<std::string, 3> table[] = {
      {"CPY", rom + "a copy of data aren't possible.", tab + "a copy function can be useful."},
      {"PST", rom + "stretching and attaching it of data aren't possible.",
       tab + "stretching and attaching it can be useful."},
      {"F_F", rom + "a data copy aren't possible.", ""},
      {"T_R", rom + "a data copy aren't possible.", ""},
      {"add_dec", rom + "addition and reduction of data aren't possible.", ""},
      {"kakeru", rom + "a multiplication of data aren't possible.", ""},
      {"smooth", "ROM DATA is smooth and aren't possible for data, been crowded as reading.", ""},
      {"ADR_EDIT", rom + "a data editing aren't possible.", ""},
      {"DT_SFT", rom + "map shift aren't possible.", tab + "map shift aren't possible."},
      {"AF_DISP_FORM", rom + "A/F display aren't possible.", tab + "A/F display aren't possible."}};
  selectTab(globalTab);
  for (const auto& [command, withoutImage, onTab] : table) {
    SCOPED_TRACE(command);
    editorState.image = RomImage(0x400);
    pick(command);
    editorState.english = 0;
    pick(command);
    editorState.english = 1;
    EXPECT_EQ(desk.boxes.at(0).title + desk.boxes.at(1).title, "Errorエラー");
    EXPECT_TRUE(told().starts_with(withoutImage + "|ROM DATAが読み込まれていないのに、"));
    EXPECT_TRUE(form1().enabled());
    editorState.image = patternImage(0x400);
    pick(command);
    EXPECT_EQ(told(), onTab);
    EXPECT_EQ(form1().enabled(), !onTab.empty());
    if (!onTab.empty()) continue;
    Window& dialog = *desk.shownWindows.back();
    EXPECT_TRUE(dialog.topmost());
    dialog.userEscape();
    EXPECT_EQ(dialog.loaded(), &dialog == &form10) << "smoothing alone ignores Escape";
    dialog.userClose();
    EXPECT_TRUE(form1().enabled() && !dialog.loaded());
    EXPECT_EQ(editorState.image, patternImage(0x400));
  }
}

TEST_F(MapToolDialogs, KeysAreFilteredAndEachOpeningStartsAnew) {
  loadSmallCar();
  // What a box holds first, the keys over it, and what then stands there.
  const std::tuple<const char*, TextBox&, const char*, const char*, const char*> table[] = {
      {"add_dec", form7.Text1, "110", "x-1.2e3", "123"},
      {"add_dec", form7.Text2, "", "a-+1 .1e\b15", "-115"},
      {"kakeru", form8.Text1, "110", "x-1.2e3", "123"},
      {"kakeru", form8.Text2, "", "a-+1 .1e\b15", "1.15"},
      {"smooth", form10.Text1, "120", "-1.5x7", "157"}};
  for (const auto& [command, box, first, keys, typed] : table) {
    for (int opening = 0; opening < 2; ++opening) {
      pick(command);
      EXPECT_EQ(box.text(), first);
      box.userFocus();
      box.userType(keys);
      EXPECT_EQ(box.text(), typed) << command;
      box.window().userClose();
    }
  }
}

TEST_F(MapToolDialogs, TabsThatAToolCannotServeAreRefusedOnlyAtOk) {
  loadSmallCar();
  const std::tuple<const char*, int, const char*> table[] = {
      {"add_dec", globalTab,
       "With this screen(GLOBAL), this function(addition and reduction) can be useful."},
      {"kakeru", globalTab,
       "With this screen(GLOBAL), this function(multiplication) can be useful."},
      {"kakeru", 15, "There is an exception for a parameter of DEC_DATA."},
      {"smooth", airflowTab, "With this screen, smooth function can be useful."},
      {"smooth", globalTab, "With this screen, smooth function can be useful."},
      {"smooth", 0, "There is an exception for a parameter of SMOOTH_DATA."}};
  drag(form1().Grid5, 1, 1, 1, 8);
  const std::string airflow = form1().Grid5.clip();
  for (const auto& [command, tab, refusal] : table) {
    editorState.currentTab = tab;
    pick(command);
    EXPECT_EQ(told(), "");
    for (TextBox* amount : {&form7.Text2, &form8.Text2}) amount->userEdit("5");
    desk.shownWindows.back()->userEnter();
    EXPECT_EQ(told(), refusal);
    EXPECT_TRUE(form1().enabled());
  }
  EXPECT_EQ(form1().Grid5.clip(), airflow);
}

}  // namespace
