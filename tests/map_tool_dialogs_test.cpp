// What the map tools have in common: their guards, how their dialogs open and close, what their
// fields take, and what they refuse at OK.

#include "editing/add_multiply.h"
#include "editing/smoothing.h"
#include "map_tools_bed.h"

namespace {

class MapToolDialogs : public MapToolsTest {};

TEST_F(MapToolDialogs, RefuseWithoutImageThenOnTheWrongTabElseOpenAndCloseWithoutEffect) {
  startWithMap(smallMap());
  // Whether a tool opens on the tab without a map.
  const std::pair<const char*, bool> table[] = {
      {"CPY", false},   {"PST", false},    {"DT_SFT", false}, {"AF_DISP_FORM", false},
      {"F_F", true},    {"T_R", true},     {"add_dec", true}, {"kakeru", true},
      {"smooth", true}, {"ADR_EDIT", true}};
  selectTab(globalTab);
  for (const auto& [command, opens] : table) {
    SCOPED_TRACE(command);
    editorState.image = RomImage(0x400);
    pick(command);
    editorState.english = 0;
    pick(command);
    editorState.english = 1;
    EXPECT_EQ(desk.boxes.at(0).title + desk.boxes.at(1).title, "Errorエラー");
    const std::string texts = told();
    EXPECT_TRUE(texts.starts_with("ROM DATA ")) << texts;
    EXPECT_NE(texts.find("|ROM DATAが読み込まれていないのに、"), std::string::npos) << texts;
    EXPECT_TRUE(form1().enabled());
    editorState.image = patternImage(0x400);
    pick(command);
    EXPECT_EQ(told().starts_with("With this screen, "), !opens);
    EXPECT_EQ(form1().enabled(), !opens);
    if (!opens) continue;
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
