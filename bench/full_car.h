// The largest usual car: 16 maps of 16 x 16 cells, 64 airflow words, two TP and two RPM scales of
// 16 values, as an address map and an image in a folder of its own.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "../tests/scratch_folder.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "frontend/headless/headless_desktop.h"
#include "frontend/startup.h"

constexpr std::size_t fullCarImageBytes = 65536;

inline std::string fullCarAddressMap() {
  std::string text = "TYPE_UNIT\r\nFULL\r\n";
  int address = 0;
  for (const MapKind& kind : mapKinds()) {
    const bool airflow = kind.family == MapFamily::airflow;
    const bool scale = kind.family == MapFamily::tpScale || kind.family == MapFamily::rpmScale;
    const int rows = airflow || scale ? 1 : 16;
    const int bytes = airflow ? 128 : 16 * rows;
    text += std::string(kind.keyword) + "," + std::to_string(address) + ",16," +
            std::to_string(rows) + "," + std::to_string(bytes) + ",2,caption\r\n";
    address += bytes;
  }
  return text;
}

// The program with that car loaded, once for the whole run.
inline HeadlessDesktop& fullCar() {
  static HeadlessDesktop headless;
  if (hasDesktop()) return headless;
  useDesktop(&headless);
  static const ScratchFolder scratch;
  const std::filesystem::path& folder = scratch.path();
  std::ofstream(folder / "full.adr", std::ios::binary) << fullCarAddressMap();
  std::string image(fullCarImageBytes, '\0');
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<char>(i * 37 % 251);
  std::ofstream(folder / "full.bin", std::ios::binary) << image;
  startProgram(folder.string());
  editorState.gridColorRate = 1;
  editorState.displacement = 1998;
  editorState.injectorSize = 370;
  editorState.cylinders = 4;
  headless.openAnswers = {(folder / "full.adr").string(), (folder / "full.bin").string()};
  form1().menuBar.find("load_map_addr")->userPick();
  form1().menuBar.find("load_bin_file")->userPick();
  return headless;
}
