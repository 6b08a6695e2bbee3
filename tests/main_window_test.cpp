// The main window: start, tabs, menu, languages, and how it refuses while something stands before
// it.
#include "frontend/main_window.h"

#include <algorithm>

#include "frontend/main_menu.h"
#include "support.h"

namespace {

class MainWindow : public ProgramTest {
 protected:
  static bool isAscii(const std::string& text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  }
  // The names of the menu as a tree: children in brackets.
  static std::string tree(const MenuItem& item) {
    std::string text;
    for (const auto& child : item.children()) {
      if (child->name().starts_with("mnuRecentFile")) continue;
      text += (text.empty() ? "" : " ") + child->name();
      if (!child->children().empty()) text += "(" + tree(*child) + ")";
    }
    return text;
  }
  template <class Visit>
  static void everyItem(MenuItem& item, Visit visit) {
    visit(item);
    for (const auto& child : item.children()) everyItem(*child, visit);
  }
};

TEST_F(MainWindow, TheMenuTreeStands) {
  start();
  EXPECT_EQ(tree(form1().menuBar),
            "file_load(read_read(load_bin_file LOAD_IntelHEX_FILE) update_bin_file "
            "any_anme_save(write_bin_file ANY_NAME_SAVE_IntelHEX) odd_even_file "
            "Norika(comp_bin comp_intelHex) spa owari space2) "
            "edit_0(CPY PST dt_cpy(F_F T_R) DDDEEDS(add_dec kakeru smooth ADR_EDIT DT_SFT "
            "vq_chan(use_z32_vq use_hcr32_vq use_bnr32_vq user_ecr33_vq use_y32_vq use_s13_vq "
            "use_ps13_vq use_s14_vq use_s15_vq)) G_EDIT_RR(DISP_3D_Graph TP_2D) AF_DISP_FORM "
            "TP_BST_RECAL CALCU) "
            "S___(load_map_addr set_spl SET_DEFAULT_FOLDER) HLP777(ver_displ)");
  std::string shortcuts;
  everyItem(form1().menuBar, [&](const MenuItem& item) {
    if (!item.shortcut().empty()) shortcuts += item.name() + " " + item.shortcut() + " ";
    const bool command = item.children().empty() && item.caption() != "-";
    EXPECT_TRUE(!item.visible() || command == (item.onClick != nullptr)) << item.name();
  });
  EXPECT_EQ(shortcuts,
            "load_bin_file Ctrl+O LOAD_IntelHEX_FILE Ctrl+H update_bin_file Ctrl+S owari Ctrl+Q "
            "CPY Ctrl+C PST Ctrl+V DISP_3D_Graph Ctrl+G TP_BST_RECAL Ctrl+R CALCU Ctrl+N ");
}

TEST_F(MainWindow, EnglishReachesEveryCaptionAndJapaneseStays) {
  start();
  EXPECT_EQ(form1().menuBar.find("owari")->caption() + form1().Frame5.caption(), "終了VQ マップ");
  writeText("zelkova.ini", firstSettings(""));
  startAnew();
  Form1& form = form1();
  everyItem(form.menuBar,
            [](const MenuItem& item) { EXPECT_TRUE(isAscii(item.caption())) << item.name(); });
  for (int tab = 1; tab <= 14; ++tab) {
    EXPECT_TRUE(isAscii(form.TabStrip1.tab(tab).caption)) << tab;
    EXPECT_FALSE(isAscii(form.TabStrip1.tab(tab).toolTip)) << "tool tips have no English form";
  }
  EXPECT_EQ(form.Label22.caption() + form.Label37.caption() + form.Label15.caption() +
                form.Label16.caption() + form.Frame5.caption() + form.Frame6.caption(),
            "HEX this frame insideSpecificationRPMRPMVQ mapADD Map1");
  EXPECT_EQ(form.Frame1.caption(), "ハイオク燃料マップ");
}

TEST_F(MainWindow, ATabClickBringsItsPanelAndOnTheAirflowTabDrawsTheView) {
  startWithMap(smallMap());
  EXPECT_EQ(editorState.currentTab, 1);
  EXPECT_EQ(form1().frontPanel(), 1);
  loadImage(patternImage(0x400));
  form1().Grid5.setText(1, 1, "29000");
  const auto before = form1().Picture2.items();
  for (int tab = 14; tab >= 1; --tab) {
    selectTab(tab);
    EXPECT_EQ(editorState.currentTab, tab);
    EXPECT_EQ(form1().frontPanel(), tab);
    EXPECT_EQ(form1().Picture2.items() == before, tab > 5) << tab;
  }
  selectTab(5);
  form1().Picture2.clear();
  selectTab(5);
  EXPECT_FALSE(form1().Picture2.items().empty()) << "the tab in force draws again";
  EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(editorState.image[0x100]));
  selectTab(0);
  selectTab(15);
  EXPECT_EQ(editorState.currentTab, 5);
}

TEST_F(MainWindow, TakesNoInputWhileDisabledOrWhileAQuestionStandsOpen) {
  startWithMap(smallMap());
  loadImage(patternImage(0x400));
  const std::string before = form1().Text1.text();
  int tried = 0;
  const auto expectRefused = [&] {
    ++tried;
    selectTab(3);
    form1().Text1.userType("AB");
    form1().userClose();
    for (const char* command : {"owari", "CALCU", "set_spl"}) pick(command);
    EXPECT_EQ(editorState.currentTab, 1);
    EXPECT_EQ(form1().Text1.text(), before);
    EXPECT_TRUE(!desk.ended && desk.programs.empty() && desk.shownWindows.size() == 1);
  };
  form1().setEnabled(false);
  expectRefused();
  form1().setEnabled(true);
  desk.whileAsking = expectRefused;
  enterCell(form1().Grid1, 1, 1, "");
  EXPECT_EQ(tried, 2);
  selectTab(3);
  EXPECT_EQ(editorState.currentTab, 3);
}

TEST_F(MainWindow, TheCalculatorStartsOrNothingHappens) {
  start();
  pick("CALCU");
  EXPECT_EQ(desk.programs, std::vector{path("calc95_re.exe")});
  desk.programsStart = false;
  pick("CALCU");
  EXPECT_EQ(desk.programs.back(), "calculator");
  EXPECT_TRUE(desk.boxes.empty());
}

TEST_F(MainWindow, StartsWithoutAnImageWhateverTheListHolds) {
  desk.store["Recent Files"]["RecentFile1"] = path("image.bin");
  writeBytes("image.bin", patternImage(64));
  startWithMap(smallMap());
  EXPECT_EQ(editorState.imageSize, 0);
  EXPECT_EQ(editorState.image.size(), 120001U);
  EXPECT_FALSE(isRomLoaded());
  EXPECT_EQ(form1().Grid1.text(1, 1) + form1().Text1.text() + form1().Label20.caption(), "N/A");
  pick("owari");
  EXPECT_TRUE(desk.ended && desk.boxes.empty());
}

}  // namespace
