#include "core/loaded_image.h"

#include <cstdint>
#include <limits>
#include <utility>

#include "core/data_replaced.h"
#include "core/form1.h"
#include "core/image_notices.h"
#include "core/title_and_size.h"
#include "core/unsaved_states.h"
#include "platform/failure.h"

void takeImage(RomImage bytes) {
  if (bytes.empty()) throw Failure(badSubscript);
  if (bytes.size() > std::numeric_limits<std::int32_t>::max()) throw Failure(overflow);
  editorState.savedImage = bytes;
  editorState.imageSize = static_cast<std::int32_t>(bytes.size());
  editorState.image = std::move(bytes);
  editorState.imageIsOneHalf = false;
  editorState.imageLayout.reset();
}

void dropImage() {
  keepGivenUpImage();
  dataReplaced();
  editorState.image.clear();
  editorState.savedImage.clear();
  editorState.imageSize = 0;
  withdrawContents();
  showFileSize();
  form1().setCaption("ZELKOVA");
}

void keepChosen(const ChosenFile& chosen) {
  editorState.dialogPath = chosen.path;
  editorState.dialogTitle = chosen.title;
}

void nameImage() {
  editorState.imagePath = editorState.dialogPath;
  editorState.imageTitle = editorState.dialogTitle;
}
