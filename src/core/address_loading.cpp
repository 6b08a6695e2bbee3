#include "core/address_loading.h"

#include <algorithm>

#include "core/address_map.h"
#include "core/data_replaced.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/error_log.h"
#include "core/file_command.h"
#include "core/loader_tail.h"
#include "core/map_display.h"
#include "core/recent_maps.h"
#include "core/rom_image.h"
#include "core/settings_file.h"
#include "platform/failure.h"

namespace {

const Wording dialogTitle{"機種別アドレス情報　読み込み",
                          "The address information by the model is read. (*.adr file)"};
const char* const commandName = "ADR File読み込み";
const char* const advice =
    "\r\n\r\nReading of an address file went wrong."
    "\r\n\r\nPlease read again from a menu after starting. "
    "\r\n\r\nFrom next time, it could start to usual.";

// Edits still belong to the map in force: they go into the image before it is given up.
void keepEdits() {
  if (editorState.imageSize != 0) writeBackAll();
}

// The new map is in force whatever comes of it here: an image that it doesn't fit is told as such.
// What the grids held under the former map goes in any case.
void showImageUnderNewMap() {
  dataReplaced();
  if (editorState.imageSize == 0) return;
  editorState.progressCount = 0;
  const int number = trapFailure(loaderTail);
  if (number == 0) return;
  logError(commandName, number, failureText(number));
  showFailure(number);
}

std::string pickedPath() {
  return desktop()
      .chooseFileToOpen({"Address Map (*.adr)|*.adr", worded(dialogTitle),
                         settledPath(editorState.addressFolder),
                         settledPath(editorState.addressFilePath)})
      .path;
}

// A dialog asks for the file unless `path` tells it.
void pickAndRead(const std::string& path) {
  editorState.lineCount = 0;
  editorState.addressFilePath = path.empty() ? pickedPath() : path;
  desktop().setBusyPointer(true);
  std::fill(editorState.lines.begin(), editorState.lines.end(), "#");
  readAddressFile(editorState.addressFilePath);
}

void putInForce() {
  keepEdits();
  resetEntryNames();
  saveSettingsOrTell(commandName);
  setGridLayout();
  SET_MAP_ADDR();
  showTypeUnit();
  showImageUnderNewMap();
}

// "" for none.
std::string mapInForce() {
  if (editorState.addressMap.typeUnit.empty()) return {};
  return settledPath(editorState.addressFilePath);
}

// The one that was in force before, too: it may have come with the settings.
void loadMap(const std::string& path) {
  runFileCommand({commandName,
                  [&] {
                    const std::string former = mapInForce();
                    pickAndRead(path);
                    putInForce();
                    for (const std::string& map : {former, mapInForce()}) {
                      if (!map.empty()) addRecentMap(map);
                    }
                  },
                  [](int number) { showFailure(number, advice); }});
}

}  // namespace

void load_map_addr() { loadMap(""); }

void loadAddressMapFrom(const std::string& path) { loadMap(path); }
