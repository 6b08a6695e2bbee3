#include "rom/address_items.h"

#include <algorithm>
#include <cstddef>

#include "platform/failure.h"

namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view lineEnds = "\r\n";
constexpr std::string_view itemEnds = ",\r\n";

std::string_view upTo(std::string_view text, std::string_view ends) {
  return text.substr(0, std::min(text.find_first_of(ends), text.size()));
}

}  // namespace

std::optional<std::string> AddressItems::next() {
  if (rest_.empty()) return std::nullopt;
  rest_.remove_prefix(std::min(rest_.find_first_not_of(blanks), rest_.size()));
  std::string item = rest_.starts_with('"') ? quoted() : plain();
  dropEnd();
  return item;
}

std::string AddressItems::quoted() {
  rest_.remove_prefix(1);
  const std::string_view line = upTo(rest_, lineEnds);
  const std::string_view item = upTo(line, "\"");
  rest_.remove_prefix(item.size());
  rest_.remove_prefix(upTo(rest_, itemEnds).size());
  return std::string(item);
}

std::string AddressItems::plain() {
  std::string_view item = upTo(rest_, itemEnds);
  rest_.remove_prefix(item.size());
  item = item.substr(0, item.find_last_not_of(blanks) + 1);
  return std::string(item);
}

void AddressItems::dropEnd() {
  if (rest_.starts_with("\r\n")) {
    rest_.remove_prefix(2);
  } else if (!rest_.empty()) {
    rest_.remove_prefix(1);
  }
}

void takeItems(std::string_view text, std::span<std::string> lines, std::int32_t& count) {
  count = 0;
  AddressItems items(text);
  while (const std::optional<std::string> item = items.next()) {
    const auto place = static_cast<std::size_t>(count);
    if (place == lines.size()) throw Failure(badSubscript);
    lines[place] = *item;
    if (!item->starts_with('#')) ++count;
  }
}
