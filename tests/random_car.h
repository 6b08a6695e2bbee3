// Random images and random valid address maps over them; the same seed gives the same car.
#pragma once

#include <algorithm>
#include <random>

#include "core/map_kinds.h"
#include "support.h"

using Random = std::mt19937;

// A whole number from `low` to `high`, both included; the same on every system.
inline int randomNumber(Random& random, int low, int high) {
  return low + static_cast<int>(random() % static_cast<std::uint32_t>(high - low + 1));
}

template <class Items>
auto& oneOf(Random& random, Items& items) {
  const int last = static_cast<int>(std::size(items)) - 1;
  return items[static_cast<std::size_t>(randomNumber(random, 0, last))];
}

// An address map whose entries all lie within `imageBytes` (40 at least), as they come: they
// overlap, reach the last byte, or are absent. No scale is 0.
inline std::string randomAddressMap(Random& random, int imageBytes) {
  static constexpr const char* speedScales[] = {"1", "12", "25", "50", "&H64", "-50"};
  static constexpr const char* limitScales[] = {"1", "2", "100", "12.5", "0.3", "-4"};
  const auto number = [&](int low, int high) { return randomNumber(random, low, high); };
  std::vector<std::string> blocks;
  const auto add = [&](const char* keyword, int columns, int rows, int bytes,
                       const std::string& scale) {
    if (number(1, 10) <= 3) return;
    const int highest = imageBytes - bytes;
    const int address = number(1, 5) == 1 ? highest : number(0, highest);
    const int place = number(0, static_cast<int>(blocks.size()));
    blocks.insert(blocks.begin() + place,
                  mapBlock(keyword, std::to_string(address), columns, rows, bytes, scale));
  };
  for (const MapKind& kind : mapKinds()) {
    const bool airflow = kind.family == MapFamily::airflow;
    const bool oneRow = (airflow || kind.isScale()) && number(1, 30) > 1;
    const int columns = number(1, 16);
    const int rows = oneRow ? 1 : number(1, std::min(17, imageBytes / columns));
    const int bytes =
        airflow ? number(1, std::min(130, imageBytes)) : columns * (kind.isScale() ? 1 : rows);
    const std::string scale = kind.family == MapFamily::rpmScale ? oneOf(random, speedScales)
                                                                 : std::to_string(number(1, 7));
    add(kind.keyword, columns, rows, bytes, scale);
  }
  for (const ParamKind& kind : paramKinds()) {
    const int bytes = number(1, kind.scaled() ? 4 : 9);
    add(kind.keyword, 1, 1, bytes, oneOf(random, limitScales));
  }
  std::string text = "TYPE_UNIT\r\nRandom car\r\n";
  for (const std::string& block : blocks) text += block;
  return text;
}
