#include "exchange/print_pages.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

#include "platform/utf8.h"

namespace {

// Points, which are a table's own pixels as long as it has room.
constexpr int titleFont = 15;
constexpr int titleHeight = 22;
constexpr int textFont = 10;
constexpr int textHeight = 16;
constexpr int headHeight = titleHeight + textHeight + 8;
constexpr int footHeight = textHeight + 6;
constexpr double leastFont = 5;
constexpr double leastScale = leastFont / PictureBox::usualFont;
constexpr double goodFont = 8;
constexpr double goodScale = goodFont / PictureBox::usualFont;
constexpr int mostBands = 32;
constexpr PaperArea usualSheet{510, 774};  // of A4, within its margins
constexpr PaperArea lyingSheet{usualSheet.height, usualSheet.width};

struct Headers {
  std::size_t rows = 0, columns = 0;
};

Headers headersOf(const MapTable& table) {
  const bool row = !table.rows.empty() && table.rows.front().back().ofScale;
  return {row ? 1U : 0U, !table.rows.empty() && table.rows.back().front().ofScale ? 1U : 0U};
}

double roomFor(const PaperArea& area) {
  return std::max(area.height - headHeight - footHeight, TableSize::rowHeight);
}

// How a table stands on its page: in so many bands, one below the other, and by what it is made
// smaller.
struct Layout {
  int bands = 1;
  double scale = 1;
};

int columnsOfBand(int columns, int bands) { return (columns + bands - 1) / bands; }

double scaleOf(const MapTable& table, int bands, const PaperArea& area) {
  const TableSize size = sizeOf(table);
  const Headers headers = headersOf(table);
  const int headed = static_cast<int>(headers.columns);
  const double width = (columnsOfBand(size.columns - headed, bands) + headed) * size.columnWidth;
  const double height = (size.rows * bands + bands - 1) * TableSize::rowHeight;
  return std::min({area.width / std::max(width, 1.0), roomFor(area) / std::max(height, 1.0), 1.0});
}

// As few bands as can well be read, else those that can be read best.
Layout layoutFor(const MapTable& table, const PaperArea& area) {
  Layout best{1, scaleOf(table, 1, area)};
  for (int bands = 2; bands <= mostBands && best.scale < goodScale; ++bands) {
    const double scale = scaleOf(table, bands, area);
    if (scale > best.scale) best = {bands, scale};
  }
  return best;
}

// So many rows and columns from a place on, behind their scales.
struct Part {
  std::size_t top, left;
  int rows, columns;
};

MapTable partOf(const MapTable& table, const Part& part) {
  const Headers headers = headersOf(table);
  MapTable taken{table.title, {}};
  const auto takeRow = [&](const TableRow& from) {
    const auto headed = from.begin() + static_cast<std::ptrdiff_t>(headers.columns);
    TableRow& row = taken.rows.emplace_back(from.begin(), headed);
    const auto first = from.begin() + static_cast<std::ptrdiff_t>(part.left);
    row.insert(row.end(), first,
               first + std::min<std::ptrdiff_t>(part.columns, from.end() - first));
  };
  if (headers.rows > 0) takeRow(table.rows.front());
  const std::size_t bottom = part.top + static_cast<std::size_t>(part.rows);
  for (std::size_t r = part.top; r < std::min(bottom, table.rows.size()); ++r) {
    takeRow(table.rows[r]);
  }
  return taken;
}

// Parts of this size, in reading order.
std::vector<MapTable> dividedBy(const MapTable& table, int rows, int columns) {
  const Headers headers = headersOf(table);
  std::vector<MapTable> parts;
  for (std::size_t r = headers.rows; r < table.rows.size(); r += static_cast<std::size_t>(rows)) {
    for (std::size_t c = headers.columns; c < table.rows.front().size();
         c += static_cast<std::size_t>(columns)) {
      parts.push_back(partOf(table, {r, c, rows, columns}));
    }
  }
  return parts;
}

std::vector<MapTable> bandsOf(const MapTable& table, int bands) {
  if (bands == 1) return {table};
  const int headed = static_cast<int>(headersOf(table).columns);
  const TableSize size = sizeOf(table);
  return dividedBy(table, size.rows, columnsOfBand(size.columns - headed, bands));
}

// The table, or the parts of it that can be read on a page each.
std::vector<MapTable> pageTables(const MapTable& table, const PaperArea& area) {
  if (layoutFor(table, area).scale >= leastScale) return {table};
  const Headers headers = headersOf(table);
  const auto fitting = [](double room, int each, std::size_t headed) {
    return std::max(static_cast<int>(room / leastScale) / each - static_cast<int>(headed), 1);
  };
  std::vector<MapTable> parts =
      dividedBy(table, fitting(roomFor(area), TableSize::rowHeight, headers.rows),
                fitting(area.width, sizeOf(table).columnWidth, headers.columns));
  for (std::size_t i = 0; i < parts.size(); ++i) {
    parts[i].title += " (" + std::to_string(i + 1) + '/' + std::to_string(parts.size()) + ')';
  }
  return parts;
}

// A page whose measures are told in points.
class Page {
 public:
  Page(const PaperArea& area, double scale) : area_(area), scale_(scale) {
    picture_.width = pixels(area.width);
    picture_.height = pixels(area.height);
  }
  PictureBox& text(const std::string& text, int y, int height, int font) {
    PictureBox& box = picture_.boxes.emplace_back();
    box = {-PictureBox::room, pixels(y), picture_.width + 2 * PictureBox::room, pixels(height)};
    box.text = text;
    box.fontPixels = pixels(std::min<double>(font, area_.width / widthOf(text)));
    return box;
  }
  int pixels(double points) const { return static_cast<int>(std::lround(points / scale_)); }
  Picture& picture() { return picture_; }

