// The block of cells that was copied last, as numbers in `EditorState.copyBuffer`, and the two
// walks that all copy and paste commands share: a selection into the buffer and back.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "controls/grid.h"

// The number at this column and row of the block, both from 0 and inside the buffer.
std::int32_t& copiedNumber(int column, int row);

// Clears the buffer and fills it from the selection, each cell read by `number`. A selection of
// more than `copyColumns` or `copyRows` is cut there. Afterwards the block that was copied is
// selected, from its top left to its bottom right.
void copyIntoBuffer(Grid& grid, std::int32_t (*number)(std::string_view text));

// How a number of the buffer becomes a cell.
using CellWriter = std::function<void(int row, int column, std::int32_t number)>;

// Writes the buffer's block over the selection: each selected cell takes the number at its own
// place in the block, as far as both reach and as far as the place is below `numbers` in reading
// order. Header cells are left alone. Afterwards the selection runs from its top left to its bottom
// right.
void pasteFromBuffer(Grid& grid, std::int64_t numbers, const CellWriter& write);
