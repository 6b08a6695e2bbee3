// Texts and colours as HTML and XML write them.
#pragma once

#include <string>
#include <string_view>

#include "controls/colour.h"

// A text without what would be taken for markup.
std::string escaped(std::string_view text);
// "#RRGGBB".
std::string colourText(Colour colour);
