#include "controls/svg.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "controls/markup.h"
#include "platform/numbers.h"

namespace {

// A line of one pixel runs through the middle of its pixels.
constexpr double half = 0.5;

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + '"';
}

std::string attribute(const char* name, double value) {
  return attribute(name, plainNumber(value));
}

struct Area {
  double x, y, width, height;
};

std::string rectangle(const Area& area, const std::string& fill, const std::string& stroke = {}) {
  return "<rect" + attribute("x", area.x) + attribute("y", area.y) +
         attribute("width", area.width) + attribute("height", area.height) +
         attribute("fill", fill) + (stroke.empty() ? stroke : attribute("stroke", stroke)) + "/>\n";
}

// Both corners included.
Area areaOf(const CanvasItem& item) {
  const auto left = static_cast<double>(std::min(item.x1, item.x2));
  const auto top = static_cast<double>(std::min(item.y1, item.y2));
  return {left, top, std::max(item.x1, item.x2) - left + 1, std::max(item.y1, item.y2) - top + 1};
}

std::string svgOf(const CanvasItem& rectangular) {
  const Area area = areaOf(rectangular);
  const std::string colour = colourText(rectangular.colour);
  if (rectangular.kind == CanvasItem::bar) return rectangle(area, colour);
  return rectangle({area.x + half, area.y + half, area.width - 1, area.height - 1}, "none", colour);
}

std::string point(int x, int y) { return plainNumber(x + half) + ' ' + plainNumber(y + half); }

// Lines that follow one another in one colour are one path.
std::string svgOf(const std::vector<CanvasItem>& drawing) {
  std::string text;
  for (std::size_t i = 0; i < drawing.size();) {
    const CanvasItem& first = drawing[i];
    if (first.kind != CanvasItem::line) {
      text += svgOf(drawing[i++]);
      continue;
    }
    text += "<path fill=\"none\" stroke-linecap=\"square\"" +
            attribute("stroke", colourText(first.colour)) + " d=\"";
    for (; i < drawing.size() && drawing[i].kind == CanvasItem::line &&
           drawing[i].colour == first.colour;
         ++i) {
      text += 'M' + point(drawing[i].x1, drawing[i].y1) + 'L' + point(drawing[i].x2, drawing[i].y2);
    }
    text += "\"/>\n";
  }
  return text;
}

std::string frameOf(const PictureBox& box) {
  const double by = box.border ? half : 0;
  return rectangle(
      {box.x + by, box.y + by, static_cast<double>(box.width), static_cast<double>(box.height)},
      box.fill ? colourText(*box.fill) : "none",
      box.border ? colourText(*box.border) : std::string());
}

std::string lineOfText(const PictureBox& box, std::string_view line, double middle) {
  struct Place {
    double x;
    const char* anchor;
  };
  const std::array<Place, 3> places{
      {{static_cast<double>(box.x + PictureBox::room), "start"},
       {box.x + box.width / 2.0, "middle"},
       {static_cast<double>(box.x + box.width - PictureBox::room), "end"}}};
  const Place& place = places[box.align];
  const double capitalHeight = box.fontPixels * 8 / 11.0;
  std::string text =
      "<text" + attribute("x", place.x) + attribute("y", std::round(middle + capitalHeight / 2)) +
      attribute("fill", colourText(box.ink)) + attribute("text-anchor", place.anchor);
  if (box.fontPixels != PictureBox::usualFont) text += attribute("font-size", box.fontPixels);
  if (box.bold) text += attribute("font-weight", "bold");
  return text + '>' + escaped(line) + "</text>\n";
}

std::string svgOf(const PictureBox& box) {
  std::string text = box.fill || box.border ? frameOf(box) : std::string();
  if (box.text.empty()) return text;
  const double lineHeight = box.fontPixels * 7 / 6.0;
  const auto lines = std::count(box.text.begin(), box.text.end(), '\n');
  double middle = box.y + (box.height - lineHeight * static_cast<double>(lines)) / 2;
  std::string_view rest = box.text;
  for (;;) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    if (!line.empty()) text += lineOfText(box, line, middle);
    if (end == std::string_view::npos) return text;
    rest.remove_prefix(end + 1);
    middle += lineHeight;
  }
}

}  // namespace

std::string svgText(const Picture& picture) {
  const std::string width = std::to_string(picture.width);
  const std::string height = std::to_string(picture.height);
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
      attribute("viewBox", "0 0 " + width + ' ' + height) + attribute("width", width) +
      attribute("height", height) + attribute("font-family", "sans-serif") +
      attribute("font-size", PictureBox::usualFont) +
      " xml:space=\"preserve\">\n<style>text{white-space:pre}</style>\n<rect width=\"100%\" "
      "height=\"100%\"" +
      attribute("fill", colourText(picture.ground)) + "/>\n" + svgOf(picture.drawing);
  for (const PictureBox& box : picture.boxes) text += svgOf(box);
  return text + "</svg>\n";
}
