#include "exchange/spreadsheet.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/desktop.h"
#include "core/dialogs.h"
#include "core/history.h"
#include "core/map_cells.h"
#include "core/map_kinds.h"
#include "core/map_places.h"
#include "core/notices.h"
#include "core/refusals.h"
#include "core/wording.h"
#include "exchange/map_table.h"
#include "exchange/number_table.h"
#include "platform/numbers.h"
#include "rom/storable_numbers.h"

namespace {

// Values alone; what is no number is left out.
std::string htmlText(const MapTable& table) {
  MapTable values;
  for (const TableRow& row : table.rows) {
    TableRow& taken = values.rows.emplace_back();
    for (const TableCell& cell : row) {
      taken.push_back({parseAnswer(cell.text) ? cell.text : std::string()});
    }
  }
  return "<html><head><meta charset=\"utf-8\"></head><body>" + htmlTable(values) + "</body></html>";
}

// How many rows and columns of a table are scales.
struct Headers {
  std::size_t rows = 0;
  std::size_t columns = 0;
};

bool isScaleField(NumberTable& table, const FieldPlace& place, const ScaleCell& cell) {
  const auto number = table.number(place);
  return cell.scale && number && *number == cellNumber(textOf(cell));
}

// Around a part of the map: an empty corner, and the numbers of the scales.
bool bearsScales(NumberTable& table, const MapKind& kind, int row, int column) {
  if (table.rows() < 2 || table.columns() < 2 || !table.text({0, 0}).empty()) return false;
  for (std::size_t c = 1; c < table.columns(); ++c) {
    const int of = column + static_cast<int>(c) - 1;
    if (!isScaleField(table, {0, c}, loadCellOf(kind, of))) return false;
  }
  for (std::size_t r = 1; r < table.rows(); ++r) {
    const int of = row + static_cast<int>(r) - 1;
    if (!isScaleField(table, {r, 0}, speedCellOf(kind, of))) return false;
  }
  return true;
}

// A table that is larger than the whole map by its scales bears them.
Headers headersOf(NumberTable& table, const MapKind& kind, const GridBlock& all, int row,
                  int column) {
  const auto rows = static_cast<std::size_t>(all.rows());
  const auto columns = static_cast<std::size_t>(all.columns());
  const bool load = hasScale(loadScaleOf(kind)), speed = hasScale(speedScaleOf(kind));
  const bool oneRowMore = load && table.rows() == rows + 1;
  const bool oneColumnMore = speed && table.columns() == columns + 1;
  if (oneRowMore && oneColumnMore) return {1, 1};
  if (oneRowMore && table.columns() == columns) return {1, 0};
  if (oneColumnMore && table.rows() == rows) return {0, 1};
  return bearsScales(table, kind, row, column) ? Headers{1, 1} : Headers{};
}

// What stands in a field, short and without what can't be shown.
std::string quoted(std::string_view field) {
  constexpr std::size_t longest = 40;  // bytes
  std::string text(field.substr(0, longest));
  while (!text.empty() && field.size() > longest && (text.back() & 0xC0) == 0x80) text.pop_back();
  if (field.size() > longest && !text.empty() && (text.back() & 0x80)) text.pop_back();
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  return text + (field.size() > longest ? "..." : "");
}

void refuseField(const FieldPlace& place, const BothTexts& what) {
  const std::string row = std::to_string(place.row + 1);
  const std::string column = std::to_string(place.column + 1);
  showMadeUpRefusal(
      {row + " 行 " + column + " 列: " + what.japanese + "何も変更していません。",
       "Row " + row + ", column " + column + ": " + what.english + " Nothing has been changed."});
}

void refuseNoNumber(const FieldPlace& place, std::string_view field) {
  const std::string text = quoted(field);
  if (text.empty()) return refuseField(place, {"空欄です。", "there is no value."});
  refuseField(place,
              {"「" + text + "」は数値として読めません。", "\"" + text + "\" is no number."});
}

// The numbers of the table that go into cells, in reading order; nothing when a field was refused.
std::optional<std::vector<std::int32_t>> numbersFor(NumberTable& table, const Headers& headers,
                                                    const StorableNumbers& storable) {
  std::vector<std::int32_t> numbers;
  numbers.reserve(table.rows() * table.columns());
  for (std::size_t row = headers.rows; row < table.rows(); ++row) {
    for (std::size_t column = headers.columns; column < table.columns(); ++column) {
      const FieldPlace place{row, column};
      const auto number = table.number(place);
      if (!number) return refuseNoNumber(place, table.text(place)), std::nullopt;
      if (*number < storable.least || *number > storable.most) {
        const std::string range = decimalText(storable.least) + " - " + decimalText(storable.most);
        refuseField(place, {"「" + quoted(table.text(place)) + "」は範囲外です (" + range + ")。",
                            quoted(table.text(place)) + " is out of range (" + range + ")."});
        return std::nullopt;
      }
      numbers.push_back(storable.nearestTo(*number));
    }
  }
  return numbers;
}

void writeNumbers(const MapKind& kind, const GridBlock& block,
                  const std::vector<std::int32_t>& numbers) {
  Grid& grid = gridOf(kind);
  {
    const GridPause pause(grid);
    MapCells cells(kind);
    auto next = numbers.begin();
    for (int row = block.top; row <= block.bottom; ++row) {
      for (int column = block.left; column <= block.right; ++column) {
        cells.change(row, column, *next++);
      }
    }
  }
  grid.setSelection({block.top, block.left, block.bottom, block.right});
  showAfterEffect(kind);
}

void pasteInto(const MapKind& kind, const std::string& text) {
  const GridBlock all = storedBlock(kind);
  const Grid& grid = gridOf(kind);
  const int row = grid.row(), column = grid.column();
  const Comma comma = desktop().clipboardHasHtml() ? Comma::isDecimal : Comma::divides;
  NumberTable table(text, comma, static_cast<std::size_t>(all.rows() + 1),
                    static_cast<std::size_t>(all.columns() + 1));
  if (table.rows() == 0 && !table.beyond()) {
    return showRefusal({"クリップボードに値がありません。",
                        "There are no values on the "
                        "clipboard."});
  }
  const BothTexts outside{"マップの外になります。", "that lies outside the map."};
  if (table.beyond()) return refuseField(*table.beyond(), outside);
  const Headers headers = headersOf(table, kind, all, row, column);
  const int lastRow = row + static_cast<int>(table.rows() - headers.rows) - 1;
  const int lastColumn = column + static_cast<int>(table.columns() - headers.columns) - 1;
  if (lastRow > all.bottom || lastColumn > all.right) {
    const std::size_t r = headers.rows + static_cast<std::size_t>(all.bottom + 1 - row);
    const std::size_t c = headers.columns + static_cast<std::size_t>(all.right + 1 - column);
    return refuseField(
        lastColumn > all.right ? FieldPlace{headers.rows, c} : FieldPlace{r, headers.columns},
        outside);
  }
  const auto numbers = numbersFor(table, headers, storableNumbers(kind, entryOf(kind)));
  if (!numbers) return;
  withdrawNotice(pasteSubject);
  nameStep({"表計算から張り付け", "paste from a spreadsheet"});
  writeNumbers(kind, {row, column, lastRow, lastColumn}, *numbers);
}

}  // namespace

void copyForSpreadsheet() {
  const MapKind* const kind = mapOfCursor();
  if (!kind) return showRefusal(nothingSelected);
  const MapTable table = tableOf(*kind, gridOf(*kind).block());
  desktop().setClipboardTable(tabbedText(table), htmlText(table));
}

void pasteFromSpreadsheet() {
  const MapKind* const kind = mapOfCursor();
  if (!kind) return showRefusal(nothingSelected);
  const std::optional<std::string> text = desktop().clipboardText();
  if (text) return pasteInto(*kind, *text);
  showRefusal(
      {"クリップボードに文字の表がありません。", "There is no table of text on the clipboard."});
}
