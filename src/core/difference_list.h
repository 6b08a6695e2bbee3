// The list of what differs between the image as a save would write it and what it is compared with:
// maps, scales and parameters, then stretches of bytes outside the address map.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/map_kinds.h"

struct Difference {
  const MapKind* map = nullptr;      // of a map or a scale
  const ParamKind* param = nullptr;  // of a parameter; neither: bytes outside the address map
  std::int64_t from = 0;             // the first byte that differs
  std::int64_t to = 0;               // the last one
  std::int64_t count = 0;            // cells or, outside, bytes that differ; 1 for a parameter
  std::int64_t up = 0;               // the largest change upwards, in the numbers shown; 0: none
  std::int64_t down = 0;             // the largest change downwards, below 0; 0: none
  bool isOutside() const { return !map && !param; }
};

// In the order of the tabs; none without a reference. Stretches outside the address map with fewer
// than 16 equal bytes between them are told as one, and behind the 500th all that no entry of the
// address map lies between.
std::vector<Difference> differences();

// Each place of a difference: where it is stored, what is compared with, and what a save would
// write; bytes in hexadecimal, cells and parameters as they are shown.
struct DifferentPlace {
  std::int64_t address;
  std::string former;
  std::string now;
  int row;  // in the map's grid
  int column;
};
void forEachPlace(const Difference& difference,
                  const std::function<void(const DifferentPlace&)>& tell);

// Puts what is compared with into the image in place of one difference.
void takeOver(const Difference& difference);

// What the user calls it.
std::string nameOf(const Difference& difference);
// What it is compared with: "the file", or the comparison image by its name.
std::string referenceName();
// "&H0100".
std::string addressText(std::int64_t address);

// All of them with all places, for a mail.
std::string differenceReport();
