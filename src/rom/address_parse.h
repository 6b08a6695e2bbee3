// What the items of an address map file say, as a value. Nothing that is shown is asked or changed.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "rom/map_entries.h"

// What is shown of an entry: told by each of its blocks that was read whole.
struct EntryLook {
  std::string caption;
  std::string toolTip;  // the caption, the place and the length as they stand in the file
  int rows = 0;         // of the grid, its header included
  int columns = 0;
  int bytes = 0;
};

struct ParsedAddressMap {
  AddressMap map;
  // In the order of the blocks: the last one stands, and a grid that one of them makes smaller
  // loses its cells.
  std::array<std::vector<EntryLook>, mapCount> maps;
  std::array<std::vector<EntryLook>, paramCount> params;
  // The number of the value that ended the parse, 0 if none did. What was read before it stands:
  // entries in the order in which keywords are looked for, and of the entry itself its first
  // fields.
  int failure = 0;
};

// Parses the first `count` of `lines`, which the values of a last block may overrun. The fields of
// an entry that the lines don't give are those of `former`, but for its bytes, which are 0. A value
// that can't be converted, a value behind the last of `lines` or a grid of more cells than a grid
// can have is a failure.
ParsedAddressMap parseAddressMap(std::span<const std::string> lines, std::size_t count,
                                 const AddressMap& former = {});
