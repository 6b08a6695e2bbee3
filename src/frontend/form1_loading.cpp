#include "frontend/form1_loading.h"

#include "changes/differences_window.h"
#include "changes/look_commands.h"
#include "changes/undo.h"
#include "controls/mark_meaning.h"
#include "core/address_map.h"
#include "core/differences.h"
#include "core/earlier_states.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/map_display.h"
#include "core/map_kinds.h"
#include "core/notices.h"
#include "core/progress.h"
#include "core/settings_file.h"
#include "core/status_line.h"
#include "core/unsaved_states.h"
#include "core/wording.h"
#include "frontend/languages.h"
#include "frontend/main_menu.h"
#include "frontend/main_window.h"
#include "frontend/manual.h"
#include "imagefiles/earlier_states_window.h"
#include "imagefiles/recent_files.h"
#include "imagefiles/vq_tables.h"
#include "rom/progress_steps.h"

namespace {

std::string textOf(const ScaleCell& cell) {
  return cell.scale ? gridOf(*cell.scale).text(cell.row, cell.column) : std::string();
}

// A map is called by its caption; a scale by its own name behind that of the map beside it.
void nameGrid(Form1& form, const MapKind& kind) {
  Grid& grid = gridOf(kind);
  Captioned* caption = kind.frame ? static_cast<Captioned*>(&(form.*kind.frame)) : nullptr;
  if (kind.label) caption = &(form.*kind.label);
  if (kind.isScale()) caption = &(form.*mapKindOfTab(kind.tab)->frame);
  if (caption) grid.nameAfter({caption});
  if (kind.family == MapFamily::tpScale) grid.setOwnName(captioned({"TP スケール", "TP scale"}));
  if (kind.family == MapFamily::rpmScale) {
    grid.setOwnName(captioned({"回転 スケール", "RPM scale"}));
  }
  grid.columnMeaning = [&kind](int column) { return textOf(loadCellOf(kind, column)); };
  grid.rowMeaning = [&kind](int row) { return textOf(speedCellOf(kind, row)); };
}

std::string spokenMark(Mark mark) {
  if (mark == Mark::none) return {};
  return mark == Mark::differs ? captioned({"相違あり", "differs"})
                               : captioned({"保存できない値", "can't be stored"});
}

// What the fields of the main window are called: after what stands beside or around them.
void nameFields(Form1& form) {
  markMeaning = spokenMark;
  for (const MapKind& kind : mapKinds()) nameGrid(form, kind);
  for (const ParamKind& kind : paramKinds()) {
    TextBox& box = form.*kind.box;
    if (kind.unit) {
      box.nameAfter({&(form.*kind.label), &(form.*kind.unit)});
    } else {
      box.nameAfter({&(form.*kind.label)});
    }
  }
  form.Picture2.nameAfter({&form.Label14});
  form.TabStrip1.setOwnName(captioned({"マップ", "Maps"}));
}

void followGesture() {
  showHistory();
  showStatus();
  differencesWindow.follow();
}

}  // namespace

void loadForm1() {
  Form1& form = form1();
  if (form.loaded()) return;
  makeMainMenu();
  wireForm1();
  wireNotices();
  resetEntryNames();
  form.load();
  editorState.currentTab = 1;
  loadVqTables();
  readSettings();
  CHANGE_CAPT(editorState.english);
  nameFields(form);
  setGridLayout();
  restoreLook();
  editorState.image = RomImage(startImageBytes);
  form.bringPanelToFront(1);
  rebuildRecentMenu();
  onHistoryChange = followGesture;
  onHelp = openManual;
  onRecordsDone = setProgressOf;
  resetDifferences();
  form.onUnload = [] { differencesWindow.unload(); };
  differencesWindow.unload();
  nameNoticeButtons();
  resetEarlierStates();
  watchUnsavedImage(showEarlierStates);
  wireStatus();
  keepHistory();
  showHistory();
}
