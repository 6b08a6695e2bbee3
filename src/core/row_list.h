// A list in a window: a grid with a line of headers, a row for each item, and the chosen row lit as
// a whole.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "core/wording.h"

struct ListColumn {
  Wording header;
  int width;  // twips
};

class RowList : public Grid {
 public:
  // The texts of the first column stand at the left. `columns` outlives the list.
  RowList(Window& owner, std::span<const ListColumn> columns);

  // Headers and widths, in the language of windows.
  void nameColumns();
  // The items' texts, and the row that is chosen then, as far as there are so many; with no item
  // one row stands empty.
  void showRows(const std::vector<std::vector<std::string>>& texts, int row);
  void lightRow(int row);
  // The item of the current cell, counted from 0; without items it names none.
  std::size_t chosen() const { return static_cast<std::size_t>(row()) - 1; }

 private:
  std::span<const ListColumn> columns_;
};
