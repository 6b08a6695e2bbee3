// What is wrong with an address map file, line by line.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rom/map_entries.h"
#include "rom/map_values.h"

struct AddressProblem {
  std::size_t line = 0;  // in the file, from 1; 0: of no one line
  std::string what;
  bool stopsReading = false;  // the program doesn't take what stands behind it
};

struct CheckedAddressMap {
  AddressMap map;  // as the program takes it, up to the value that ends its parse
  std::vector<AddressProblem> problems;
};

// Unknown keywords, values that can't be read, keywords that come twice, sizes that no grid shows,
// bytes that don't fit rows and columns, entries that overlap, and, beside an image, entries that
// lie beyond its end. `text` is UTF-8.
CheckedAddressMap checkAddressMap(std::string_view text, std::optional<ImageView> image = {});
