// Random images and random valid address maps over them; the same seed gives the same car.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

using Random = std::mt19937;

// A whole number from `low` to `high`, both included; the same on every system.
int randomNumber(Random& random, int low, int high);

// 40 to 1500 bytes; never only zeros.
std::vector<std::uint8_t> randomImage(Random& random);

// An address map file whose entries all lie within `imageBytes` (40 at least), as they come: they
// overlap, reach the last byte, or are absent. No scale is 0.
std::string randomAddressMap(Random& random, std::size_t imageBytes);
