// Opening and closing of dialogs over the main window, and the boxes that many commands share.
#pragma once

#include <functional>
#include <string>

#include "controls/button.h"
#include "controls/desktop.h"
#include "controls/window.h"
#include "core/wording.h"

// Shows `dialog` above all windows, or takes it out of that order.
void makeTopmost(Window& dialog, bool on);
// Form1 is disabled, the dialog loaded, centred on Form1 and shown topmost.
void openDialog(Window& dialog);
// The reverse.
void closeDialog(Window& dialog);

// What a dialog does when it opens, at OK and at CANCEL.
struct DialogParts {
  std::function<void()> load;  // fills the dialog
  Button* ok = nullptr;        // also the Enter key
  std::function<void()> accept;
  Button* cancel = nullptr;  // also the Escape key and the close box; closes and does no more
  Control* firstFocus = nullptr;
};
void wireDialog(Window& dialog, DialogParts parts);

// A critical box titled "エラー" or "Error": the refusal of a command.
void showRefusal(const Wording& text);
// The same with a text that is made up at run time.
void showMadeUpRefusal(const BothTexts& text);
// The box of a command's failure: "*ERROR = [", the number, "]", `remark` and the name of the file.
void showFailure(int number, const std::string& remark = {}, const std::string& name = {},
                 BoxIcon icon = BoxIcon::critical);
// The box of a routine without a file: "ERROR (Function:", the name in upper case and ")".
void showRoutineError(const std::string& routine);
// The box of an unknown map number.
void showUnknownMap(const Wording& text);

extern const char* const failureTitle;  // "Detected error.This error is not fatal."
extern const Wording errorTitle;        // "エラー", "Error"
