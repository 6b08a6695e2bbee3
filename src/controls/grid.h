// A rectangle of text cells with background colours: the edit store of a map. It has a current cell
// and an opposite corner, fixed header rows and columns, widths and heights in twips (1/1440 inch).
// Moving the current cell collapses the selection; an index outside fails with badSubscript.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/colour.h"
#include "controls/control.h"
#include "platform/failure.h"

// Four corners as the user made them: `row`, `column` is the current cell, the other pair the
// opposite corner, which may be smaller or greater.
struct GridSelection {
  int row = 0;
  int column = 0;
  int rowSel = 0;
  int columnSel = 0;
  bool operator==(const GridSelection&) const = default;
};

// The same rectangle from its low to its high corner, both included.
struct GridBlock {
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;
  int rows() const { return bottom - top + 1; }
  int columns() const { return right - left + 1; }
};

enum class MouseButton { left, right, middle };

// What a cell shows. Its mark is a sign of the program's beside its contents.
struct GridCell {
  std::string text;
  Colour background;
  bool painted = false;  // false for a cell that was never painted
  Mark mark = Mark::none;
  // The same contents.
  bool operator==(const GridCell& other) const {
    return text == other.text && background == other.background && painted == other.painted;
  }
};

class Grid : public Control {
 public:
  // How the grid looks; the record only keeps it. What has no colour here takes the desktop's.
  struct Look {
    std::optional<Colour> text = {};
    std::optional<Colour> lines = {};
    int leftColumns = 0;  // the first ones, whose texts stand at the left
  };
  // The largest number of cells that a size may ask for.
  static constexpr int maximumCells = 1'048'576;
  static constexpr int designColumnWidth = 960;  // twips
  static constexpr int designRowHeight = 240;    // twips

  Grid(Window& owner, int rows, int columns, int fixedRows, int fixedColumns, Look look);

  int rows() const { return rows_; }
  int columns() const { return columns_; }
  int fixedRows() const { return fixedRows_; }
  int fixedColumns() const { return fixedColumns_; }
  const Look& look() const { return look_; }
  // Gives the grid another size; cells that lie in both sizes keep their contents. The current cell
  // goes to the first data cell. A size below 0 or of more than `maximumCells` fails.
  void resize(int rows, int columns);

  const std::string& text(int row, int column) const { return cell(row, column).text; }
  Colour background(int row, int column) const { return cell(row, column).background; }
  // False for a cell that was never painted.
  bool painted(int row, int column) const { return cell(row, column).painted; }
  void setText(int row, int column, std::string_view text) {
    cell(row, column).text = text;
    cellChanged(row, column);
  }
  void setCell(int row, int column, std::string_view text, const Colour& colour) {
    Cell& target = cell(row, column);
    target.text = text;
    target.background = colour;
    target.painted = true;
    cellChanged(row, column);
  }
  const GridCell& cellAt(int row, int column) const { return cell(row, column); }
  Mark mark(int row, int column) const { return cell(row, column).mark; }
  void setMark(int row, int column, Mark mark);
  void clearMarks();
  // Puts the contents of `other` into the cell and gives what stood there; the mark stays.
  void swapCell(int row, int column, GridCell& other);
  // Takes all texts and colours away; the size stays.
  void clear();

  // Draws the eye to cells for a moment, each given as row times columns plus column.
  void lightUp(std::vector<std::int32_t> cells);
  const std::vector<std::int32_t>& litCells() const { return litCells_; }

  int row() const { return selection_.row; }
  int column() const { return selection_.column; }
  int rowSel() const { return selection_.rowSel; }
  int columnSel() const { return selection_.columnSel; }
  const GridSelection& selection() const { return selection_; }
  GridBlock block() const;
  void setRow(int row);
  void setColumn(int column);
  // The cursor's cell and the far corner at once.
  void setSelection(const GridSelection& selection);
  // The selected cells' text: tabs between columns, carriage returns between rows.
  std::string clip() const;

  // What a row and a column stand for beside what their headers tell, "" for nothing.
  std::function<std::string(int row)> rowMeaning;
  std::function<std::string(int column)> columnMeaning;
  // What a data cell is called: its row, its column and its value.
  std::string spokenCell(int row, int column) const;

  // Repainting. Writes while it is off are shown when it goes on again.
  bool redraw() const { return redraw_; }
  void setRedraw(bool on);

  int columnWidth(int column) const;
  int rowHeight(int row) const;
  void setColumnWidths(int twips);
  void setColumnWidth(int column, int twips);
  void setRowHeight(int row, int twips);

  // The user's doors. A selection is kept inside the data cells where the grid has any.
  void userSelect(const GridSelection& selection);
  void userDoubleClick();
  void userKey(char32_t key);
  // The same with Ctrl, for a key that is no command of the window.
  void userControlKey(char32_t key);
  // A key that repeats goes up and down each time on some systems; `userKeyRest` is its real end.
  void userKeyUp();
  void userKeyRest();
  void userMouseDown(MouseButton button);

  std::function<void()> onSelect;
  std::function<void()> onDoubleClick;
  std::function<void(char32_t)> onKey;
  std::function<void(char32_t)> onControlKey;
  std::function<void()> onKeyUp;
  std::function<void(MouseButton)> onMouseDown;

 private:
  using Cell = GridCell;
  void checkRow(int row) const {
    if (row < 0 || row >= rows_) throw Failure(badSubscript);
  }
  void checkColumn(int column) const {
    if (column < 0 || column >= columns_) throw Failure(badSubscript);
  }
  const Cell& cell(int row, int column) const {
    checkRow(row);
    checkColumn(column);
    return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                  static_cast<std::size_t>(column)];
  }
  Cell& cell(int row, int column) {
    return const_cast<Cell&>(static_cast<const Grid*>(this)->cell(row, column));
  }
  void cellChanged(int row, int column) {
    if (!redraw_) {
      dirty_ = true;
    } else {
      tell({Change::cell, row, column});
    }
  }
  void pressKey(char32_t key, char32_t held, const std::function<void(char32_t)>& handler);
  void selectionChanged(const GridSelection& selection);
  void changed(Change::Kind kind);

  int rows_;
  int columns_;
  int fixedRows_;
  int fixedColumns_;
  Look look_;
  std::vector<Cell> cells_;
  GridSelection selection_;
  bool redraw_ = true;
  bool dirty_ = false;
  bool marksDirty_ = false;
  int widthOfAll_ = designColumnWidth;
  std::vector<int> ownWidths_;  // of the first columns; 0: the width of all
  std::vector<int> ownHeights_;
  std::vector<std::int32_t> litCells_;
  char32_t heldKey_ = 0;
};

// Keeps a grid from repainting, and hides it if told so, until the end of the scope, on every path.
// Both are put back as they were found.
class GridPause {
 public:
  enum class Hide { no, yes };
  explicit GridPause(Grid& grid, Hide hide = Hide::no);
  ~GridPause();
  GridPause(const GridPause&) = delete;
  GridPause& operator=(const GridPause&) = delete;

 private:
  Grid& grid_;
  bool redraw_;
  bool visible_;
};
