// The main window: start and tabs.
#include "frontend/main_window.h"

#include "core/rom_image.h"
#include "support.h"

namespace {

using MainWindow = ProgramTest;

TEST_F(MainWindow, ATabClickBringsItsPanelAndOnlyTheAirflowTabDrawsTheView) {
  loadSmallCar();
  form1().Grid5.setText(1, 1, "29000");
  const auto before = form1().Picture2.items();
  for (int tab = 14; tab >= 1; --tab) {
    selectTab(tab);
    EXPECT_TRUE(editorState.currentTab == tab && form1().frontPanel() == tab) << tab;
    EXPECT_EQ(form1().Picture2.items() == before, tab > 5) << tab;
  }
  for (const int tab : {5, 0, 15}) selectTab(tab);
  EXPECT_EQ(editorState.currentTab, 5);
}

TEST_F(MainWindow, StartsWithoutAnImageWhateverTheListHolds) {
  desk.store["Recent Files"]["RecentFile1"] = path("image.bin");
  writeBytes("image.bin", patternImage(64));
  startWithMap(smallMap());
  EXPECT_EQ(editorState.image.size(), 120001U);
  EXPECT_FALSE(isRomLoaded());
  EXPECT_EQ(form1().Grid1.text(1, 1) + form1().Text1.text() + form1().Label20.caption(), "N/A");
  pick("owari");
  EXPECT_TRUE(desk.ended && desk.boxes.empty());
}

}  // namespace
