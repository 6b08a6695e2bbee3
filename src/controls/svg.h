// A picture as an SVG file: sharp at any size.
#pragma once

#include <string>

#include "controls/picture.h"

// Texts are in whatever font without serifs the reader has.
std::string svgText(const Picture& picture);
