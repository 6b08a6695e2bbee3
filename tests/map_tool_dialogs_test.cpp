// What the map tools have in common: their guards, and how their dialogs open and close.

#include <array>

#include "calc/af_table.h"
#include "editing/add_multiply.h"
#include "editing/address_dialog.h"
#include "editing/map_copy.h"
#include "editing/map_shift.h"
#include "editing/smoothing.h"
#include "map_tools_bed.h"

namespace {

class MapToolDialogs : public MapToolsTest {};

TEST_F(MapToolDialogs, AMissingImageIsToldFirstThenTheWrongTab) {
  startWithMap(smallMap());
  const std::string notLoaded = "ROM DATA reads and been crowded, ";
  const std::string wrongTab = "With this screen, ";
  const std::array<std::string, 3> table[] = {
      {"CPY", notLoaded + "a copy of data aren't possible.",
       wrongTab + "a copy function can be useful."},
      {"PST", notLoaded + "stretching and attaching it of data aren't possible.",
       wrongTab + "stretching and attaching it can be useful."},
      {"F_F", notLoaded + "a data copy aren't possible.", ""},
      {"T_R", notLoaded + "a data copy aren't possible.", ""},
      {"add_dec", notLoaded + "addition and reduction of data aren't possible.", ""},
      {"kakeru", notLoaded + "a multiplication of data aren't possible.", ""},
      {"smooth", "ROM DATA is smooth and aren't possible for data, been crowded as reading.", ""},
      {"ADR_EDIT", notLoaded + "a data editing aren't possible.", ""},
      {"DT_SFT", notLoaded + "map shift aren't possible.", wrongTab + "map shift aren't possible."},
      {"AF_DISP_FORM", notLoaded + "A/F display aren't possible.",
       wrongTab + "A/F display aren't possible."}};
  for (const auto& [command, withoutImage, onGlobal] : table) {
    selectTab(globalTab);
    editorState.image[0] = 0;
    pick(command);
    EXPECT_EQ(lastBox(), withoutImage);
    EXPECT_EQ(desk.boxes.back().title + "|" + (form1().enabled() ? "" : "disabled"), "Error|");
    editorState.english = 0;
    pick(command);
    EXPECT_TRUE(lastBox().starts_with("ROM DATAが読み込まれていないのに、")) << command;
    EXPECT_EQ(desk.boxes.back().title, "エラー");
    editorState.english = 1;
    editorState.image[0] = 1;
    desk.boxes.clear();
    pick(command);
    EXPECT_EQ(lastBox(), onGlobal);
    EXPECT_EQ(form1().enabled(), !onGlobal.empty());
    if (!form1().enabled()) desk.shownWindows.back()->userClose();
  }
}

TEST_F(MapToolDialogs, EachOpensOverTheMainWindowAndItsCloseBoxCancels) {
  loadCar();
  struct Row {
    const char* command;
    Window& window;
    const char* japanese;
    bool escapeCloses = true;
  };
  const Row table[] = {
      {"F_F", form3, "燃料・点火データコピー"},  {"T_R", form4, "TP/回転スケールコピー"},
      {"add_dec", form7, "データ増減"},          {"kakeru", form8, "データ乗算"},
      {"smooth", form10, "スムージング", false}, {"DT_SFT", form11, "マップシフト"},
      {"ADR_EDIT", form13, "アドレス指定編集"},  {"AF_DISP_FORM", form5, "A/F表示"}};
  const RomImage image = editorState.image;
  const GridSelection dragged{4, 5, 2, 1};
  drag(form1().Grid1, 4, 5, 2, 1);
  for (const Row& row : table) {
    editorState.english = 0;
    pick(row.command);
    EXPECT_EQ(row.window.caption(), row.japanese);
    EXPECT_TRUE(row.window.topmost() && !form1().enabled());
    row.window.userEscape();
    EXPECT_EQ(row.window.loaded(), !row.escapeCloses) << row.command;
    row.window.userClose();
    EXPECT_TRUE(form1().enabled() && !row.window.loaded() && !row.window.topmost());
  }
  EXPECT_EQ(form1().Grid1.selection(), dragged);
  EXPECT_EQ(editorState.image, image);
}

}  // namespace
