#include "exchange/map_table.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "core/map_extent.h"
#include "core/map_palette.h"
#include "core/stored_bytes.h"
#include "platform/utf8.h"

namespace {

constexpr int titleHeight = 30;  // pixels
constexpr int rowHeight = 20;
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

std::string joined(const MapTable& table, const char* divider, const char* end) {
  std::string text;
  for (const TableRow& row : table.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i > 0 ? divider : "") + row[i].text;
    text += end;
  }
  return text;
}

Colour inkOf(const TableCell& cell) {
  return cell.colour && !cell.ofScale ? shownInk(white, *cell.colour) : black;
}

int widthOfColumns(const MapTable& table) {
  std::size_t longest = 3;  // characters
  for (const TableRow& row : table.rows) {
    for (const TableCell& cell : row) longest = std::max(longest, cell.text.size());
  }
  return static_cast<int>(longest) * characterWidth + 8;
}

std::string attribute(const char* name, int value) {
  return std::string(" ") + name + "=\"" + std::to_string(value) + '"';
}

std::string svgOf(const PictureBox& box) {
  std::string text;
  if (box.fill || box.border) {
    text += "<rect" + attribute("x", box.x) + attribute("y", box.y) +
            attribute("width", box.width) + attribute("height", box.height) + " fill=\"" +
            (box.fill ? colourText(*box.fill) : "none") + '"';
    if (box.border) text += " stroke=\"" + colourText(*box.border) + '"';
    text += "/>\n";
  }
  if (box.text.empty()) return text;
  struct Place {
    int x;
    const char* anchor;
  };
  const std::array<Place, 3> places{
      {{box.x + 4, "start"}, {box.x + box.width / 2, "middle"}, {box.x + box.width - 4, "end"}}};
  const Place& place = places[box.align];
  const int baseline = box.y + box.height / 2 + Picture::fontPixels * 4 / 11;
  return text + "<text" + attribute("x", place.x) + attribute("y", baseline) + " fill=\"" +
         colourText(box.ink) + "\" text-anchor=\"" + place.anchor + '"' +
         (box.bold ? " font-weight=\"bold\"" : "") + '>' + escaped(box.text) + "</text>\n";
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

std::string tabbedText(const MapTable& table) { return joined(table, "\t", "\n"); }

std::string csvText(const MapTable& table) { return joined(table, ",", "\r\n"); }

Picture pictureOf(const MapTable& table) {
  const int columnWidth = widthOfColumns(table);
  std::size_t columns = 1;
  for (const TableRow& row : table.rows) columns = std::max(columns, row.size());
  Picture picture;
  const int titleWidth = static_cast<int>(utf32(table.title).size()) * 2 * characterWidth;
  picture.width = std::max(static_cast<int>(columns) * columnWidth, titleWidth) + 2 * margin;
  picture.height = titleHeight + static_cast<int>(table.rows.size()) * rowHeight + 2 * margin;
  picture.boxes.push_back({margin,
                           margin,
                           picture.width - 2 * margin,
                           titleHeight - 8,
                           {},
                           {},
                           table.title,
                           black,
                           PictureBox::left,
                           true});
  int y = margin + titleHeight;
  for (const TableRow& row : table.rows) {
    int x = margin;
    for (const TableCell& cell : row) {
      const auto ground = cell.ofScale ? std::optional(scaleGround) : cell.colour;
      picture.boxes.push_back({x, y, columnWidth, rowHeight, ground, lineGrey, cell.text,
                               inkOf(cell), PictureBox::right, cell.ofScale});
      x += columnWidth;
    }
    y += rowHeight;
  }
  return picture;
}

std::string svgText(const Picture& picture) {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "
      "xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " +
      std::to_string(picture.width) + ' ' + std::to_string(picture.height) + '"' +
      attribute("width", picture.width) + attribute("height", picture.height) +
      " font-family=\"sans-serif\"" + attribute("font-size", Picture::fontPixels) +
      ">\n<rect width=\"100%\" height=\"100%\" fill=\"" + colourText(picture.ground) + "\"/>\n";
  for (const PictureBox& box : picture.boxes) text += svgOf(box);
  return text + "</svg>\n";
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

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        // XML has no other control characters.
        result += static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' ? ' ' : c;
    }
  }
  return result;
}

std::string colourText(Colour colour) {
  constexpr const char* digits = "0123456789abcdef";
  std::string text = "#";
  for (const std::uint8_t part : {colour.red, colour.green, colour.blue}) {
    text += digits[part >> 4];
    text += digits[part & 15];
  }
  return text;
}
