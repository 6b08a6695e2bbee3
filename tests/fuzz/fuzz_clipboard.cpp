// Any text on the clipboard, pasted into a selection: cells outside it, headers included, keep
// their texts.
#include "bed.h"
#include "core/map_kinds.h"
#include "editing/copy_paste.h"

namespace {

constexpr int rows = 12;
constexpr int columns = 17;
constexpr GridSelection selection{2, 3, 9, 14};

bool isSelected(int row, int column) {
  return row >= selection.row && row <= selection.rowSel && column >= selection.column &&
         column <= selection.columnSel;
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
  return 0;
}
