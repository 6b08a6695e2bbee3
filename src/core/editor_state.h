// The program's one state record. It lives from before start-up until the process ends; every
// command works on it in place.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "rom/image_writing.h"
#include "rom/map_entries.h"

using RomImage = std::vector<std::uint8_t>;

// Before any load the image has this many zero bytes, so that the content test has something to
// read.
constexpr std::int32_t startImageBytes = 120001;
constexpr std::int32_t maximumLines = 1001;
// The airflow tables of known engines.
constexpr std::size_t vqTableCount = 9;
constexpr std::size_t vqTableBytes = 128;
// A block of copied cells.
constexpr int copyColumns = 513;
constexpr int copyRows = 41;

struct EditorState {
  // Image and files.
  RomImage image = RomImage(startImageBytes);
  RomImage savedImage;         // the file's bytes as last loaded or saved
  std::int32_t imageSize = 0;  // bytes; 0: no image is loaded
  std::int32_t probeAddress = 0;
  std::int32_t guardAnswer = 0;  // of confirmDiscard: 1 go on, 0 stop
  std::int32_t progressCount = 0;
  std::string dialogPath;  // what the last file dialog returned
  std::string dialogTitle;
  std::string imagePath;  // the image now loaded
  std::string imageTitle;
  bool imageIsOneHalf = false;  // `imagePath` holds one half of a pair
  // How the image lies in its file; nothing where the file's name tells it.
  std::optional<FileLayout> imageLayout;
  std::string appPath;  // the program's folder
  std::string addressFilePath;
  std::string addressFolder;
  std::string romFolder;
  std::vector<std::string> lines = std::vector<std::string>(maximumLines);
  std::int32_t lineCount = 0;
  std::int32_t english = 0;  // 0 Japanese
  std::int32_t currentTab = 1;
  std::int32_t cellValue = 0;
  std::int32_t gridColorRateSetting = 0;
  std::int32_t gridColorRate = 0;

  // Engine, dialog memories and graph settings, kept in the settings file.
  std::string version;
  std::int32_t displacement = 0;  // cc
  std::int32_t injectorSize = 0;  // cc
  std::int32_t cylinders = 0;
  std::int32_t addressEditStart = 0;
  std::int32_t addressEditColumns = 0;
  std::int32_t addressEditRows = 0;
  std::string splitRomKbit;
  std::string splitFormat;
  std::string aboutSound;
  std::string plusKey;
  std::string minusKey;
  std::int32_t graphFbMask = 0;
  std::int32_t graphFbThreshold = 0;
  std::int32_t graphMagnification = 0;
  std::int32_t graphShowCompare = 0;
  std::int32_t graphStepX = 0;
  std::int32_t graphStepY = 0;
  float graphRatioX = 0;
  float graphRatioY = 0;
  bool settingsDamaged = false;  // the file on disk couldn't be read as settings

  AddressMap addressMap;
  // How many cells of each map stand in its grid as the image has them, by MapId; what lies behind
  // was never drawn and is never written back.
  std::array<std::int32_t, mapCount + 1> cellsDrawn{};
  // Whether a parameter's box shows the image's bytes.
  std::array<bool, paramCount> paramShown{};

  // The airflow tables, in the order of their commands in the menu.
  std::array<std::array<std::uint8_t, vqTableBytes>, vqTableCount> vqTables{};

  // The comparison image.
  RomImage compareImage;
  std::int32_t compareLoaded = 0;  // greater than 0: it may be read
  std::string compareTitle;

  // The block that was copied last, by column and row.
  std::vector<std::int32_t> copyBuffer =
      std::vector<std::int32_t>(std::size_t{copyColumns} * copyRows);
  std::int32_t copyLastColumn = 0;
  std::int32_t copyLastRow = 0;
};

extern EditorState editorState;

// The program's own version, whatever the settings file says.
constexpr const char* programVersion = "Version 1.98.48E";

// True when the 17 bytes from `probeAddress` and the 16 bytes from 0 are not all zero. Bytes
// outside the image count as 0.
bool isRomLoaded();
