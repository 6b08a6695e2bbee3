#include "calc/af_table.h"

#include <algorithm>

#include "core/dialogs.h"
#include "core/map_colours.h"
#include "core/map_kinds.h"
#include "platform/numbers.h"

namespace {

constexpr Grid::Look tableLook{white, rgb(64, 64, 64)};
constexpr int cellWidth = 430;     // twips
constexpr int addressWidth = 620;  // twips

void showCell(Grid& grid, int row, int column, const std::string& text) {
  grid.setCell(row, column, formatFixed(airFuelRatio(realClamped(parseNumber(text))), 1),
               cellColour(cellNumber(text)));
}

}  // namespace

Form5 form5;

Form5::Form5() : Window("Form5"), Grid1(*this, rows + 1, columns + 1, 1, 1, tableLook) {
  wireDialog(*this, {[this] { fill(); }, &Command1, {}, &Command1, &Command1});
  Grid1.nameAfter({&Frame1});
}

void Form5::fill() {
  setCaption(captioned({"A/F表示", "A/F Display"}));
  Grid1.clear();
  Grid1.setColumnWidths(cellWidth);
  Grid1.setColumnWidth(0, addressWidth);
  const MapKind* const kind = activeMap();
  if (!kind) return;
  const MapEntry& entry = entryOf(*kind);
  showAfTable(Grid1, gridOf(*kind), columnsOf(entry), rowsOf(entry), entry.caption, entry.address);
}

float airFuelRatio(float number) {
  constexpr float centre = 128;
  const float enrichment = (number + centre) / centre;
  return static_cast<float>(14.7 / static_cast<double>(enrichment));
}

void showAfTable(Grid& targetGrid, const Grid& sourceGrid, int columns, int rows,
                 const std::string& caption, std::int32_t address) {
  form5.Frame1.setCaption(worded({"A/F計算結果 - ", "Result of calculating A/F  - "}) + caption);
  const GridPause pause(targetGrid, GridPause::Hide::yes);
  const int shownColumns = std::min({columns, Form5::columns, sourceGrid.columns() - 1});
  const int shownRows = std::min({rows, Form5::rows, sourceGrid.rows() - 1});
  for (int c = 1; c <= shownColumns; ++c) {
    targetGrid.setText(0, c, "+" + hexText(static_cast<std::uint32_t>(c - 1)));
  }
  for (int r = 1; r <= shownRows; ++r) {
    const std::int64_t rowAddress = address + std::int64_t{r - 1} * columns;
    targetGrid.setText(r, 0, hexDigits(rowAddress, 2));
    for (int c = 1; c <= shownColumns; ++c) showCell(targetGrid, r, c, sourceGrid.text(r, c));
  }
}

void AF_DISP_FORM() { openDialog(form5); }
