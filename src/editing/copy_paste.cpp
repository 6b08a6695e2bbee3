#include "editing/copy_paste.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/map_cells.h"
#include "core/map_colours.h"
#include "core/map_kinds.h"
#include "core/notices.h"
#include "editing/copy_buffer.h"
#include "platform/numbers.h"

namespace {

bool startsWithNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
  if (!text.empty() && text[0] == '.') text.remove_prefix(1);
  return !text.empty() && text[0] >= '0' && text[0] <= '9';
}

// The clipboard's text: its cells, and the last column and row that stand behind them.
struct ClipboardBlock {
  std::optional<std::string_view> cells;  // none: the text holds nothing but the two numbers
  std::int32_t lastColumn;
  std::int32_t lastRow;
};

std::optional<ClipboardBlock> splitClipboard(std::string_view text) {
  const std::size_t rowComma = text.rfind(',');
  if (rowComma == std::string_view::npos) return std::nullopt;
  const std::string_view row = text.substr(rowComma + 1);
  text = text.substr(0, rowComma);
  const std::size_t columnComma = text.rfind(',');
  const bool bare = columnComma == std::string_view::npos;
  const std::string_view column = bare ? text : text.substr(columnComma + 1);
  if (!startsWithNumber(column) || !startsWithNumber(row)) return std::nullopt;
  ClipboardBlock block{std::nullopt, cellNumber(column), cellNumber(row)};
  if (!bare) block.cells = text.substr(0, columnComma);
  return block;
}

std::optional<std::string_view> takeField(std::optional<std::string_view>& rest) {
  if (!rest) return std::nullopt;
  const std::size_t comma = rest->find(',');
  const std::string_view field = rest->substr(0, comma);
  if (comma == std::string_view::npos) {
    rest.reset();
  } else {
    rest->remove_prefix(comma + 1);
  }
  return field;
}

// Takes the block's cells that lie inside `target` into the buffer, one by one and never as a list,
// since the text may be of any length. Returns how many cells of the block the text reaches, as far
// as it was read.
std::int64_t readCells(ClipboardBlock& block, const GridBlock& target) {
  const std::int64_t width = std::int64_t{block.lastColumn} + 1;
  if (width < 1) return 0;
  const int columns =
      static_cast<int>(std::min<std::int64_t>(width, std::min(target.columns(), copyColumns)));
  const std::int64_t end = (std::min(target.rows(), copyRows) - 1) * width + columns;
  std::int64_t place = 0;
  for (; place < end; ++place) {
    const auto field = takeField(block.cells);
    if (!field) break;
    if (place % width >= columns) continue;
    copiedNumber(static_cast<int>(place % width), static_cast<int>(place / width)) =
        cellNumber(*field);
  }
  return place;
}

// A text that is no block of this program may be a spreadsheet's.
void tellOfOtherPaste(std::string_view text) {
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) return;
  tellNotice({pasteSubject,
              NoticeKind::information,
              {"このプログラムのブロックではありません。表計算の値は「表計算から張り付け」"
               "(Ctrl+Shift+V) で張り付けられます。",
               "This is no block of the program. Values of a spreadsheet are taken by \"Paste from "
               "a spreadsheet\" (Ctrl+Shift+V)."},
              {{{"張り付ける", "Paste them"}, [] {
                  withdrawNotice(pasteSubject);
                  form1().menuBar.find("paste_table")->userPick();
                }}}});
}

}  // namespace

void copyBlock(Grid& grid) {
  copyIntoBuffer(grid, cellNumber);
  std::string text = grid.clip();
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\t' || c == '\r'; }, ',');
  desktop().setClipboardText(text + ',' + decimalText(editorState.copyLastColumn) + ',' +
                             decimalText(editorState.copyLastRow));
}

void pasteBlock(const MapKind& kind) {
  Grid& grid = gridOf(kind);
  const std::optional<std::string> text = desktop().clipboardText();
  if (!text) return;
  std::optional<ClipboardBlock> block = splitClipboard(*text);
  if (!block) return tellOfOtherPaste(*text);
  withdrawNotice(pasteSubject);
  editorState.copyLastColumn = block->lastColumn;
  editorState.copyLastRow = block->lastRow;
  const std::int64_t numbers = readCells(*block, grid.block());
  nameStep({"張り付け", "paste"});
  MapCells cells(kind);
  pasteFromBuffer(grid, numbers, [&cells](int row, int column, std::int32_t number) {
    cells.set(row, column, number, cellColour(number));
  });
}

void CPY() { copyBlock(*activeGrid()); }

void PST() { pasteBlock(*activeMap()); }
