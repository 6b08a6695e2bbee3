#include "graphs/graph_export.h"

#include <memory>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/file_export.h"
#include "core/wording.h"

PictureMenu::PictureMenu(Window& owner)
    : menu(owner, "picture_menu"),
      exportRow_(
          menu.add(std::make_unique<MenuItem>(owner, "export_picture", "", "Ctrl+Shift+S"))) {
  exportRow_.setLetter('E');
}

void PictureMenu::wire(Canvas& canvas, Picture (*picture)(), std::string (*name)()) {
  canvas.onMenu = [this] { desktop().popUpMenu(menu); };
  exportRow_.onClick = [picture, name] {
    const FileDialog dialog{pictureFilter, captioned({"画像の書き出し", "Export picture"}),
                            editorState.romFolder, exportName() + ' ' + name() + ".svg"};
    exportFile("画像の書き出し", dialog,
               [picture](const std::string& path) { return pictureFile(picture(), path); });
  };
}

void PictureMenu::takeWords() {
  menu.setCaption(captioned({"画像", "Picture"}));
  exportRow_.setCaption(captioned({"画像の書き出し...", "Export picture..."}));
}
