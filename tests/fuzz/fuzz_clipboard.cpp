// Any text on the clipboard, pasted into a selection: cells outside it, headers included, keep
// their texts. As a table it comes in whole or not at all, with numbers that a byte can hold.
#include "bed.h"
#include "core/map_kinds.h"
#include "editing/copy_paste.h"
#include "exchange/spreadsheet.h"
#include "platform/numbers.h"

namespace {

constexpr int rows = 12;
constexpr int columns = 17;
constexpr GridSelection selection{2, 3, 9, 14};

bool isSelected(int row, int column) {
  return row >= selection.row && row <= selection.rowSel && column >= selection.column &&
         column <= selection.columnSel;
}

void pasteTable(FuzzBed& bed, Grid& grid) {
  editorState.addressMap.map(HIGH_FUEL).columns = columns - 1;
  editorState.addressMap.map(HIGH_FUEL).rows = rows - 1;
  editorState.cellsDrawn[HIGH_FUEL] = (columns - 1) * (rows - 1);
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < columns; ++c) grid.setText(r, c, "7");
  }
  const std::size_t told = bed.desk.boxes.size();
  grid.userSelect({3, 4, 3, 4});
  pasteFromSpreadsheet();
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < columns; ++c) {
      const std::string& text = grid.text(r, c);
      const bool mayChange = r >= 3 && c >= 4 && bed.desk.boxes.size() == told;
      require(text == "7" || (mayChange && bareNumber(text) && *bareNumber(text) <= byteLimit));
    }
  }
  bed.desk.boxes.clear();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static FuzzBed bed;
  form1().load();
  Grid& grid = form1().Grid1;
  editorState.addressMap.map(HIGH_FUEL).bytes = 1;
  grid.resize(rows, columns);
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < columns; ++c) grid.setText(r, c, "7");
  }
  grid.userSelect(selection);
  bed.desk.clipboard = std::string(reinterpret_cast<const char*>(data), size);
  pasteBlock(*findMapKind(HIGH_FUEL));
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < columns; ++c) require(isSelected(r, c) || grid.text(r, c) == "7");
  }
  pasteTable(bed, grid);
  return 0;
}
