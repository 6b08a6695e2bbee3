#include "frontend/startup.h"

#include "core/editor_state.h"
#include "frontend/splash.h"
#include "platform/desktop.h"

void startProgram(const std::string& appPath) {
  editorState.appPath = appPath;
  frmSplash.load();
  desktop().showWindow(frmSplash);
}
