#include "exchange/map_table.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "controls/markup.h"
#include "core/map_extent.h"
#include "core/map_palette.h"
#include "core/stored_bytes.h"
#include "platform/utf8.h"

namespace {

constexpr int titleHeight = 30;  // pixels
constexpr int margin = 10;
constexpr int characterWidth = 9;
constexpr Colour scaleGround = rgb(236, 238, 242);
constexpr Colour lineGrey = rgb(128, 128, 128);

bool isWhole(const MapKind& kind, const GridBlock& block) {
  const GridBlock all = storedBlock(kind);
  return block.top <= all.top && block.left <= all.left && block.bottom >= all.bottom &&
         block.right >= all.right;
}

TableCell cellAt(const Grid& grid, int row, int column) {
  TableCell cell{grid.text(row, column)};
  if (grid.painted(row, column)) cell.colour = shownColour(grid.background(row, column));
  return cell;
}

TableRow scaleRow(const MapKind& kind, const GridBlock& block) {
  TableRow row;
  for (int c = block.left; c <= block.right; ++c)
    row.push_back({textOf(loadCellOf(kind, c)), true});
  return row;
}

template <class TextOf>
std::string joined(const MapTable& table, char divider, const char* end, const TextOf& textOf) {
  std::string text;
  for (const TableRow& row : table.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) text += divider;
      text += textOf(row[i].text);
    }
    text += end;
  }
  return text;
}

// In quotes where a reader would take a part of it for something else.
std::string csvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

Colour inkOf(const TableCell& cell) {
  return cell.colour && !cell.ofScale ? shownInk(white, *cell.colour) : black;
}

PictureBox boxOf(const TableCell& cell) {
  const auto ground = cell.ofScale ? std::optional(scaleGround) : cell.colour;
  return {0, 0, 0, 0, ground, lineGrey, cell.text, inkOf(cell), PictureBox::right, cell.ofScale};
}

}  // namespace

GridBlock storedBlock(const MapKind& kind) {
  const StoredCells cells(extentOf(kind));
  const Grid& grid = gridOf(kind);
  return {cells.top(), cells.left(), std::min(cells.top() + cells.rows(), grid.rows()) - 1,
          std::min(cells.left() + cells.columns(), grid.columns()) - 1};
}

bool hasScale(const MapKind* scale) { return scale && entryOf(*scale).present(); }

std::string textOf(const ScaleCell& cell) {
  return cell.scale ? gridOf(*cell.scale).text(cell.row, cell.column) : std::string();
}

MapTable tableOf(const MapKind& kind, const GridBlock& block) {
  const Grid& grid = gridOf(kind);
  const bool whole = isWhole(kind, block);
  const bool speeds = whole && hasScale(speedScaleOf(kind));
  MapTable table{nameOf(kind), {}};
  if (block.bottom < block.top || block.right < block.left) return table;
  if (whole && hasScale(loadScaleOf(kind))) {
    table.rows.push_back(scaleRow(kind, block));
    if (speeds) table.rows.back().insert(table.rows.back().begin(), TableCell{"", true});
  }
  for (int r = block.top; r <= block.bottom; ++r) {
    TableRow& row = table.rows.emplace_back();
    if (speeds) row.push_back({textOf(speedCellOf(kind, r)), true});
    for (int c = block.left; c <= block.right; ++c) row.push_back(cellAt(grid, r, c));
  }
  return table;
}

std::string tabbedText(const MapTable& table) {
  return joined(table, '\t', "\n", [](const std::string& text) { return text; });
}

std::string csvText(const MapTable& table) { return joined(table, ',', "\r\n", csvField); }

TableSize sizeOf(const MapTable& table) {
  TableSize size;
  std::size_t longest = 3;  // characters
  for (const TableRow& row : table.rows) {
    size.columns = std::max(size.columns, static_cast<int>(row.size()));
    for (const TableCell& cell : row) longest = std::max(longest, cell.text.size());
  }
  size.rows = static_cast<int>(table.rows.size());
  size.columnWidth = static_cast<int>(longest) * characterWidth + 8;
  return size;
}

void addCells(Picture& picture, const MapTable& table, int left, int top, int columnWidth) {
  int y = top;
  for (const TableRow& row : table.rows) {
    int x = left;
    for (const TableCell& cell : row) {
      PictureBox& box = picture.boxes.emplace_back(boxOf(cell));
      box.x = std::exchange(x, x + columnWidth);
      box.y = y;
      box.width = columnWidth;
      box.height = TableSize::rowHeight;
    }
    y += TableSize::rowHeight;
  }
}

Picture pictureOf(const MapTable& table) {
  const TableSize size = sizeOf(table);
  Picture picture;
  const int titleWidth = static_cast<int>(utf32(table.title).size()) * 2 * characterWidth;
  picture.width = std::max(size.width(), titleWidth) + 2 * margin;
  picture.height = titleHeight + size.height() + 2 * margin;
  PictureBox& title = picture.boxes.emplace_back();
  title = {margin, margin, picture.width - 2 * margin, titleHeight - 8};
  title.text = table.title;
  title.bold = true;
  addCells(picture, table, margin, margin + titleHeight, size.columnWidth);
  return picture;
}

std::string htmlTable(const MapTable& table) {
  std::string text = "<table>";
  for (const TableRow& row : table.rows) {
    text += "<tr>";
    for (const TableCell& cell : row) {
      const char* const kind = cell.ofScale ? "th" : "td";
      text += std::string("<") + kind;
      if (cell.colour) {
        text += " style=\"background:" + colourText(*cell.colour) +
                ";color:" + colourText(inkOf(cell)) + '"';
      }
      text += '>' + escaped(cell.text) + "</" + kind + '>';
    }
    text += "</tr>\n";
  }
  return text + "</table>\n";
}
