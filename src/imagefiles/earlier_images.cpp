#include "imagefiles/earlier_images.h"

#include <optional>
#include <string>
#include <utility>

#include "controls/desktop.h"
#include "core/dialogs.h"
#include "core/extensions.h"
#include "core/file_command.h"
#include "core/loaded_image.h"
#include "core/loader_tail.h"
#include "core/overwrite_question.h"
#include "core/refusals.h"
#include "core/settings_file.h"
#include "core/title_and_size.h"
#include "core/unsaved_guard.h"
#include "imagefiles/file_watch.h"
#include "imagefiles/image_forms.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "rom/image_reading.h"
#include "rom/image_writing.h"

namespace {

const Wording copyTitle{"以前の状態のコピーを保存", "Save a copy of an earlier state"};

// How it lies in the file, too, if the file's name doesn't tell it.
struct Decoded {
  RomImage image;
  std::optional<FileLayout> layout = {};
};

Decoded decodedByContent(const StateLayout& layout, const RomImage& fileBytes) {
  try {
    const ImageContent content = readImageContent(fileBytes);
    if (content.form != layout.form) throw Failure(badSubscript);
    return {bytesFrom(content, layout.base), layoutOf(content, layout.base)};
  } catch (const ImageFault&) {
    throw Failure(badSubscript);
  }
}

Decoded decoded(const StateRecord& record, RomImage fileBytes) {
  if (record.layout) return decodedByContent(*record.layout, fileBytes);
  const ImageForm* const named = imageFormOf(record.path);
  return {(named ? *named : rawImages).decode(std::move(fileBytes))};
}

// A file that is gone or no image holds nothing that counts as saved; nor does one half of a pair.
Decoded imageOnDisk(const StateRecord& record) {
  Decoded found;
  watchFiles({});
  if (record.oneHalf) return found;
  trapFailure([&] { found = decoded(record, readWatched(record.path)); });
  return found;
}

// Where the state is a file its own gaps count, else those of the file on disk.
std::optional<FileLayout> layoutFor(const EarlierState& state,
                                    const std::optional<FileLayout>& onDisk) {
  const StateRecord& record = *state.record;
  if (!record.layout) return std::nullopt;
  if (record.kind == StateKind::overwritten) return decoded(record, bytesOf(state)).layout;
  return onDisk ? onDisk : FileLayout{record.layout->form, record.layout->base};
}

// The image is there before the former one is given up.
void loadSteps(const EarlierState& state) {
  if (refusedWithoutAddressMap()) return;
  RomImage image = imageOf(state);
  confirmDiscard();
  if (editorState.guardAnswer == 0) return;
  editorState.progressCount = 0;
  desktop().setBusyPointer(true);
  dropImage();
  showOperation("READ");
  const StateRecord& record = *state.record;
  takeImage(std::move(image));
  Decoded onDisk = imageOnDisk(record);
  editorState.savedImage = std::move(onDisk.image);
  editorState.imageLayout = layoutFor(state, onDisk.layout);
  keepChosen({record.path, fileNameOf(record.path)});
  nameImage();
  editorState.imageIsOneHalf = record.oneHalf;
  showFileSize();
  loaderTail();
}

void saveSteps(const EarlierState& state) {
  const RomImage bytes = bytesOf(state);
  const std::string path = state.record ? state.record->path : "";
  const bool isFile = state.record && state.record->kind == StateKind::overwritten;
  const std::size_t dot = path.rfind('.');
  const std::string ending =
      isFile && imageFormOf(path) ? path.substr(dot + 1) : rawImages.extension;
  const ChosenFile chosen = desktop().chooseFileToSave(
      {"*." + ending + "|*." + ending, worded(copyTitle), settledPath(editorState.romFolder),
       withExtension(fileNameOf(path), ending)});
  if (mayOverwrite(chosen.path, chosen.title)) replaceUserFile(chosen.path, bytes);
}

}  // namespace

RomImage imageOf(const EarlierState& state) {
  RomImage bytes = bytesOf(state);
  const bool isFile = state.record && state.record->kind == StateKind::overwritten;
  return isFile ? decoded(*state.record, std::move(bytes)).image : bytes;
}

void loadEarlierState(const EarlierState& state) {
  runFileCommand({"以前の状態読み込み", [&] { loadSteps(state); },
                  [](int number) { showFailure(number, "　Ill. DATA? "); }});
}

void saveStateCopy(const EarlierState& state) {
  runFileCommand(
      {"以前の状態別名保存", [&] { saveSteps(state); }, [](int number) { showFailure(number); }});
}
