// The colours of map cells: a shade from red to blue for each value.
#pragma once

#include <cstdint>

#include "controls/colour.h"

// Low values red, high values blue: value times `gridColorRate`, 0 to 255.
Colour cellColour(std::int64_t value);
// The colour of an airflow word: value / 256 rounded down, 0 to 255.
Colour airflowCellColour(std::int64_t value);
// The colour of a shade, limited to 0 to 255.
Colour shadeColour(std::int64_t shade);
