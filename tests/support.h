// The bed of the tests: a program on the headless desktop in a folder of its own, a small car, and
// the user's doors by name.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "frontend/headless/headless_desktop.h"
#include "scratch_folder.h"

using Bytes = std::vector<std::uint8_t>;

// Each test starts the program anew in an empty folder, in English, with "+" and "-" as step keys
// and colour rate 1. A question that no test expected fails it.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  // Starts the program, anew where it runs; settings and other files may be put into `folder`
  // before.
  void start();
  // The same with the first settings and the address map below.
  void startWithMap(const std::string& addressMap);
  // The program is gone with all its windows, and what was told.
  void end();
  // Starts with smallMap() and a pattern of 1024 bytes as its image.
  void loadSmallCar();
  // Puts `addressMap` into a file and picks it by the menu.
  void useMap(const std::string& addressMap);

  std::string path(const std::string& name) const { return joinPath(folder, name); }
  void writeText(const std::string& name, const std::string& text) const;
  void writeBytes(const std::string& name, const Bytes& bytes) const;
  Bytes readBytes(const std::string& name) const;
  std::string readText(const std::string& name) const;

  // Picks a menu command, which must be there, and answers its file dialogs with `files`, "" by
  // Cancel. Behind each command the status label and the bar are empty.
  void pick(const std::string& name, const std::vector<std::string>& files = {});
  // What the next file dialogs are answered with.
  void chooseFiles(const std::vector<std::string>& files);
  void pickFile(const std::string& command, const std::string& file) { pick(command, {file}); }
  // Puts `bytes` into a file and loads it by the menu.
  void loadImage(const Bytes& bytes, const std::string& name = "image.bin");
  // Saves the image under `name` by the menu and gives the file's bytes.
  Bytes saveImage(const std::string& name);
  void selectTab(int tab);
  // Double-clicks a cell and answers its prompt.
  void enterCell(Grid& grid, int row, int column, const std::string& answer);
  // What the notice strip says, "" for nothing.
  static std::string shown();
  // The texts of all boxes since the last call, "|" between them.
  std::string told();

  HeadlessDesktop desk;
  const ScratchFolder scratch;
  const std::string folder = folderOf(scratch / "x");
};

// The question before edits are lost.
extern const char* const discardQuestion;
// One block of an address map file.
std::string mapBlock(const std::string& keyword, const std::string& address, int columns, int rows,
                     int bytes, const std::string& scale = "0",
                     const std::string& caption = "caption");
// A map with TYPE_UNIT, 8x4 HIGH_FUEL at &H100, both scales, an airflow map and some parameters.
std::string smallMap();
// `size` bytes of a fixed pseudo-random pattern.
Bytes patternImage(std::size_t size, std::uint32_t seed = 1);
// The 25 settings lines that the tests start with.
std::string firstSettings(const std::string& addressFile);
// All cells of all maps, one after the other.
void forEachCell(
    const std::function<void(const MapKind& kind, const Grid& grid, int row, int column)>& visit);
// The grid's texts from its first row to show on, `between` behind each cell but the last of a row,
// `behind` at the end of each row.
std::string textsOf(const Grid& grid, int firstRow, int firstColumn, const char* between,
                    const char* behind);
// Selects cells as a user's drag from one cell to another.
void drag(Grid& grid, int row, int column, int rowSel, int columnSel);
// Goes to a box and types over all that it holds; "" empties it.
void typeOver(TextBox& box, const std::string& keys);
// The same with the mouse: empties the box and puts a text in.
void paste(TextBox& box, const std::string& text);
