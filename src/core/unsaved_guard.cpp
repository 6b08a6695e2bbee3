#include "core/unsaved_guard.h"

#include <algorithm>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/progress.h"
#include "core/rom_image.h"
#include "core/wording.h"

namespace {

const Wording title{"読み込み確認", "I confirm it including a reading"};
const Wording question{"データを保存しないで新しいデータを読み込みますか？",
                       "It is crowded as reading, though it aren't preserved for data ?"};

bool userDiscards() {
  const BoxAnswer answer =
      desktop().showBox({BoxIcon::information, BoxButtons::yesNo, worded(title), worded(question)});
  return answer == BoxAnswer::yes;
}

}  // namespace

bool imageDiffersFromSaved() {
  const RomImage& image = editorState.image;
  const RomImage& saved = editorState.savedImage;
  const auto size = static_cast<std::size_t>(std::max(editorState.imageSize, 0));
  if (image.size() < size || saved.size() < size) return image != saved;
  return !std::equal(image.begin(), image.begin() + static_cast<std::ptrdiff_t>(size),
                     saved.begin());
}

void confirmDiscard() {
  desktop().setBusyPointer(true);
  editorState.guardAnswer = 1;
  if (editorState.imageSize != 0) {
    editorState.progressCount = 0;
    writeBackAll();
    setProgress(-1);
    if (imageDiffersFromSaved()) {
      desktop().setBusyPointer(false);
      editorState.guardAnswer = userDiscards() ? 1 : 0;
    }
  }
  desktop().setBusyPointer(false);
}
