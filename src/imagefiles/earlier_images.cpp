#include "imagefiles/earlier_images.h"

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

namespace {

const Wording copyTitle{"以前の状態のコピーを保存", "Save a copy of an earlier state"};

RomImage decoded(const std::string& path, RomImage fileBytes) {
  const ImageForm* const named = imageFormOf(path);
  return (named ? *named : rawImages).decode(std::move(fileBytes));
}

// A file that is gone or no image holds nothing that counts as saved; nor does one half of a pair.
RomImage imageOnDisk(const StateRecord& record) {
  RomImage image;
  watchFiles({});
  if (record.oneHalf) return image;
  trapFailure([&] { image = decoded(record.path, readWatched(record.path)); });
  return image;
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
  editorState.savedImage = imageOnDisk(record);
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
  return isFile ? decoded(state.record->path, std::move(bytes)) : bytes;
}

void loadEarlierState(const EarlierState& state) {
  runFileCommand({"以前の状態読み込み", [&] { loadSteps(state); },
                  [](int number) { showFailure(number, "　Ill. DATA? "); }});
}

void saveStateCopy(const EarlierState& state) {
  runFileCommand(
      {"以前の状態別名保存", [&] { saveSteps(state); }, [](int number) { showFailure(number); }});
}
