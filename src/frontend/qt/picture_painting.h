// Painting of pictures that are plain data.
#pragma once

#include <string>

#include "controls/picture.h"

// The picture as a PNG file, two pixels for one of its own, or one where
// that would be too many. Fails with outOfMemory where that is too many still.
std::string pngBytes(const Picture& picture);
