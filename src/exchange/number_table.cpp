#include "exchange/number_table.h"

#include <algorithm>
#include <string>

#include "platform/numbers.h"

namespace {

constexpr std::string_view blanks = " \t";

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

char dividerOf(std::string_view text, Comma comma) {
  for (const char divider : {'\t', ';'}) {
    if (text.find(divider) != std::string_view::npos) return divider;
  }
  return comma == Comma::divides ? ',' : '\t';
}

// A mark of the encoding before the text, and what the clipboard puts behind it, are no text.
std::string_view bareText(std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
  while (text.ends_with('\0')) text.remove_suffix(1);
  return text;
}

// Takes fields from the front of a text, one by one.
class FieldReader {
 public:
  FieldReader(std::string_view text, char divider) : text_(text), divider_(divider) {}
  bool atEnd() const { return at_ >= text_.size(); }
  // Whether the field that was taken last ended its line.
  bool endsLine() const { return endsLine_; }
  std::string_view take() {
    return at_ < text_.size() && text_[at_] == '"' ? takeQuoted() : takeBare();
  }

 private:
  bool isEnd(char c) const { return c == divider_ || c == '\n' || c == '\r'; }
  std::string_view takeBare() {
    const std::size_t from = at_;
    while (at_ < text_.size() && !isEnd(text_[at_])) ++at_;
    const std::string_view field = text_.substr(from, at_ - from);
    passEnd();
    return field;
  }
  // As far as the quote that no other quote follows. What stands behind it up to the field's end
  // makes it no quoted field.
  std::string_view takeQuoted() {
    const std::size_t from = at_++;
    for (; at_ < text_.size(); ++at_) {
      if (text_[at_] != '"') continue;
      if (at_ + 1 >= text_.size() || text_[at_ + 1] != '"') break;
      ++at_;
    }
    const std::size_t quote = std::min(at_, text_.size());
    at_ = std::min(at_ + 1, text_.size());
    const bool closed = quote < text_.size() && (at_ >= text_.size() || isEnd(text_[at_]));
    while (at_ < text_.size() && !isEnd(text_[at_])) ++at_;
    const std::string_view field =
        closed ? text_.substr(from + 1, quote - from - 1) : text_.substr(from, at_ - from);
    passEnd();
    return field;
  }
  void passEnd() {
    endsLine_ = at_ >= text_.size() || text_[at_] != divider_;
    if (at_ < text_.size() && text_[at_] == '\r' && text_.substr(at_).starts_with("\r\n")) ++at_;
    ++at_;
  }

  std::string_view text_;
  char divider_;
  std::size_t at_ = 0;
  bool endsLine_ = false;
};

// A comma before exactly three digits, and no sign of another kind.
bool mayDivideThousands(std::string_view digits, std::size_t comma) {
  return comma > 0 && digits.size() - comma == 4;
}

}  // namespace

NumberTable::NumberTable(std::string_view text, Comma comma, std::size_t mostRows,
                         std::size_t mostColumns) {
  text = bareText(text);
  readLines(text, dividerOf(text, comma), mostRows, mostColumns);
}

void NumberTable::readLines(std::string_view text, char divider, std::size_t mostRows,
                            std::size_t mostColumns) {
  FieldReader reader(text, divider);
  std::size_t row = 0;
  std::size_t filledRows = 0;
  for (; !reader.atEnd() && !beyond_; ++row) {
    if (row < mostRows) lines_.push_back(fields_.size());
    bool filled = false;
    std::size_t column = 0;
    do {
      const std::string_view field = reader.take();
      const bool blank = withoutBlanks(field).empty();
      filled = filled || !blank;
      const bool inside = row < mostRows && column < mostColumns;
      if (inside) fields_.push_back(field);
      if (!inside && !blank) beyond_ = FieldPlace{row, column};
      ++column;
    } while (!reader.endsLine() && !beyond_);
    if (!filled) continue;
    filledRows = row + 1;
    columns_ = std::max(columns_, std::min(column, mostColumns));
  }
  if (filledRows < lines_.size()) {
    fields_.resize(lines_[filledRows]);
    lines_.resize(filledRows);
  }
}

std::string_view NumberTable::text(FieldPlace place) const {
  const std::size_t end = place.row + 1 < lines_.size() ? lines_[place.row + 1] : fields_.size();
  const std::size_t at = lines_[place.row] + place.column;
  return at < end ? withoutBlanks(fields_[at]) : std::string_view();
}

std::optional<double> NumberTable::number(FieldPlace place) {
  const std::string_view field = text(place);
  if (const auto whole = bareNumber(field)) return *whole;
  const std::size_t sign = field.find_first_of(".,");
  if (sign == std::string_view::npos) return parseAnswer(field);
  if (field.find_first_of(".,", sign + 1) != std::string_view::npos) return std::nullopt;
  if (field[sign] == ',' && mayDivideThousands(field, sign)) return std::nullopt;
  if (decimalSign_ == 0) decimalSign_ = field[sign];
  if (field[sign] != decimalSign_) return std::nullopt;
  std::string point(field);
  point[sign] = '.';
  return parseAnswer(point);
}
