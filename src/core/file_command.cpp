#include "core/file_command.h"

#include "controls/desktop.h"
#include "core/error_log.h"
#include "core/form1.h"
#include "core/progress.h"
#include "platform/failure.h"

int runFileCommand(const FileCommand& command) {
  const int number = trapFailure(command.steps);
  if (number != 0) {
    if (command.onFailure) command.onFailure(number);
    desktop().setBusyPointer(false);
  }
  logError(command.location, number, failureText(number));
  if (number != 0 && number != cancelled && command.tellFailure) command.tellFailure(number);
  setProgress(-1);
  form1().Label13.setCaption("");
  desktop().setBusyPointer(false);
  return number;
}

void showOperation(const std::string& word) {
  desktop().setBusyPointer(true);
  form1().Label13.setCaption(word);
  form1().refresh();
}
