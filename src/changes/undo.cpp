#include "changes/undo.h"

#include <string>

#include "core/form1.h"
#include "core/history.h"
#include "core/wording.h"

namespace {

void showStep(const char* row, const Wording& word, bool there, const std::string& name) {
  MenuItem* const item = form1().menuBar.find(row);
  if (!item) return;
  item->setCaption(there ? captioned(word) + ": " + name : captioned(word));
  item->setEnabled(there);
}

}  // namespace

void undoChange() { undoStep(); }

void redoChange() { redoStep(); }

void showHistory() {
  showStep("undo", {"元に戻す", "Undo"}, canUndo(), undoName());
  showStep("redo", {"やり直し", "Redo"}, canRedo(), redoName());
}
