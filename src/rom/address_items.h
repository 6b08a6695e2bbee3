// The items of an address map file: comma-separated values over any number of lines.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// Hands out the items of a text one by one. An item ends at a comma or a line end (CR LF, LF or
// CR); leading blanks and tabs are skipped. An item in double quotes may hold commas: what follows
// its closing quote up to the item's end is dropped, and a quote that is never closed ends with its
// line. Blanks behind an unquoted item are dropped. A blank line is one empty item.
class AddressItems {
 public:
  explicit AddressItems(std::string_view text) : rest_(text) {}
  // Nothing at the end of the text.
  std::optional<std::string> next();

 private:
  std::string quoted();
  std::string plain();
  void dropEnd();

  std::string_view rest_;
};

// Puts the items of `text` into `lines` and their number into `count`. A comment, which begins with
// "#", doesn't count: the next item takes its place, and the last one's place is behind the items.
// An item behind as many as there are lines fails with badSubscript; all lines are taken then.
void takeItems(std::string_view text, std::span<std::string> lines, std::int32_t& count);
