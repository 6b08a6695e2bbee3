// A colour as red, green and blue, each 0 to 255.
#pragma once

#include <cstdint>

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Colour&) const = default;
};

constexpr Colour black{0, 0, 0};
constexpr Colour white{255, 255, 255};

// A colour of components that are known to lie in 0 to 255.
constexpr Colour rgb(int red, int green, int blue) {
  return {static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
          static_cast<std::uint8_t>(blue)};
}
