#include "frontend/splash.h"

#include <functional>
#include <utility>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "frontend/form1_loading.h"
#include "platform/files.h"

FrmSplash frmSplash;

FrmSplash::FrmSplash() : Window("frmSplash") {
  Label3.setColour(rgb(206, 218, 204));
  Label4.setColour(rgb(170, 226, 120));
  onLoad = [this] {
    // Centring takes the first look at the main window, which brings it up.
    loadForm1();
    centreOn(form1());
    desktop().playSound(joinPath(editorState.appPath, "first_demo.wav"), SoundMode::once);
    Timer1.restart(showingTime);
  };
  onUnload = [this] { Timer1.setEnabled(false); };
  onKey = closeSplash;
  for (Label* part : {&Picture1, &Picture2, &Picture3, &Label3, &Label4})
    part->onClick = closeSplash;
  Frame1.onClick = closeSplash;
  Timer1.onTimer = closeSplash;
}

void closeSplash() {
  if (!frmSplash.loaded()) return;
  desktop().showWindow(form1());  // first: the screen shows no gap between the two
  frmSplash.unload();
  desktop().bringToFront(form1());
  if (const auto goOn = std::exchange(frmSplash.onGone, nullptr)) goOn();
}
