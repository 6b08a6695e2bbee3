// The made-up car: one table of everything that its image holds. The address maps and the image
// are both written from this table, so that they can't disagree. No figure in it was taken from
// a real car; the curves are formulas that look the part.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

// One entry of the address map. `columns` and `rows` count cells, `bytes` the length in the image;
// `bytes` 0 lists an entry that this car doesn't have. `valueAt` gives the byte at (column, row),
// both from 0; entries of one row give their bytes along the columns.
struct DemoEntry {
  const char* keyword;
  int address;
  int columns;
  int rows;
  int bytes;
  const char* scale;
  const char* japanese;
  const char* english;
  std::uint8_t (*valueAt)(int column, int row);
};

constexpr std::size_t demoImageBytes = 32 * 1024;

// All entries in the order of the address map.
std::span<const DemoEntry> demoEntries();

// The whole image: a readable notice at its start, the maps where the table has them, 0xFF around
// them and made-up noise where a real image holds its program.
std::vector<std::uint8_t> demoImage();
