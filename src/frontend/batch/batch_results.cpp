#include "frontend/batch/batch_results.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/utf8.h"

namespace {

// What a terminal takes for a text: two columns for wide characters.
std::size_t widthOf(const std::string& text) {
  std::size_t width = 0;
  for (const char32_t character : utf32(text)) {
    const bool halfWide = character >= 0xFF61 && character <= 0xFFDC;
    width += character >= 0x1100 && !halfWide ? 2 : 1;
  }
  return width;
}

std::string quoted(const std::string& field) {
  if (field.find_first_of(",\"\r\n") == std::string::npos) return field;
  std::string text = "\"";
  for (const char c : field) {
    if (c == '"') text += '"';
    text += c;
  }
  return text + '"';
}

}  // namespace

std::string aligned(const std::vector<Row>& rows, bool numbers) {
  std::vector<std::size_t> widths;
  for (const Row& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], widthOf(row[i]));
  }
  std::string text;
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string blanks(widths[i] - widthOf(row[i]), ' ');
      line += (i > 0 ? "  " : "") + (numbers ? blanks + row[i] : row[i] + blanks);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
  }
  return text;
}

std::string commaSeparated(const std::vector<Row>& rows) {
  std::string text;
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i > 0 ? "," : "") + quoted(row[i]);
    text += "\n";
  }
  return text;
}

std::string tabled(const std::vector<Row>& rows, Format format, bool numbers) {
  return format == Format::csv ? commaSeparated(rows) : aligned(rows, numbers);
}

std::string jsonText(const nlohmann::ordered_json& value) { return value.dump(2) + "\n"; }
