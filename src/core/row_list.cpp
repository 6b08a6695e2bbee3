#include "core/row_list.h"

#include <algorithm>

namespace {

constexpr Grid::Look listLook{{}, {}, 1};
constexpr int emptyRows = 2;  // the headers and a row without an item

}  // namespace

RowList::RowList(Window& owner, std::span<const ListColumn> columns)
    : Grid(owner, emptyRows, static_cast<int>(columns.size()), 1, 0, listLook), columns_(columns) {
  onSelect = [this] { lightRow(row()); };
}

void RowList::nameColumns() {
  int column = 0;
  for (const auto& [header, width] : columns_) {
    setColumnWidth(column, width);
    setText(0, column++, captioned(header));
  }
}

void RowList::showRows(const std::vector<std::vector<std::string>>& texts, int row) {
  const GridPause pause(*this);
  const int lines = std::max(static_cast<int>(texts.size()) + 1, emptyRows);
  if (rows() != lines) resize(lines, columns());
  for (int column = 0; column < columns(); ++column) setText(1, column, "");
  int line = 1;
  for (const auto& cells : texts) {
    for (int column = 0; column < columns(); ++column) {
      setText(line, column, cells[static_cast<std::size_t>(column)]);
    }
    ++line;
  }
  lightRow(std::clamp(row, 1, lines - 1));
}

void RowList::lightRow(int row) { setSelection({row, 0, row, columns() - 1}); }
