// Address maps in force: from an .adr file to the map that all commands read, and to the sizes,
// captions, tool tips and enabled states that follow from it.
#pragma once

#include <string>

struct ParsedAddressMap;

// Fills `EditorState.lines` and `lineCount` with the items of the file at `path`. More than 1001
// items fail with badSubscript; a file that can't be read fails with its number.
void readAddressFile(const std::string& path);

// Parses `EditorState.lines` into `EditorState.addressMap` and applies what was read; a value that
// can't be converted ends the parse there.
void SET_MAP_ADDR();

// Puts a parsed map in force and sets grid sizes, captions, tool tips and enabled states. A failure
// of the parse shows a box; a notice tells that no keyword was met.
void applyAddressMap(const ParsedAddressMap& parsed);

// Enables the grids and boxes of present entries, disables the others and greys their labels.
void applyEntryPresence();

// The captions and tool tips of all entries before an address map names them.
void resetEntryNames();

// The model's name on its label, or the prompt to load an address map.
void showTypeUnit();
