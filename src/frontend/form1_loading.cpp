#include "frontend/form1_loading.h"

#include "changes/undo.h"
#include "core/address_map.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/map_display.h"
#include "core/settings_file.h"
#include "frontend/languages.h"
#include "frontend/main_menu.h"
#include "frontend/main_window.h"
#include "imagefiles/recent_files.h"
#include "imagefiles/vq_tables.h"

void loadForm1() {
  Form1& form = form1();
  if (form.loaded()) return;
  makeMainMenu();
  wireForm1();
  resetEntryNames();
  form.load();
  editorState.currentTab = 1;
  loadVqTables();
  readSettings();
  CHANGE_CAPT(editorState.english);
  setGridLayout();
  editorState.image = RomImage(startImageBytes);
  form.bringPanelToFront(1);
  rebuildRecentMenu();
  onHistoryChange = showHistory;
  keepHistory();
  showHistory();
}
