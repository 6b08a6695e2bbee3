#include "editing/address_grid.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "controls/desktop.h"
#include "core/boost.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/global_parameters.h"
#include "core/history.h"
#include "core/image_bytes.h"
#include "core/key_assignment.h"
#include "core/map_colours.h"
#include "core/map_display.h"
#include "core/progress.h"
#include "core/wording.h"
#include "editing/copy_buffer.h"
#include "editing/entry.h"
#include "editing/selection.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

constexpr Grid::Look hexLook{white, rgb(64, 64, 64)};
constexpr int cellWidth = 430;       // twips
constexpr int addressWidth = 760;    // twips; six digits
constexpr int characterWidth = 150;  // twips, of a column header
constexpr int emptyRows = 2;         // of a grid without a stretch, its header included
constexpr int emptyColumns = 2;

const Wording hexQuestion{"データは？\r\n\r\n設定できるデータの大きさは、00-FF",
                          "Data?\r\n\r\nFor a size of data that I can set up, 00-FF"};

std::string hexAddress(std::int64_t address) { return hexDigits(address, 2); }

std::string hexByte(int byte) { return hexDigits(byte, 1); }

std::int32_t hexNumber(std::string_view text) { return hexPrefix(text); }

void writeHexCell(Grid& grid, int row, int column, std::int32_t number) {
  const int byte = std::clamp(number, 0, byteLimit);
  grid.setCell(row, column, hexByte(byte), cellColour(byte));
}

// Each byte's cell, made once for a whole grid of them.
class HexCells {
 public:
  HexCells() {
    for (int byte = 0; byte <= byteLimit; ++byte) {
      Cell& cell = cells_[static_cast<std::size_t>(byte)];
      std::ranges::copy(hexByte(byte), cell.digits.begin());
      cell.colour = cellColour(byte);
    }
  }
  void write(Grid& grid, int row, int column, int byte) const {
    const Cell& cell = cells_[static_cast<std::size_t>(byte)];
    grid.setCell(row, column, {cell.digits.data(), cell.digits.size()}, cell.colour);
  }

 private:
  struct Cell {
    std::array<char, 2> digits;  // of a known number: they are copied without a call
    Colour colour;
  };
  std::array<Cell, byteLimit + 1> cells_;
};

void showStretch(Grid& grid) {
  const HexCells cells;
  std::int64_t address = editorState.addressEditStart;
  for (int c = 1; c < grid.columns(); ++c) {
    grid.setText(0, c, "+" + hexText(static_cast<std::uint32_t>(c - 1)));
  }
  for (int r = 1; r < grid.rows(); ++r) {
    grid.setText(r, 0, hexAddress(address));
    for (int c = 1; c < grid.columns(); ++c) cells.write(grid, r, c, imageByte(address++));
  }
}

void storeStretch(Grid& grid) {
  const GridPause pause(grid, GridPause::Hide::yes);
  std::int64_t address = editorState.addressEditStart;
  for (int r = 1; r < grid.rows(); ++r) {
    for (int c = 1; c < grid.columns(); ++c) {
      const std::int32_t number = std::min(hexNumber(grid.text(r, c)), byteLimit);
      setImageByte(address++, static_cast<std::uint8_t>(number));
    }
  }
}

void showImageEverywhere() {
  const GridsPause pause;
  redrawAllMaps();
  const int number = trapFailure(showGlobalParams);
  if (number != 0) showFailure(number);
  recalculateBoost();
  form1().refresh();
}

// Takes a window out of the topmost order, so that a prompt can rise above it.
class TopmostPause {
 public:
  explicit TopmostPause(Window& window) : window_(window) { makeTopmost(window_, false); }
  ~TopmostPause() { makeTopmost(window_, true); }
  TopmostPause(const TopmostPause&) = delete;
  TopmostPause& operator=(const TopmostPause&) = delete;

 private:
  Window& window_;
};

void editHexCell() {
  Grid& grid = form6.eGrid;
  const TopmostPause topmost(form6);
  const GridPause pause(grid);
  editorState.cellValue = hexNumber(grid.text(grid.row(), grid.column()));
  std::string answer = askForData(hexQuestion, hexByte(editorState.cellValue));
  if (answer.empty()) return;
  answer.erase(0, answer.find_first_not_of(" \t"));
  editorState.cellValue = std::min(hexNumber(answer), byteLimit);
  writeHexCell(grid, grid.row(), grid.column(), editorState.cellValue);
}

void stepHexSelection(char32_t key, int times) {
  onStepKeys(key, [times](int direction) {
    Grid& grid = form6.eGrid;
    walkSelection(grid, [&](int row, int column) {
      const std::int32_t number = hexNumber(grid.text(row, column));
      writeHexCell(grid, row, column, stepped(number, direction, times, byteLimit));
    });
  });
}

