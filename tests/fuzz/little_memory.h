// A machine of little memory: what asks for much, as a file of two far records may, is refused at
// once. Included by one source of a program.
#pragma once

#include <cstdlib>
#include <limits>
#include <new>

inline constexpr std::size_t anySize = std::numeric_limits<std::size_t>::max();
inline std::size_t mostMemory = anySize;  // at once

// In force while it lives.
struct LittleMemory {
  LittleMemory() { mostMemory = 16 << 20; }
  ~LittleMemory() { mostMemory = anySize; }
};

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return size < mostMemory ? std::malloc(size) : nullptr;
}
void* operator new(std::size_t size) {
  if (void* const place = operator new(size, std::nothrow)) return place;
  throw std::bad_alloc();
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t) noexcept { std::free(place); }
