#include "rom/address_check.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>
#include <utility>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/text_encoding.h"
#include "rom/address_items.h"
#include "rom/address_parse.h"
#include "rom/map_traits.h"

namespace {

constexpr std::size_t mostItems = 1001;
constexpr std::size_t valuesOfEntry = 6;
constexpr const char* modelKeyword = "TYPE_UNIT";

struct Item {
  std::string text;
  std::size_t line;
};

// As the program takes them: comments don't count.
std::vector<Item> itemsOf(std::string_view text) {
  std::vector<Item> items;
  std::size_t number = 0;
  for (const std::string& line : splitLines(text)) {
    ++number;
    AddressItems parts(line.empty() ? std::string_view("\n") : std::string_view(line));
    while (auto item = parts.next()) {
      if (!item->starts_with('#')) items.push_back({std::move(*item), number});
    }
  }
  return items;
}

bool isBlank(const std::string& text) { return text.find_first_not_of(" \t") == std::string::npos; }

std::string hex(std::int64_t address) { return "&H" + hexDigits(address, 2); }

// A map's or a parameter's entry in the file.
struct Entry {
  std::string keyword;
  std::size_t line;
  std::int64_t from;
  std::int64_t to;  // past the last byte
};

class Check {
 public:
  Check(std::vector<Item> items, std::optional<ImageView> image)
      : items_(std::move(items)), image_(image) {}

  CheckedAddressMap run() {
    if (items_.size() > mostItems) {
      tell(items_[mostItems].line, "more than " + std::to_string(mostItems) + " items", true);
    }
    parse();
    walk();
    compareEntries();
    std::ranges::stable_sort(checked_.problems, {}, &AddressProblem::line);
    return std::move(checked_);
  }

 private:
  void tell(std::size_t line, std::string what, bool stopsReading = false) {
    checked_.problems.push_back({line, std::move(what), stopsReading});
  }

  void parse() {
    std::vector<std::string> texts;
    for (const Item& item : items_) texts.push_back(item.text);
    const ParsedAddressMap parsed = parseAddressMap(texts, texts.size());
    checked_.map = parsed.map;
    if (parsed.failure != 0) {
      tell(0, "the program stops reading this map at a value: " + failureText(parsed.failure),
           true);
    }
  }

  void walk() {
    for (std::size_t i = 0; i < items_.size();) {
      const Item& item = items_[i];
      const std::size_t values = valuesBehind(item);
      if (values == 0 && !isBlank(item.text)) {
        tell(item.line, "unknown keyword \"" + item.text + "\"");
      } else if (values > 0) {
        note(item);
        if (i + values >= items_.size()) {
          return tell(item.line, item.text + ": only " + std::to_string(items_.size() - i - 1) +
                                     " of " + std::to_string(values) + " values");
        }
        if (values == valuesOfEntry) checkEntry(i);
      }
      i += values + 1;
    }
    if (lines_.empty()) tell(0, "no keyword at all", true);
    if (!lines_.empty() && !lines_.contains(modelKeyword)) {
      tell(0, std::string("no ") + modelKeyword + ": the model has no name");
    }
  }

  // How many values stand behind a keyword; 0 for what is none.
  static std::size_t valuesBehind(const Item& item) {
    if (item.text == modelKeyword) return 1;
    const auto named = [&item](const auto& traits) { return item.text == traits.keyword; };
    const bool known =
        std::ranges::any_of(mapTraits, named) || std::ranges::any_of(paramTraits, named);
    return known ? valuesOfEntry : 0;
  }

  void note(const Item& item) {
    const auto [place, isFirst] = lines_.emplace(item.text, item.line);
    if (isFirst) return;
    tell(item.line, item.text + " again: it stands in line " + std::to_string(place->second) +
                        " already, and the last one counts");
    place->second = item.line;
  }

