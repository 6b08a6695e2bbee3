// The colours of map cells: a shade from red to blue for each value.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "controls/colour.h"
#include "core/editor_state.h"

constexpr std::array<Colour, 256> shades = [] {
  std::array<Colour, 256> all;
  for (int blue = 0; blue < 256; ++blue) {
    all[static_cast<std::size_t>(blue)] = rgb(255 - blue, 0, blue);
  }
  return all;
}();

// The colour of a shade, limited to 0 to 255.
inline const Colour& shadeColour(std::int64_t shade) {
  return shades[static_cast<std::size_t>(std::clamp<std::int64_t>(shade, 0, 255))];
}

// Low values red, high values blue: value times `gridColorRate`, 0 to 255.
inline const Colour& cellColour(std::int64_t value) {
  // Both factors are kept within 32 bits, so that the product can't overflow.
  constexpr std::int64_t bound = std::int64_t{1} << 31;
  return shadeColour(std::clamp(value, -bound, bound) * editorState.gridColorRate);
}

// The colour of an airflow word: value / 256 rounded down, 0 to 255.
inline const Colour& airflowCellColour(std::int64_t value) {
  return shadeColour(value < 0 ? 0 : value / 256);
}