void pasteHexBlock() {
  constexpr std::int64_t wholeBuffer = std::numeric_limits<std::int64_t>::max();
  pasteFromBuffer(form6.eGrid, wholeBuffer, [](int row, int column, std::int32_t number) {
    writeHexCell(form6.eGrid, row, column, number);
  });
}

MenuItem& addItem(MenuItem& menu, const char* name, char letter, const char* shortcut = "") {
  MenuItem& item = menu.add(std::make_unique<MenuItem>(menu.window(), name, "", shortcut));
  item.setLetter(letter);
  return item;
}

// The cell of an address; the cursor goes there alone.
void askForAddress() {
  const TopmostPause topmost(form6);
  Grid& grid = form6.eGrid;
  const std::int64_t first = editorState.addressEditStart;
  const int columns = grid.columns() - 1;
  const std::int64_t last = first + std::int64_t{grid.rows() - 1} * columns - 1;
  const std::int64_t now = first + std::int64_t{grid.row() - 1} * columns + grid.column() - 1;
  std::string answer = desktop().askText(
      {worded({"アドレスへ移動", "Go to address"}),
       worded({"アドレス &H", "Address &H"}) + hexAddress(first) + " - " + hexAddress(last),
       hexAddress(now)});
  if (answer.empty()) return;
  answer.erase(0, answer.find_first_not_of(" \t"));
  const std::int64_t place = hexPrefix(answer) - first;
  if (hexPrefix(answer) < first || hexPrefix(answer) > last) {
    return showRefusal({"このアドレスは表示範囲にありません。",
                        "This address is not in the stretch that is shown."});
  }
  const int row = 1 + static_cast<int>(place / columns);
  const int column = 1 + static_cast<int>(place % columns);
  grid.setSelection({row, column, row, column});
  grid.setFocus();
}

}  // namespace

Form6 form6;

Form6::Form6()
    : Window("Form6"),
      eGrid(*this, emptyRows, emptyColumns, 1, 1, hexLook),
      edit_02(addItem(menuBar, "edit_02", 'E')),
      e_cpy(addItem(edit_02, "e_cpy", 'C', "Ctrl+C")),
      HSARITUKE(addItem(edit_02, "HSARITUKE", 'P', "Ctrl+V")),
      goMenu(addItem(menuBar, "go", 'G')),
      goToAddress(addItem(goMenu, "go_to_address", 'G', "Ctrl+G")) {
  wireDialog(*this, {[this] { fill(); }, &Command1, [this] { accept(); }, &Command2, &eGrid});
  eGrid.nameAfter({&Frame1});
  onUnload = [this] { eGrid.resize(emptyRows, emptyColumns); };
  eGrid.onDoubleClick = editHexCell;
  eGrid.onKey = [](char32_t key) { stepHexSelection(key, 1); };
  eGrid.onControlKey = [](char32_t key) { stepHexSelection(key, coarseSteps); };
  eGrid.onMouseDown = [this](MouseButton button) {
    if (button == MouseButton::right) desktop().popUpMenu(edit_02);
  };
  e_cpy.onClick = [this] { copyIntoBuffer(eGrid, hexNumber); };
  HSARITUKE.onClick = pasteHexBlock;
  goToAddress.onClick = askForAddress;
}

void Form6::fill() {
  setCaption(captioned({"アドレス指定編集", "Address designated editing"}));
  edit_02.setCaption(captioned({"編集", "Edit"}));
  e_cpy.setCaption(captioned({"コピー", "Copy"}));
  HSARITUKE.setCaption(captioned({"張り付け", "Paste"}));
  goMenu.setCaption(captioned({"移動", "Go"}));
  goToAddress.setCaption(captioned({"アドレスへ移動...", "Go to address..."}));
  Frame1.setCaption("TARGET &H" + hexAddress(editorState.addressEditStart) +
                    "  X:" + decimalText(editorState.addressEditColumns) +
                    "  Y:" + decimalText(editorState.addressEditRows));
  const auto lastColumn = static_cast<std::uint32_t>(editorState.addressEditColumns - 1);
  const GridPause pause(eGrid, GridPause::Hide::yes);
  eGrid.resize(editorState.addressEditRows + 1, editorState.addressEditColumns + 1);
  const auto headerLength = static_cast<int>(1 + hexText(lastColumn).size());
  eGrid.setColumnWidths(std::max(cellWidth, characterWidth * headerLength));
  eGrid.setColumnWidth(0, addressWidth);
  showStretch(eGrid);
}

void Form6::accept() {
  storeStretch(eGrid);
  nameStep({"アドレス指定編集", "address editor"});
  showImageEverywhere();
  setProgress(-1);
  closeDialog(*this);
}
