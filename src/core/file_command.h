// The frame of a command that touches files: one trap for all failures, the log, the box, and a
// last step that runs on every path.
#pragma once

#include <functional>
#include <string>

struct FileCommand {
  std::string location;                  // the command's name in the log
  std::function<void()> steps;           // may fail
  std::function<void(int)> tellFailure;  // shows the box; not called for a cancelled dialog
  // Runs after a failure of any number, cancelled dialogs included, before it is logged.
  std::function<void(int)> onFailure = {};
};

// Runs the steps. In all cases the progress bar goes to 0, the status label is emptied and the
// pointer is normal at the end. Returns 0 or the failure's number.
int runFileCommand(const FileCommand& command);

// The long operation's word on the status label, shown at once, with the busy pointer.
void showOperation(const std::string& word);