 private:
  // At most, with a font of one point.
  static double widthOf(const std::string& text) {
    constexpr double narrow = 0.7;
    double width = 1;
    for (const char32_t c : utf32(text)) width += c < 0x80 ? narrow : 1;
    return width;
  }

  PaperArea area_;
  double scale_;
  Picture picture_;
};

Page pageOf(const MapTable& table, const PageTexts& texts, const PaperArea& area) {
  const Layout layout = layoutFor(table, area);
  Page page(area, layout.scale);
  page.text(table.title, 0, titleHeight, titleFont).bold = true;
  page.text(texts.car, titleHeight, textHeight, textFont);
  page.text(texts.image, titleHeight, textHeight, textFont).align = PictureBox::right;
  page.text(texts.date, area.height - textHeight, textHeight, textFont);
  int top = page.pixels(headHeight);
  for (const MapTable& band : bandsOf(table, layout.bands)) {
    addCells(page.picture(), band, 0, top, sizeOf(table).columnWidth);
    top += sizeOf(band).height() + TableSize::rowHeight;
  }
  return page;
}

// In one piece.
double smallestScale(const std::vector<MapTable>& tables, const PaperArea& area) {
  double smallest = 1;
  for (const MapTable& table : tables) {
    smallest = std::min(smallest, scaleOf(table, 1, area));
  }
  return smallest;
}

}  // namespace

std::vector<Picture> pagesOf(const std::vector<MapTable>& tables, const PageTexts& texts,
                             const PaperArea& area) {
  std::vector<Page> pages;
  for (const MapTable& table : tables) {
    for (const MapTable& part : pageTables(table, area)) pages.push_back(pageOf(part, texts, area));
  }
  std::vector<Picture> pictures;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const std::string number = std::to_string(i + 1) + " / " + std::to_string(pages.size());
    pages[i].text(number, area.height - textHeight, textHeight, textFont).align = PictureBox::right;
    pictures.push_back(std::move(pages[i].picture()));
  }
  return pictures;
}

bool wantLandscape(const std::vector<MapTable>& tables) {
  return smallestScale(tables, lyingSheet) > smallestScale(tables, usualSheet);
}
