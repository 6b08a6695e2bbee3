#include "core/settings_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "core/address_map.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/engine_summary.h"
#include "core/error_log.h"
#include "core/own_files.h"
#include "core/text_files.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "platform/text_encoding.h"

namespace {

using E = EditorState;
using Member = std::variant<std::string E::*, std::int32_t E::*, float E::*>;

// The file's lines in order; their number is the file's only grammar.
const std::array<Member, 25> settings{
    &E::version,          &E::addressFilePath,    &E::displacement,    &E::injectorSize,
    &E::cylinders,        &E::addressFolder,      &E::romFolder,       &E::graphFbMask,
    &E::graphFbThreshold, &E::graphMagnification, &E::plusKey,         &E::minusKey,
    &E::addressEditStart, &E::addressEditColumns, &E::addressEditRows, &E::gridColorRateSetting,
    &E::english,          &E::splitRomKbit,       &E::splitFormat,     &E::aboutSound,
    &E::graphShowCompare, &E::graphStepX,         &E::graphStepY,      &E::graphRatioX,
    &E::graphRatioY};

std::string settingsPath() { return joinPath(editorState.appPath, "zelkova.ini"); }

bool hasTooManyLines(std::string_view bytes) { return splitLines(bytes).size() > maximumLines; }

void readLines() {
  editorState.lineCount = 0;
  for (const std::string& line : splitLines(readTextFile(settingsPath(), hasTooManyLines))) {
    if (editorState.lineCount == maximumLines) throw Failure(badSubscript);
    editorState.lines[static_cast<std::size_t>(editorState.lineCount++)] = line;
  }
}

std::string stripped(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

struct Assign {
  const std::string& line;
  void operator()(std::string E::*member) const { editorState.*member = line; }
  void operator()(std::int32_t E::*member) const { editorState.*member = parseLong(line); }
  void operator()(float E::*member) const { editorState.*member = parseReal(line); }
};

// What goes with the values as they stand in the file.
void settle() {
  editorState.version = programVersion;
  editorState.plusKey = stripped(editorState.plusKey);
  editorState.minusKey = stripped(editorState.minusKey);
  editorState.gridColorRate = editorState.gridColorRateSetting;
}

void assignSettings() {
  const int number = trapFailure([] {
    for (std::size_t i = 0; i < settings.size(); ++i) {
      std::visit(Assign{editorState.lines[i]}, settings[i]);
    }
  });
  settle();
  if (number != 0) throw Failure(number);
}

// A text takes one line, whatever was pasted into it: the lines behind it keep their places.
struct Print {
  std::string operator()(std::string E::*member) const {
    std::string text = editorState.*member;
    std::ranges::replace_if(
        text, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return text;
  }
  std::string operator()(std::int32_t E::*member) const {
    return signedBlank(editorState.*member) + " ";
  }
  std::string operator()(float E::*member) const {
    const float value = editorState.*member;
    return (value < 0 ? "" : " ") + shortestReal(value) + " ";
  }
};

// What can't be read as settings is somebody's all the same.
void keepDamaged() {
  if (!editorState.settingsDamaged) return;
  if (fileExists(settingsPath())) {
    replaceFile(settingsPath() + ".damaged", readFile(settingsPath()));
  }
  editorState.settingsDamaged = false;
}

bool passesSilently(int number) {
  return number == fileNotFound || number == pathFileAccess || number == pathNotFound;
}

}  // namespace

void readSettings() {
  const int number = trapFailure([] {
    editorState.settingsDamaged = fileExists(settingsPath());
    readLines();
    assignSettings();
    editorState.settingsDamaged = false;
    showEngineSummary();
    resetEntryNames();
    editorState.lineCount = 0;
    readAddressFile(settledPath(editorState.addressFilePath));
    SET_MAP_ADDR();
    showTypeUnit();
  });
  if (number != 0 && !passesSilently(number)) showFailure(number, {}, {}, BoxIcon::none);
}

void writeSettings() {
  std::string text;
  for (const Member& member : settings) text += std::visit(Print{}, member) + "\r\n";
  keepDamaged();
  replaceTextFile(settingsPath(), text);
}

void saveSettingsOrTell(const std::string& operation) {
  const int number = trapFailure(writeSettings);
  logError(operation, number, failureText(number));
  if (number == 0) return tellWritten(OwnFile::settings);
  tellNotWritten(OwnFile::settings, numberedFailure(number));
  showFailure(number);
}

std::string settledPath(const std::string& path) {
  return path.empty() ? path : joinPath(editorState.appPath, path);
}
