// Writing back: bringing `EditorState.image` up to date from the grids and text boxes. Values of
// more than one byte are stored high byte first.
#pragma once

// Writes one grid back; all arguments come from its MapEntry. A failure shows a box and ends the
// routine; bytes written so far stay.
void Set_Memory(int columns, int rows, int address, int bytes, int mapId);
// The same with the entry's own numbers.
void writeMapBack(int mapId);

// Writes all present parameters back from their boxes.
void ANY_SET_MEMORY();

// All present maps in MapId order, then the parameters. Grids don't repaint meanwhile.
void writeBackAll();
