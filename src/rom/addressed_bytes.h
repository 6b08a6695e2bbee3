// A stretch of bytes and where it lies.
#pragma once

#include <cstdint>
#include <span>

struct AddressedBytes {
  std::uint64_t address = 0;
  std::span<const std::uint8_t> bytes;
};
