#include "imagefiles/intel_hex_files.h"

#include <cstddef>
#include <span>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/file_command.h"
#include "core/loader_tail.h"
#include "core/map_display.h"
#include "core/rom_image.h"
#include "core/settings_file.h"
#include "core/unsaved_guard.h"
#include "imagefiles/intel_hex_reader.h"
#include "imagefiles/intel_hex_writer.h"
#include "imagefiles/recent_files.h"
#include "platform/files.h"

const char* const intelHexLoadFilter = "HEX Image (*.hex)|*.hex";
const char* const intelHexSaveFilter = "IntelHEX Image (*.hex)|*.hex";

namespace {

const Wording loadTitle{"IntelHEX Image 読み込み", "Load IntelHEX Image"};
const Wording saveTitle{"IntelHEX Image 書き込み", "Save IntelHEX Image"};

void loadSteps() {
  if (refusedWithoutAddressMap()) return;
  confirmDiscard();
  if (editorState.guardAnswer == 0) return;
  editorState.progressCount = 0;
  keepChosen(desktop().chooseFileToOpen({intelHexLoadFilter, worded(loadTitle),
                                         settledPath(editorState.romFolder),
                                         withExtension(editorState.dialogPath, "hex")}));
  desktop().setBusyPointer(true);
  resetPanels();
  dropImage();
  showOperation("READ");
  takeImage(readIntelHex(readFile(editorState.dialogPath), imageHexCapacity));
  showFileSize();
  nameImage();
  loaderTail();
}

std::string proposedName() {
  if (editorState.imagePath.empty()) return {};
  return withExtension(editorState.dialogPath, "hex");
}

void saveSteps() {
  if (refusedWithoutImage(nothingToSave)) return;
  editorState.progressCount = 0;
  keepChosen(desktop().chooseFileToSave(
      {intelHexSaveFilter, worded(saveTitle), settledPath(editorState.romFolder), proposedName()}));
  if (!mayOverwrite(editorState.dialogPath, editorState.dialogTitle)) return;
  showOperation("WRITE");
  writeBackAll();
  saveImageAsIntelHex(editorState.dialogPath);
  nameImage();
  editorState.imageIsOneHalf = false;
  updateTitleBar();
  addRecentFile(editorState.dialogPath);
}

}  // namespace

void LOAD_IntelHEX_FILE() {
  runFileCommand({"IntelHEX読み込み", loadSteps, [](int number) {
                    showFailure(number, "　Ill. DATA? " + editorState.dialogTitle);
                  }});
}

void ANY_NAME_SAVE_IntelHEX() {
  runFileCommand({"IntelHEX別名保存", saveSteps, [](int number) { showFailure(number); }});
}

void saveImageAsIntelHex(const std::string& path) {
  const auto size = static_cast<std::size_t>(editorState.imageSize);
  const auto image = std::span(editorState.image).first(size);
  writeIntelHex(path, image);
  editorState.savedImage.assign(image.begin(), image.end());
}
