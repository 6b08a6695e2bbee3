#include "editing/copy_buffer.h"

#include <algorithm>
#include <cstddef>

#include "core/editor_state.h"
#include "editing/selection.h"

namespace {

GridBlock cutToBuffer(GridBlock block) {
  block.bottom = std::min(block.bottom, block.top + copyRows - 1);
  block.right = std::min(block.right, block.left + copyColumns - 1);
  return block;
}

void selectBlock(Grid& grid, const GridBlock& block) {
  grid.setSelection({block.top, block.left, block.bottom, block.right});
}

}  // namespace

std::int32_t& copiedNumber(int column, int row) {
  return editorState.copyBuffer.at(static_cast<std::size_t>(row * copyColumns + column));
}

void copyIntoBuffer(Grid& grid, std::int32_t (*number)(std::string_view text)) {
  std::fill(editorState.copyBuffer.begin(), editorState.copyBuffer.end(), 0);
  const GridPause pause(grid, GridPause::Hide::yes);
  const GridBlock block = cutToBuffer(grid.block());
  for (int r = 0; r < block.rows(); ++r) {
    for (int c = 0; c < block.columns(); ++c) {
      copiedNumber(c, r) = number(grid.text(block.top + r, block.left + c));
    }
  }
  editorState.copyLastColumn = block.columns() - 1;
  editorState.copyLastRow = block.rows() - 1;
  selectBlock(grid, block);
}

void pasteFromBuffer(Grid& grid, std::int64_t numbers, const CellWriter& write) {
  const GridPause pause(grid, GridPause::Hide::yes);
  const GridBlock block = grid.block();
  const GridBlock target = cutToBuffer(block);
  const std::int64_t width = std::int64_t{editorState.copyLastColumn} + 1;
  for (int r = 0; r < target.rows() && r <= editorState.copyLastRow; ++r) {
    for (int c = 0; c < target.columns() && c <= editorState.copyLastColumn; ++c) {
      if (r * width + c >= numbers) break;
      const int row = target.top + r;
      const int column = target.left + c;
      if (isDataCell(grid, row, column)) write(row, column, copiedNumber(c, r));
    }
  }
  selectBlock(grid, block);
}
