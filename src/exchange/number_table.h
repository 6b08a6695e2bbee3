// A table of numbers in a text, as spreadsheets put it on the clipboard and into files: fields
// divided by tabs, else by semicolons, else by commas, some of them in quotes; numbers with a
// decimal point or a decimal comma. Empty lines at the end are none of it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Whether a comma may divide fields. In a text with tabs or semicolons it is never more than a
// decimal sign.
enum class Comma { divides, isDecimal };

// A place of the table, both counted from 0.
struct FieldPlace {
  std::size_t row = 0;
  std::size_t column = 0;
};

class NumberTable {
 public:
  // Reads `text`, which must outlive the table, as far as `mostRows` and `mostColumns` go; a text
  // of any length costs no more memory than these.
  NumberTable(std::string_view text, Comma comma, std::size_t mostRows, std::size_t mostColumns);

  std::size_t rows() const { return lines_.size(); }
  // Of the longest row.
  std::size_t columns() const { return columns_; }
  // The first field that is filled and lies beyond the most rows or columns.
  const std::optional<FieldPlace>& beyond() const { return beyond_; }

  // A field without quotes and blanks around it; "" where its row ends earlier.
  std::string_view text(FieldPlace place) const;
  // Nothing for a field that is no number. All numbers of a text have the same decimal sign, and a
  // comma before exactly three digits might as well divide thousands: neither is guessed.
  std::optional<double> number(FieldPlace place);

 private:
  void readLines(std::string_view text, char divider, std::size_t mostRows,
                 std::size_t mostColumns);

  std::vector<std::string_view> fields_;
  std::vector<std::size_t> lines_;  // where each row's fields begin
  std::size_t columns_ = 0;
  std::optional<FieldPlace> beyond_;
  char decimalSign_ = 0;
};