  std::optional<std::int32_t> number(const Item& keyword, const Item& value, const char* what) {
    std::int32_t result = 0;
    if (trapFailure([&] { result = parseLong(value.text); }) == 0) return result;
    tell(value.line,
         keyword.text + ": the " + what + " \"" + value.text + "\" is no number of 32 bits");
    return {};
  }

  void checkEntry(std::size_t at) {
    const Item& keyword = items_[at];
    constexpr std::array<const char*, 4> names{"address", "number of columns", "number of rows",
                                               "number of bytes"};
    std::array<std::int64_t, 4> numbers{};
    for (std::size_t i = 0; i < names.size(); ++i) {
      const auto value = number(keyword, items_[at + 1 + i], names[i]);
      if (!value) return;
      numbers[i] = *value;
    }
    const auto [address, columns, rows, bytes] = numbers;
    if (bytes <= 0) return;  // the model lacks it
    if (address < 0) tell(items_[at + 1].line, keyword.text + ": a negative address");
    const auto named = [&](const MapTraits& traits) { return keyword.text == traits.keyword; };
    const auto map = std::ranges::find_if(mapTraits, named);
    std::int64_t length = bytes;
    if (map != mapTraits.end()) length = checkSize(keyword, *map, columns, rows, bytes);
    if (map != mapTraits.end() && map->scaled()) checkScale(keyword, items_[at + 5]);
    if (image_ && address + length > std::ssize(*image_)) {
      tell(keyword.line, keyword.text + ": ends at " + hex(address + length - 1) +
                             ", behind the image's last byte at " + hex(std::ssize(*image_) - 1));
    }
    entries_.push_back({keyword.text, keyword.line, address, address + length});
  }

  // Gives the bytes that its cells take.
  std::int64_t checkSize(const Item& keyword, const MapTraits& traits, std::int64_t columns,
                         std::int64_t rows, std::int64_t bytes) {
    if (traits.family == MapFamily::airflow) columns = bytes / 2;
    if (traits.family == MapFamily::rpmScale) rows = 1;
    if (columns < 1 || rows < 1) {
      tell(keyword.line, keyword.text + ": " + std::to_string(rows) + " rows and " +
                             std::to_string(columns) + " columns show nothing");
      return 0;
    }
    if ((columns + 1) > maximumMapCells / (rows + 1)) {
      tell(keyword.line, keyword.text + ": more cells than a grid can have");
      return bytes;
    }
    const std::int64_t taken = columns * rows * traits.cellBytes();
    if (taken != bytes) {
      tell(keyword.line, keyword.text + ": " + std::to_string(bytes) + " bytes, but its " +
                             std::to_string(rows) + " x " + std::to_string(columns) +
                             " cells take " + std::to_string(taken));
    }
    return taken;
  }

  void checkScale(const Item& keyword, const Item& value) {
    const auto scale = number(keyword, value, "scale");
    if (scale && *scale == 0) tell(value.line, keyword.text + ": a scale of 0 shows only zeros");
  }

  void compareEntries() {
    std::ranges::stable_sort(entries_, {}, &Entry::from);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      for (std::size_t j = i + 1; j < entries_.size(); ++j) {
        const Entry &one = entries_[i], &other = entries_[j];
        if (other.from >= one.to) break;
        const auto& [first, second] =
            one.line < other.line ? std::tie(one, other) : std::tie(other, one);
        // Several maps may share a scale or a limit on purpose: the same bytes are no mistake.
        if (one.from == other.from && one.to == other.to) continue;
        tell(second.line, second.keyword + ": overlaps " + first.keyword + " of line " +
                              std::to_string(first.line) + " at " + hex(other.from));
      }
    }
  }

  std::vector<Item> items_;
  std::optional<ImageView> image_;
  std::map<std::string, std::size_t> lines_;  // of keywords
  std::vector<Entry> entries_;
  CheckedAddressMap checked_;
};

}  // namespace

CheckedAddressMap checkAddressMap(std::string_view text, std::optional<ImageView> image) {
  return Check(itemsOf(text), image).run();
}
