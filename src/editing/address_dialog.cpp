#include "editing/address_dialog.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/progress.h"
#include "core/rom_image.h"
#include "core/settings_file.h"
#include "editing/address_grid.h"
#include "platform/numbers.h"

namespace {

std::string_view withoutBlanks(std::string_view text) {
  constexpr std::string_view blanks = " \t";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool isHexadecimal(std::string_view text) {
  return !text.empty() &&
         text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

// Whether the stretch lies in the image and its grid, headers included, can be built.
bool stretchFits() {
  const std::int64_t columns = editorState.addressEditColumns;
  const std::int64_t rows = editorState.addressEditRows;
  return columns > 0 && rows > 0 &&
         rows * columns + editorState.addressEditStart <= editorState.imageSize &&
         (rows + 1) * (columns + 1) <= Grid::maximumCells;
}

}  // namespace

Form13 form13;

Form13::Form13() : Window("Form13") {
  wireDialog(*this, {[this] { fill(); }, &Command1, [this] { accept(); }, &Command2, &Text1});
  Text1.nameAfter({&Label1});
  Text2.nameAfter({&Label2});
  Text3.nameAfter({&Label3});
}

void Form13::fill() {
  setCaption(captioned({"アドレス指定編集", "Address designated editing"}));
  Label1.setCaption(captioned({"開始アドレス &H", "Starting address. &H"}));
  Label2.setCaption(captioned({"→ X軸", "Horizontal"}));
  Label3.setCaption(captioned({"↓ Ｙ軸", "Vertical"}));
  Text1.setToolTip(captioned({"開始アドレスは16進数で入力", "I input start addresses with HEX."}));
  Text2.setToolTip(captioned({"何桁表示", "Do you display it with any digits ?"}));
  Text3.setToolTip(captioned({"何段表示", "Do you display it with any lines ?"}));
  Text1.setText(hexText(static_cast<std::uint32_t>(editorState.addressEditStart)));
  Text2.setText(decimalText(editorState.addressEditColumns));
  Text3.setText(decimalText(editorState.addressEditRows));
}

// Stores the three numbers, whatever they are, and tells whether they name a stretch.
bool Form13::takeEntries() const {
  const std::string_view start = withoutBlanks(Text1.text());
  editorState.addressEditStart = hexPrefix(start);
  editorState.addressEditColumns = cellNumber(Text2.text());
  editorState.addressEditRows = cellNumber(Text3.text());
  return isHexadecimal(start) && stretchFits();
}

void Form13::accept() {
  const bool usable = takeEntries();
  makeTopmost(*this, false);
  if (!usable) {
    return showRefusal({"アドレス値がROM DATAサイズを超えてしまいます。",
                        "An address value will exceed ROM DATA size."});
  }
  unload();
  saveSettingsOrTell("アドレス指定編集");
  writeBackAll();
  setProgress(-1);
  openDialog(form6);
}

void ADR_EDIT() { openDialog(form13); }
