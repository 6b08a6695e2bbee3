#include "frontend/about.h"

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "platform/failure.h"
#include "platform/files.h"

FrmAbout frmAbout;

namespace {

constexpr Colour warningColour = rgb(255, 0, 0);

bool playsSound() { return editorState.aboutSound == "TRAN"; }

}  // namespace

FrmAbout::FrmAbout() : Window("frmAbout") {
  const auto load = [this] { trapFailure([this] { open(); }); };
  wireDialog(*this, {load, &cmdOK, {}, &cmdOK, &cmdOK});
  att1.setColour(warningColour);
  onUnload = [] {
    if (playsSound()) desktop().stopSound();
  };
  Label6.onClick = [this] { openSupport(); };
}

void FrmAbout::open() {
  if (playsSound()) desktop().stopSound();
  lblVersion.setCaption(programVersion);
  setCaption(captioned({"ﾊﾞｰｼﾞｮﾝ情報", "Version Info."}));
  att1.setCaption(captioned(
      {"警告: "
       "このツールを使用して、いかなる事態が発生しても一切の保証は行いません。あくまで本人の責任"
       "の上で行ってください。",
       "Warning: All the responsibility of this tool is abandoned. Take responsibility by each "
       "one in using it."}));
  Label6.setCaption(joinPath(joinPath(editorState.appPath, "manual"), "index.html"));
  if (playsSound()) {
    desktop().playSound(joinPath(editorState.appPath, "info_demo.wav"), SoundMode::looping);
  }
}

void FrmAbout::openSupport() {
  desktop().openAddress(Label6.caption());
  closeDialog(*this);
}

void ver_displ() { openDialog(frmAbout); }
