// Reading address maps: from the comma-separated items of an .adr file to the map in force, and to
// the sizes, captions, tool tips and enabled states that follow from it.
#pragma once

#include <string>

// Fills `EditorState.lines` and `lineCount` with the items of the file at `path`. More than 1001
// items fail with badSubscript; a file that can't be read fails with its number.
void readAddressFile(const std::string& path);

// Parses `EditorState.lines` into `EditorState.addressMap` and sets grid sizes, captions, tool tips
// and enabled states. A value that can't be converted shows a box and ends the parse there.
void SET_MAP_ADDR();

// Enables the grids and boxes of present entries, disables the others and greys their labels.
void applyEntryPresence();

// The captions of the eight additional map frames before an address map names them.
void resetAdditionalCaptions();

// The model's name on its label, or the prompt to load an address map.
void showTypeUnit();
