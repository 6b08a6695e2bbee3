#include "core/map_colours.h"

#include <algorithm>

#include "core/editor_state.h"

Colour shadeColour(std::int64_t shade) {
  const int blue = static_cast<int>(std::clamp<std::int64_t>(shade, 0, 255));
  return rgb(255 - blue, 0, blue);
}

Colour cellColour(std::int64_t value) {
  // Both factors are kept within 32 bits, so that the product can't overflow.
  constexpr std::int64_t bound = std::int64_t{1} << 31;
  return shadeColour(std::clamp(value, -bound, bound) * editorState.gridColorRate);
}

Colour airflowCellColour(std::int64_t value) { return shadeColour(value < 0 ? 0 : value / 256); }
