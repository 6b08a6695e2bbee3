// The main window: start, tabs, menu and languages.
#include "frontend/main_window.h"

#include <algorithm>
#include <new>
#include <set>
#include <tuple>

#include "core/dialogs.h"
#include "core/map_palette.h"
#include "core/rom_image.h"
#include "support.h"

namespace {

bool isAscii(const std::string& text) {
  return std::ranges::none_of(text, [](char c) { return (c & 0x80) != 0; });
}

class MainWindow : public ProgramTest {
 protected:
  // The menu as a tree: what `told` says of each item, children in brackets.
  template <class Told>
  static std::string tree(const MenuItem& item, Told told) {
    std::string text;
    for (const auto& child : item.children()) {
      if (child->name().starts_with("mnuRecent")) continue;
      text += (text.empty() ? "" : " ") + told(*child);
      if (!child->children().empty()) text += "(" + tree(*child, told) + ")";
    }
    return text;
  }
};

TEST_F(MainWindow, TheMenuTreeStands) {
  start();
  const auto told = [](const MenuItem& item) {
    std::set<char> letters;
    for (const auto& child : item.children()) {
      const bool chosen = child->caption() != "-" && child->name() != "mnuRecentFile0";
      EXPECT_TRUE(!chosen || letters.insert(child->letter()).second) << child->name();
      EXPECT_EQ(child->letter() != 0, chosen) << child->name();
    }
    const bool command = item.children().empty() && item.caption() != "-";
    EXPECT_TRUE(!item.visible() || command == (item.onClick != nullptr)) << item.name();
    return item.name() + (item.shortcut().empty() ? "" : ":" + item.shortcut());
  };
  EXPECT_EQ(
      tree(form1().menuBar, told),
      "file_load(read_read(load_bin_file:Ctrl+O LOAD_IntelHEX_FILE:Ctrl+H) "
      "update_bin_file:Ctrl+S any_anme_save(write_bin_file:Ctrl+Shift+S ANY_NAME_SAVE_IntelHEX) "
      "odd_even_file Norika(comp_bin comp_intelHex) spa owari:Ctrl+Q space2) "
      "edit_0(CPY:Ctrl+C PST:Ctrl+V dt_cpy(F_F T_R) DDDEEDS(add_dec kakeru smooth ADR_EDIT "
      "DT_SFT vq_chan(use_z32_vq use_hcr32_vq use_bnr32_vq user_ecr33_vq use_y32_vq "
      "use_s13_vq use_ps13_vq use_s14_vq use_s15_vq)) "
      "G_EDIT_RR(DISP_3D_Graph:Ctrl+G TP_2D) AF_DISP_FORM TP_BST_RECAL:Ctrl+R CALCU:Ctrl+N) "
      "S___(load_map_addr set_spl SET_DEFAULT_FOLDER) "
      "changes(undo:Ctrl+Z redo:Ctrl+Y; Ctrl+Shift+Z changes_line set:Ctrl+E percent:Ctrl+5 "
      "interpolate(across down both:Ctrl+I) coarse_up coarse_down states_line "
      "earlier_states) "
      "view(against_nothing against_file against_comparison view_line differences:Ctrl+D "
      "next_difference:F3 last_difference:Shift+F3 look_line "
      "zoom(zoom_in:F8 zoom_out:Shift+F8 zoom_line zoom_75 zoom_100:Ctrl+F8 zoom_125 zoom_150 "
      "zoom_200 zoom_300) fit_window:F11 map_colours) "
      "exchange(copy_table:Ctrl+Shift+C paste_table:Ctrl+Shift+V table_line export_map report "
      "print:Ctrl+P files_line load_any_form save_s_records exchange_line "
      "recent_maps()) HLP777(ver_displ)");
}

TEST_F(MainWindow, ZoomGoesByStepsWithinItsLimitsAndIsKeptWithTheColours) {
  const auto looks = [] {
    std::string ticks;
    form1().menuBar.find("view")->userOpen();
    for (const char* name : {"zoom_75", "zoom_100", "zoom_150", "zoom_300", "fit_window"}) {
      ticks += form1().menuBar.find(name)->checked().value() ? '1' : '0';
    }
    return std::to_string(form1().mapZoom.percent()) + ' ' + ticks;
  };
  // What is picked or how many notches the wheel turns, at once and in the next run.
  const std::tuple<const char*, int, const char*> table[] = {
      {"", 0, "100 01000"},         {"zoom_in", 0, "110 00000"},    {"zoom_150", 0, "150 00100"},
      {"zoom_out", 0, "125 00000"}, {"", 2, "175 00000"},           {"", 1'000'000, "300 00010"},
      {"zoom_in", 0, "300 00010"},  {"fit_window", 0, "300 00001"}, {"fit_window", 0, "300 00010"},
      {"", -1'000'000, "75 10000"}, {"zoom_out", 0, "75 10000"},    {"fit_window", 0, "75 00001"},
      {"zoom_100", 0, "100 01000"}};
  start();
  for (const auto& [command, notches, expected] : table) {
    notches ? form1().mapZoom.userTurn(notches) : *command ? pick(command) : void();
    EXPECT_EQ(looks(), expected) << command << notches;
    start();
    EXPECT_EQ(looks(), expected) << command << notches << " in the next run";
  }
  pick("fit_window");
  form1().mapZoom.setFitting(163);
  pick("zoom_in");
  EXPECT_EQ(looks(), "175 00000") << "from what was seen";
  for (const auto& [stored, expected] : {std::pair("12", "75 10000"),
                                         {"99999", "300 00010"},
                                         {"-150", "100 01000"},
                                         {"1x", "100 01000"}}) {
    desk.store["View"]["Zoom"] = stored;
    start();
    EXPECT_EQ(looks(), expected) << stored;
  }
  pick("map_colours");
  start();
  EXPECT_TRUE(secondColoursInForce() && shown().empty());
  desk.storeWorks = false;
  pick("map_colours");
  EXPECT_EQ(shown(), "表示の設定に書き込めません");
  EXPECT_FALSE(secondColoursInForce());
}

TEST_F(MainWindow, EnglishReachesEveryCaptionAndJapaneseStays) {
  start();
  EXPECT_EQ(form1().menuBar.find("owari")->caption() + form1().Frame5.caption(), "終了VQ マップ");
  writeText("zelkova.ini", firstSettings(""));
  start();
  Form1& form = form1();
  const std::string captions = tree(form.menuBar, [](const auto& item) { return item.caption(); });
  EXPECT_TRUE(isAscii(captions)) << captions;
  for (int tab = 1; tab <= 14; ++tab) {
    EXPECT_TRUE(isAscii(form.TabStrip1.tab(tab).caption)) << tab;
    EXPECT_FALSE(isAscii(form.TabStrip1.tab(tab).toolTip)) << "tool tips have no English form";
  }
  EXPECT_EQ(form.Label22.caption() + form.Frame5.caption(), "HEX this frame insideVQ map");
}

TEST_F(MainWindow, ADialogThatFailsToOpenGivesTheMainWindowBack) {
  start();
  Window dialog("dialog");
  dialog.onLoad = [] { throw std::bad_alloc(); };
  EXPECT_THROW(openDialog(dialog), std::bad_alloc);
  EXPECT_TRUE(form1().takesInput() && !dialog.loaded());
}

TEST_F(MainWindow, ClosingAsksUntilTheAnswerIsYesAndSavesNothing) {
  loadSmallCar();
  form1().Grid1.setText(1, 1, "9");
  for (const auto& [english, answer, closeBox] :
       {std::tuple(1, BoxAnswer::no, false), std::tuple(1, BoxAnswer::no, true),
        std::tuple(0, BoxAnswer::no, false), std::tuple(1, BoxAnswer::yes, true)}) {
    editorState.english = english;
    desk.boxAnswers.push_back(answer);
    closeBox ? form1().userClose() : pick("owari");
    EXPECT_EQ(told(), english ? "Do you end without preserving data?"
                              : "データを保存しないで終了しますか？");
    EXPECT_EQ(desk.ended, answer == BoxAnswer::yes);
    EXPECT_EQ(form1().loaded(), answer == BoxAnswer::no);
  }
  EXPECT_EQ(readBytes("image.bin"), patternImage(0x400));
  EXPECT_EQ(readText("zelkova.ini"), firstSettings("map.adr"));
}

TEST_F(MainWindow, StartsWithoutAnImageWhateverTheListHolds) {
  desk.store["Recent Files"]["RecentFile1"] = path("image.bin");
  writeBytes("image.bin", patternImage(64));
  startWithMap(smallMap());
  EXPECT_EQ(editorState.image.size(), 120001U);
  EXPECT_FALSE(isRomLoaded());
  EXPECT_EQ(form1().Grid1.text(1, 1) + form1().Text1.text() + form1().Label20.caption(), "N/A");
  pick("CALCU");
  EXPECT_EQ(desk.programs, std::vector{path("calc95_re.exe")});
  for (const int tab : {14, 5, 0, 15}) selectTab(tab);
  EXPECT_TRUE(editorState.currentTab == 5 && form1().frontPanel() == 5);
  pick("owari");
  EXPECT_TRUE(desk.ended && desk.boxes.empty());
}

}  // namespace
