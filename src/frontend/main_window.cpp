#include "frontend/main_window.h"

#include <string>
#include <vector>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/global_parameters.h"
#include "core/map_cells.h"
#include "core/map_kinds.h"
#include "core/progress.h"
#include "core/rom_image.h"
#include "core/unsaved_guard.h"
#include "core/unsaved_states.h"
#include "core/wording.h"
#include "editing/cell_editing.h"
#include "frontend/opening.h"
#include "imagefiles/file_watch.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace {

void selectTab() {
  Form1& form = form1();
  editorState.currentTab = form.TabStrip1.selected();
  form.bringPanelToFront(editorState.currentTab);
  const MapKind* const map = activeMap();
  if (!map || map->rules().after == AfterEffect::none) return;
  showAfterEffect(*map);
  form.refresh();
}

bool userKeepsEditing() {
  const Wording title{"保存確認", "I confirm a preservation"};
  const Wording question{"データを保存しないで終了しますか？",
                         "Do you end without preserving data?"};
  const BoxAnswer answer =
      desktop().showBox({BoxIcon::information, BoxButtons::yesNo, worded(title), worded(question)});
  return answer == BoxAnswer::no;
}

// Whether unsaved data keeps the window open. A failure on the way closes it.
bool staysOpen() {
  bool stays = false;
  trapFailure([&stays] {
    if (editorState.imageSize == 0) return;
    editorState.progressCount = 0;
    writeBackAll();
    setProgress(-1);
    stays = imageDiffersFromSaved() && userKeepsEditing();
  });
  return stays;
}

}  // namespace

void wireForm1() {
  Form1& form = form1();
  form.TabStrip1.onClick = selectTab;
  form.onClose = closeForm1;
  form.onFront = lookAtFiles;
  form.onDrop = [](const std::vector<std::string>& paths, bool control) {
    openFiles(paths, control ? Opening::compared : Opening::dropped);
  };
  wireMapGrids();
  wireGlobalParams();
}

void closeForm1() {
  if (staysOpen()) return;
  keepGivenUpImage();
  form1().unload();
  desktop().quit();
}

void CALCU() {
  if (!desktop().startProgram(joinPath(editorState.appPath, "calc95_re.exe"))) {
    desktop().startCalculator();
  }
}
