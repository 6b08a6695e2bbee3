#include "imagefiles/image_files.h"

#include <string>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/file_command.h"
#include "core/loaded_image.h"
#include "core/loader_tail.h"
#include "core/overwrite_question.h"
#include "core/refusals.h"
#include "core/rom_image.h"
#include "core/settings_file.h"
#include "core/title_and_size.h"
#include "core/unsaved_guard.h"
#include "imagefiles/any_form.h"
#include "imagefiles/file_watch.h"
#include "imagefiles/image_forms.h"
#include "imagefiles/recent_files.h"
#include "imagefiles/save_notices.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace {

const Wording nothingToUpdate{"データが読み込まれていないのに、上書き保存しようとしました。",
                              "Been crowded as reading data overwrite did to come, preserve it."};

ChosenFile chosenToLoad(const ImageForm& form) {
  return desktop().chooseFileToOpen({form.load.filter, worded(form.load.title),
                                     settledPath(editorState.romFolder), form.proposedToLoad()});
}

// A dialog asks for the file unless `path` tells it.
void loadSteps(const ImageForm& form, const std::string& path) {
  if (refusedWithoutAddressMap()) return;
  confirmDiscard();
  if (editorState.guardAnswer == 0) return;
  editorState.progressCount = 0;
  keepChosen(path.empty() ? chosenToLoad(form) : ChosenFile{path, fileNameOf(path)});
  desktop().setBusyPointer(true);
  dropImage();
  showOperation("READ");
  const RomImage records = takeDecoded(form, readWatched(editorState.dialogPath));
  nameImage();
  showFileSize();
  loaderTail();
  tellIfReadOtherwise(editorState.dialogPath, records);
}

void saveSteps(const ImageForm& form) {
  if (refusedWithoutImage(nothingToSave)) return;
  editorState.progressCount = 0;
  keepChosen(
      desktop().chooseFileToSave({form.save.filter, worded(form.save.title),
                                  settledPath(editorState.romFolder), form.proposedToSave()}));
  if (!mayOverwrite(editorState.dialogPath, editorState.dialogTitle)) return;
  showOperation("WRITE");
  writeBackAll();
  form.write(editorState.dialogPath);
  nameImage();
  editorState.imageIsOneHalf = false;
  updateTitleBar();
  addRecentFile(editorState.dialogPath);
}

// In the form and at the addresses where the file's content tells them, else in the form that its
// name tells; a name that tells no form is raw.
void writeOwn(const std::string& path) {
  const auto layout = editorState.imageLayout;
  const ImageForm* const named = imageFormOf(path);
  if (layout) {
    writeAsLaidOut(path, *layout);
  } else {
    (named ? *named : rawImages).write(path);
  }
}

// One half of a pair is not simply overwritten by the whole.
void updateSteps() {
  if (refusedWithoutImage(nothingToUpdate)) return;
  const std::string path = editorState.imagePath;
  if (editorState.imageIsOneHalf && !mayOverwrite(path, editorState.imageTitle)) return;
  showOperation("WRITE");
  editorState.progressCount = 0;
  writeBackAll();
  const int failed = trapFailure([&] { writeOwn(path); });
  editorState.imageIsOneHalf = editorState.imageIsOneHalf && failed != 0;
  addRecentFile(path);
  if (failed != 0) throw Failure(failed);
}

void loadImage(const ImageForm& form, const std::string& path = {}) {
  runFileCommand({form.load.location, [&] { loadSteps(form, path); },
                  [&](int number) {
                    showFailure(number, "　Ill. DATA? ", editorState.dialogTitle);
                    offerAnyForm(form, editorState.dialogPath, number);
                  }});
}

void saveImage(const ImageForm& form) {
  runFileCommand(
      {form.save.location, [&] { saveSteps(form); }, [](int number) { showFailure(number); }});
}

}  // namespace

void loadImageFrom(const std::string& path, const ImageForm& form) { loadImage(form, path); }

void load_bin_file() { loadImage(rawImages); }

void write_bin_file() { saveImage(rawImages); }

void update_bin_file() { runFileCommand({"上書き", updateSteps, tellNotSaved}); }

void LOAD_IntelHEX_FILE() { loadImage(intelHexImages); }

void ANY_NAME_SAVE_IntelHEX() { saveImage(intelHexImages); }

void saveAsSRecords() { saveImage(sRecordImages); }
