#include "frontend/main_menu.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "calc/af_table.h"
#include "calc/engine_specification.h"
#include "changes/differences_window.h"
#include "changes/look_commands.h"
#include "changes/undo.h"
#include "changes/view_commands.h"
#include "controls/letters.h"
#include "core/address_loading.h"
#include "core/boost.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "core/recent_maps.h"
#include "editing/add_multiply.h"
#include "editing/address_dialog.h"
#include "editing/cell_change_dialogs.h"
#include "editing/cell_editing.h"
#include "editing/copy_paste.h"
#include "editing/map_copy.h"
#include "editing/map_shift.h"
#include "editing/smoothing.h"
#include "exchange/export_files.h"
#include "exchange/print_dialog.h"
#include "exchange/spreadsheet.h"
#include "frontend/about.h"
#include "frontend/environment.h"
#include "frontend/main_window.h"
#include "frontend/opening.h"
#include "graphs/graph_3d_display.h"
#include "graphs/tp_curve.h"
#include "imagefiles/any_form.h"
#include "imagefiles/comparison_image.h"
#include "imagefiles/earlier_states_window.h"
#include "imagefiles/image_files.h"
#include "imagefiles/odd_even.h"
#include "imagefiles/recent_loading.h"
#include "imagefiles/vq_tables.h"

