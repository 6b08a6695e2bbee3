#include "frontend/startup.h"

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "frontend/opening.h"
#include "frontend/splash.h"

void startProgram(const std::string& appPath, const std::vector<std::string>& files) {
  editorState.appPath = appPath;
  frmSplash.onGone = [files] { openFiles(files, Opening::named); };
  frmSplash.load();
  desktop().showWindow(frmSplash);
}
