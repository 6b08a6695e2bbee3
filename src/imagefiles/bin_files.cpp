#include "imagefiles/bin_files.h"

#include <cstdint>
#include <span>
#include <string>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/file_command.h"
#include "core/loader_tail.h"
#include "core/map_display.h"
#include "core/rom_image.h"
#include "core/settings_file.h"
#include "core/unsaved_guard.h"
#include "imagefiles/intel_hex_files.h"
#include "imagefiles/recent_files.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace {

const char* const filter = "Bin Image (*.bin)|*.bin";
const Wording loadTitle{"BIN Image 読み込み", "Load BIN Image"};
const Wording saveTitle{"BIN Image 書き込み", "Save BIN Image"};
const Wording nothingToUpdate{"データが読み込まれていないのに、上書き保存しようとしました。",
                              "Been crowded as reading data overwrite did to come, preserve it."};

void loadSteps() {
  if (refusedWithoutAddressMap()) return;
  confirmDiscard();
  if (editorState.guardAnswer == 0) return;
  editorState.progressCount = 0;
  keepChosen(desktop().chooseFileToOpen(
      {filter, worded(loadTitle), settledPath(editorState.romFolder), editorState.dialogPath}));
  desktop().setBusyPointer(true);
  resetPanels();
  dropImage();
  showOperation("READ");
  takeImage(readFile(editorState.dialogPath));
  nameImage();
  showFileSize();
  loaderTail();
}

// Writes the image as raw bytes; what the file then holds counts as saved.
void saveRaw(const std::string& path) {
  const auto size = static_cast<std::size_t>(editorState.imageSize);
  replaceFile(path, std::span(editorState.image).first(size));
  editorState.savedImage = readFile(path, size);
}

void writeSteps() {
  if (refusedWithoutImage(nothingToSave)) return;
  editorState.progressCount = 0;
  keepChosen(
      desktop().chooseFileToSave({filter, worded(saveTitle), settledPath(editorState.romFolder),
                                  withExtension(editorState.imagePath, "bin")}));
  if (!mayOverwrite(editorState.dialogPath, editorState.dialogTitle)) return;
  showOperation("WRITE");
  writeBackAll();
  saveRaw(editorState.dialogPath);
  nameImage();
  editorState.imageIsOneHalf = false;
  updateTitleBar();
  addRecentFile(editorState.dialogPath);
}

// The image's own file, in the form that its name tells. One half of a pair is not simply
// overwritten by the whole.
void updateSteps() {
  if (refusedWithoutImage(nothingToUpdate)) return;
  const std::string path = editorState.imagePath;
  if (editorState.imageIsOneHalf && !mayOverwrite(path, editorState.imageTitle)) return;
  showOperation("WRITE");
  editorState.progressCount = 0;
  writeBackAll();
  const int failed =
      trapFailure([&] { extensionOf(path) == "HEX" ? saveImageAsIntelHex(path) : saveRaw(path); });
  editorState.imageIsOneHalf = editorState.imageIsOneHalf && failed != 0;
  addRecentFile(path);
  if (failed != 0) throw Failure(failed);
}

}  // namespace

void load_bin_file() {
  runFileCommand({"BIN読み込み", loadSteps, [](int number) {
                    showFailure(number, "　Ill. DATA? " + editorState.dialogTitle);
                  }});
}

void write_bin_file() {
  runFileCommand({"BIN別名保存", writeSteps, [](int number) { showFailure(number); }});
}

void update_bin_file() { runFileCommand({"上書き", updateSteps, {}}); }