namespace {

constexpr Tabs tab(int number) { return Tabs{1} << number; }

constexpr Tabs airflow = tab(airflowTab);
constexpr Tabs parameters = tab(globalTab);

constexpr CommandGuard copying{{"ROM DATAが読み込まれていないのに、データのコピーはできません。",
                                "ROM DATA reads and been crowded, a copy of data aren't possible."},
                               parameters,
                               {"この画面で、コピー機能は使用できません。",
                                "With this screen, a copy function can be useful."}};
constexpr CommandGuard pasting{
    {"ROM DATAが読み込まれていないのに、データの張り付けはできません。",
     "ROM DATA reads and been crowded, stretching and attaching it of data aren't possible."},
    parameters,
    {"この画面で、張り付けは使用できません。",
     "With this screen, stretching and attaching it can be useful."}};
constexpr CommandGuard mapCopying{
    {"ROM DATAが読み込まれていないのに、データコピーはできません。",
     "ROM DATA reads and been crowded, a data copy aren't possible."}};
constexpr CommandGuard adding{
    {"ROM DATAが読み込まれていないのに、データの増減はできません。",
     "ROM DATA reads and been crowded, addition and reduction of data aren't possible."}};
constexpr CommandGuard multiplying{
    {"ROM DATAが読み込まれていないのに、データの乗算はできません。",
     "ROM DATA reads and been crowded, a multiplication of data aren't possible."}};
constexpr CommandGuard smoothing{
    {"ROM DATAが読み込まれていないのに、データのスムージングはできません。",
     "ROM DATA is smooth and aren't possible for data, been crowded as reading."}};
constexpr CommandGuard addressEditing{
    {"ROM DATAが読み込まれていないのに、データ編集はできません。",
     "ROM DATA reads and been crowded, a data editing aren't possible."}};
constexpr CommandGuard shifting{
    {"ROM DATAが読み込まれていないのに、マップシフトはできません。",
     "ROM DATA reads and been crowded, map shift aren't possible."},
    airflow | parameters,
    {"この画面で、マップシフトはできません。", "With this screen, map shift aren't possible."}};
constexpr CommandGuard airflowTables{
    {"ROM DATAが読み込まれていないのに、VQMAP変換はできません。",
     "ROM DATA reads and been crowded, VQMAP conversion aren't possible."}};
constexpr CommandGuard graphIn3D{{"ROM DATAが読み込まれていないのに、3Dグラフ編集はできません。",
                                  "ROM DATA reads and been crowded, 3D graph editing aren't "
                                  "possible."},
                                 airflow | parameters,
                                 {"この画面で、3Dグラフ編集はできません。",
                                  "With this screen, 3D graph editing aren't possible."}};
constexpr CommandGuard graphIn2D{{"ROM DATAが読み込まれていないのに、2Dグラフ編集はできません。",
                                  "ROM DATA reads and been crowded, 2D graph editing aren't "
                                  "possible."},
                                 ~(tab(1) | tab(2)),
                                 {"この画面で、2Dグラフ編集はできません。",
                                  "With this screen, 2D graph editing aren't possible."}};
// The ignition maps, the airflow map and the single parameters have no fuel in them.
constexpr CommandGuard airFuelTable{
    {"ROM DATAが読み込まれていないのに、A/F表示はできません。",
     "ROM DATA reads and been crowded, A/F display aren't possible."},
    tab(2) | tab(4) | airflow | parameters,
    {"この画面で、A/F表示はできません。", "With this screen, A/F display aren't possible."}};
constexpr CommandGuard boost{
    {"ROM DATAが読み込まれていないのに、加給圧の計算はできません。",
     "ROM DATA reads and been crowded, a calculation of boost aren't possible."}};

// The added commands say it in one way.
constexpr CommandGuard needsImage{{"ROM DATAが読み込まれていません。", "No ROM image is loaded."}};

// The recent address maps, as the store has them now.
void followRecentMaps(MenuItem& menu) {
  const std::vector<std::string> maps = recentMaps();
  std::size_t place = 0;
  for (const auto& item : menu.children()) {
    const bool listed = place < maps.size();
    if (listed) item->setCaption(maps[place]);
    item->setVisible(listed);
    ++place;
  }
  menu.setEnabled(!maps.empty());
}

const MenuRow rows[] = {
    {1, "file_load", "ﾌｧｲﾙ", "File", "", nullptr},
    {2, "read_read", "読み込み", "Load", "", nullptr},
    {3, "load_bin_file", "読み込み(BIN)", "Load (BIN)", "Ctrl+O", load_bin_file},
    {3, "LOAD_IntelHEX_FILE", "読み込み(IntelHEX)", "Load (IntelHEX)", "Ctrl+H",
     LOAD_IntelHEX_FILE},
    {2, "update_bin_file", "上書き保存", "Save", "Ctrl+S", update_bin_file},
    {2, "any_anme_save", "別名保存", "Save as...", "", nullptr},
    {3, "write_bin_file", "別名保存(BIN)", "Save as (BIN)", "Ctrl+Shift+S", write_bin_file},
    {3, "ANY_NAME_SAVE_IntelHEX", "別名保存(IntelHEX)", "Save as (IntelHEX)", "",
     ANY_NAME_SAVE_IntelHEX},
    {2, "odd_even_file", "奇数/偶数ファイル", "ODD/EVEN File", "", odd_even_file},
    {2, "Norika", "比較元ファイル読み込み", "Comparison File", "", nullptr},
    {3, "comp_bin", "読み込み(BIN)", "Load (BIN)", "", comp_bin},
    {3, "comp_intelHex", "読み込み(IntelHEX)", "Load (IntelHEX)", "", comp_intelHex},
    {2, "spa", "-", "", "", nullptr},
    {2, "owari", "終了", "Quit", "Ctrl+Q", closeForm1},
    {2, "space2", "-", "", "", nullptr},
    {1, "edit_0", "編集", "Edit", "", nullptr},
    {2, "CPY", "コピー", "Copy", "Ctrl+C", CPY, &copying},
    {2, "PST", "張り付け", "Paste", "Ctrl+V", PST, &pasting},
    {2, "dt_cpy", "データコピー", "Data copy", "", nullptr},
    {3, "F_F", "燃料・点火", "Fuel/Ignition time.", "", F_F, &mapCopying},
    {3, "T_R", "TP/回転スケール", "TP/RPM scale", "", T_R, &mapCopying},
    {2, "DDDEEDS", "機能", "Function", "", nullptr},
    {3, "add_dec", "増減", "Addition and reduction", "", add_dec, &adding},
    {3, "kakeru", "乗算", "Multiplication", "", kakeru, &multiplying},
    {3, "smooth", "スムージング", "Smooth", "", smooth, &smoothing},
    {3, "ADR_EDIT", "アドレス指定編集", "Address specification edit", "", ADR_EDIT,
     &addressEditing},
    {3, "DT_SFT", "マップシフト", "Data shift", "", DT_SFT, &shifting},
    {3, "vq_chan", "VQ MAP変更", "Replace VQ map", "", nullptr},
    {4, "use_z32_vq", "Z32 - VG30DETT", "", "", use_z32_vq, &airflowTables},
    {4, "use_hcr32_vq", "HCR32 - RB20DET", "", "", use_hcr32_vq, &airflowTables},
    {4, "use_bnr32_vq", "BNR32 - RB26DETT", "", "", use_bnr32_vq, &airflowTables},
    {4, "user_ecr33_vq", "ECR33 - RB25DET", "", "", user_ecr33_vq, &airflowTables},
    {4, "use_y32_vq", "Y32 - VG30DET", "", "", use_y32_vq, &airflowTables},
    {4, "use_s13_vq", "S13 - CA18DET", "", "", use_s13_vq, &airflowTables},
    {4, "use_ps13_vq", "PS13 - SR20DET", "", "", use_ps13_vq, &airflowTables},
    {4, "use_s14_vq", "S14 - SR20DET", "", "", use_s14_vq, &airflowTables},
    {4, "use_s15_vq", "S15 - SR20DET", "", "", use_s15_vq, &airflowTables},
    {2, "G_EDIT_RR", "グラフ編集", "Graph editing", "", nullptr},
    {3, "DISP_3D_Graph", "3D グラフ編集", "3D Graph editing", "Ctrl+G", DISP_3D_Graph, &graphIn3D},
    {3, "TP_2D", "TP SCALE 2D グラフ編集", "2D Graph editing. TP only", "", TP_2D, &graphIn2D},
    {2, "AF_DISP_FORM", "A/F表示", "A/F Display", "", AF_DISP_FORM, &airFuelTable},
    {2, "TP_BST_RECAL", "TP/加給再計算", "TP/Boost Re-calculation", "Ctrl+R", TP_BST_RECAL, &boost},
    {2, "CALCU", "Windows電卓", "Calculator", "Ctrl+N", CALCU},
    {1, "S___", "設定", "Setup", "", nullptr},
    {2, "load_map_addr", "機種別アドレス読み込み", "Are crowded as reading address file", "",
     load_map_addr},
    {2, "set_spl", "仕様設定", "Engine specification setup", "", set_spl},
    {2, "SET_DEFAULT_FOLDER", "環境設定", "Environment set up", "", SET_DEFAULT_FOLDER},
    {1, "changes", "変更", "Changes", "", nullptr},
    {2, "undo", "元に戻す", "Undo", "Ctrl+Z", undoChange},
    {2, "redo", "やり直し", "Redo", "Ctrl+Y; Ctrl+Shift+Z", redoChange},
    {2, "changes_line", "-", "", "", nullptr},
    {2, "set", "値の設定...", "Set...", "Ctrl+E", setSelection, &needsImage},
    {2, "percent", "パーセント増減...", "Percent...", "Ctrl+5", changeByPercent, &needsImage},
    {2, "interpolate", "補間", "Interpolate", "", nullptr},
    {3, "across", "横...", "Across...", "", interpolateAcross, &needsImage},
    {3, "down", "縦...", "Down...", "", interpolateDown, &needsImage},
    {3, "both", "縦横...", "Both ways...", "Ctrl+I", interpolateBoth, &needsImage},
    {2, "coarse_up", "10 段階増やす", "Ten steps up", "", stepCoarselyUp, &needsImage,
     followCoarseKeys},
    {2, "coarse_down", "10 段階減らす", "Ten steps down", "", stepCoarselyDown, &needsImage,
     followCoarseKeys},
    {2, "states_line", "-", "", "", nullptr},
    {2, "earlier_states", "以前の状態", "Earlier states...", "", showEarlierStates},
    {1, "view", "表示", "View", "", nullptr},
    {2, "against_nothing", "比較しない", "Compare with nothing", "", compareWithNothing, nullptr,
     followReference},
    {2, "against_file", "ファイルと比較", "Compare with the file", "", compareWithFile, nullptr,
     followReference},
    {2, "against_comparison", "比較元ファイルと比較", "Compare with the comparison image", "",
     compareWithComparison, nullptr, followReference},
    {2, "view_line", "-", "", "", nullptr},
    {2, "differences", "相違一覧", "Differences...", "Ctrl+D", showDifferences},
    {2, "next_difference", "次の相違", "Next difference", "F3", nextDifference},
    {2, "last_difference", "前の相違", "Previous difference", "Shift+F3", lastDifference},
    {2, "look_line", "-", "", "", nullptr},
    {2, "zoom", "拡大率", "Zoom", "", nullptr},
    {3, "zoom_in", "拡大", "Zoom in", "F8", zoomIn},
    {3, "zoom_out", "縮小", "Zoom out", "Shift+F8", zoomOut},
    {3, "zoom_line", "-", "", "", nullptr},
    {3, "zoom_75", "75 %", "", "", zoomTo<75>, nullptr, followZoom},
    {3, "zoom_100", "100 %", "", "Ctrl+F8", zoomTo<100>, nullptr, followZoom},
    {3, "zoom_125", "125 %", "", "", zoomTo<125>, nullptr, followZoom},
    {3, "zoom_150", "150 %", "", "", zoomTo<150>, nullptr, followZoom},
    {3, "zoom_200", "200 %", "", "", zoomTo<200>, nullptr, followZoom},
    {3, "zoom_300", "300 %", "", "", zoomTo<300>, nullptr, followZoom},
    {2, "fit_window", "ウィンドウに合わせる", "Fit the window", "F11", fitWindow, nullptr,
     followZoom},
    {2, "map_colours", "明るさで見分ける配色", "Colours from dark to bright", "", switchMapColours,
     nullptr, followMapColours},
    {1, "exchange", "交換", "Exchange", "", nullptr},
    {2, "copy_table", "表計算へコピー", "Copy for a spreadsheet", "Ctrl+Shift+C",
     copyForSpreadsheet, &needsImage},
    {2, "paste_table", "表計算から張り付け", "Paste from a spreadsheet", "Ctrl+Shift+V",
     pasteFromSpreadsheet, &needsImage},
    {2, "table_line", "-", "", "", nullptr},
    {2, "export_map", "マップの書き出し...", "Export map...", "", exportMap, &needsImage},
    {2, "report", "レポート...", "Report...", "", exportReport, &needsImage},
    {2, "print", "印刷...", "Print...", "Ctrl+P", printMaps, &needsImage},
    {2, "files_line", "-", "", "", nullptr},
    {2, "load_any_form", "任意の形式の読み込み...", "Load any form...", "", loadAnyForm},
    {2, "save_s_records", "別名保存(Sレコード)...", "Save as S-record...", "", saveAsSRecords},
    {2, "exchange_line", "-", "", "", nullptr},
    {2, "recent_maps", "最近のアドレスマップ", "Recent address maps", "", nullptr, nullptr,
     followRecentMaps},
    {1, "HLP777", "ヘルプ", "Help", "", nullptr},
    {2, "ver_displ", "バージョン情報", "Veriosn", "", ver_displ},
};

constexpr int recentFiles = 10;

// The recent files' entries end the first menu; hidden until a list is there.
void makeRecentEntries(MenuItem& fileMenu) {
  Form1& form = form1();
  for (std::size_t i = 0; i < recentFiles; ++i) {
    const std::string caption = i == 0 ? "-" : "RecentFile" + std::to_string(i);
    MenuItem& item = fileMenu.add(
        std::make_unique<MenuItem>(form, "mnuRecentFile" + std::to_string(i), caption));
    item.setVisible(false);
    if (i > 0) item.setLetter(static_cast<char>('0' + i));
    item.onClick = [i] { mnuRecentFile_Click(static_cast<int>(i)); };
    form.mnuRecentFile[i] = &item;
  }
}

void makeRecentMapEntries(MenuItem& menu) {
  for (std::size_t i = 1; i <= recentMapCount; ++i) {
    MenuItem& item =
        menu.add(std::make_unique<MenuItem>(menu.window(), "mnuRecentMap" + std::to_string(i)));
    item.setVisible(false);
    item.setLetter(static_cast<char>('0' + i));
    item.onClick = [&item] { openRecentMap(item.caption()); };
  }
}

bool refused(const CommandGuard& guard) {
  const bool withoutRom = !isRomLoaded();
  if (!withoutRom && !(guard.refusedTabs & tab(editorState.currentTab))) return false;
  showRefusal(withoutRom ? guard.withoutRom : guard.onRefusedTab);
  return true;
}

// What the command before said of its work no longer stands.
void run(const MenuRow& row) {
  form1().doneStatus.setCaption("");
  if (!row.guard || !refused(*row.guard)) row.routine();
}

// Each menu's rows get their letters from what they are called in English, in both languages.
class MenuLetters {
 public:
  void give(MenuItem& item, const MenuRow& row) {
    const auto level = static_cast<std::size_t>(row.level);
    if (level + 1 < taken_.size()) taken_[level + 1].clear();
    item.setLetter(freeLetter(*row.english ? row.english : row.japanese, taken_[level]));
  }

 private:
  std::array<std::string, 5> taken_;  // by level
};

void followState(MenuItem& bar, std::span<const MenuRow> shown) {
  for (const MenuRow& row : shown) {
    if (row.follow) row.follow(*bar.find(row.name));
  }
}

}  // namespace

std::span<const MenuRow> menuRows() { return rows; }

void addMenuRows(MenuItem& bar, std::span<const MenuRow> shown) {
  std::array<MenuItem*, 5> open{&bar};
  MenuLetters letters;
  for (const MenuRow& row : shown) {
    const auto level = static_cast<std::size_t>(row.level);
    MenuItem& item = open[level - 1]->add(
        std::make_unique<MenuItem>(bar.window(), row.name, row.japanese, row.shortcut));
    letters.give(item, row);
    if (row.routine) item.onClick = [&row] { run(row); };
    if (row.level == 1) item.onOpen = [&bar, shown] { followState(bar, shown); };
    open[level] = &item;
  }
}

void makeMainMenu() {
  Form1& form = form1();
  addMenuRows(form.menuBar, rows);
  makeRecentEntries(*form.menuBar.find("file_load"));
  makeRecentMapEntries(*form.menuBar.find("recent_maps"));
}
