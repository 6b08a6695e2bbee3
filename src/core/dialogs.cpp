#include "core/dialogs.h"

#include <string>
#include <utility>

#include "controls/letters.h"
#include "core/editor_state.h"
#include "core/form1.h"

const char* const failureTitle = "Detected error.This error is not fatal.";
const Wording errorTitle{"エラー", "Error"};

void makeTopmost(Window& dialog, bool on) {
  dialog.setTopmost(on);
  if (on) desktop().showWindow(dialog);
}

void openDialog(Window& dialog) {
  form1().setEnabled(false);
  dialog.centreOn(form1());
  try {
    dialog.load();
    if (editorState.english == 1) giveLetters(dialog);
    makeTopmost(dialog, true);
  } catch (...) {
    // A dialog that doesn't come up must not leave the main window without input.
    closeDialog(dialog);
    throw;
  }
}

void closeDialog(Window& dialog) {
  form1().setEnabled(true);
  makeTopmost(dialog, false);
  dialog.unload();
}

void wireDialog(Window& dialog, DialogParts parts) {
  dialog.onLoad = std::move(parts.load);
  dialog.defaultButton = parts.ok;
  dialog.cancelButton = parts.cancel;
  dialog.firstFocus = parts.firstFocus;
  parts.ok->onClick = std::move(parts.accept);
  parts.cancel->onClick = [&dialog] { closeDialog(dialog); };
}

void showRefusal(const Wording& text) {
  desktop().showBox({BoxIcon::critical, BoxButtons::ok, worded(errorTitle), worded(text)});
}

void showMadeUpRefusal(const BothTexts& text) {
  desktop().showBox({BoxIcon::critical, BoxButtons::ok, worded(errorTitle),
                     editorState.english != 0 ? text.english : text.japanese});
}

void showFailure(int number, const std::string& remark, const std::string& name, BoxIcon icon) {
  const std::string text = "*ERROR = [" + std::to_string(number) + "]" + remark + name;
  desktop().showBox({icon, BoxButtons::ok, failureTitle, text, name});
}

void showRoutineError(const std::string& routine) {
  desktop().showBox(
      {BoxIcon::critical, BoxButtons::ok, "ERROR", "ERROR (Function:" + routine + ")"});
}

void showUnknownMap(const Wording& text) {
  desktop().showBox({BoxIcon::none, BoxButtons::ok, "ZELKOVA", worded(text)});
}
