#include "frontend/startup.h"

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "frontend/splash.h"

void startProgram(const std::string& appPath) {
  editorState.appPath = appPath;
  frmSplash.load();
  desktop().showWindow(frmSplash);
}
