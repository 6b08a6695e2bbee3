#include "core/title_and_size.h"

#include "core/editor_state.h"
#include "core/form1.h"
#include "platform/numbers.h"

void updateTitleBar() { form1().setCaption(editorState.imageTitle + " - ZELKOVA"); }

void showFileSize() {
  form1().Label20.setCaption("File size = " + signedBlank(editorState.imageSize) + " Bytes");
}
