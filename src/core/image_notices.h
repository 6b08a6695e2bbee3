// What the notice strip says of an image that was loaded: that it looks like something else, and
// that the address map in force doesn't fit it.
#pragma once

#include <functional>

#include "core/wording.h"

// Told when an image is taken, and withdrawn when it isn't one of those any more.
void tellContents();
// Told before the maps are drawn: entries that don't lie in the image, and the size of the image
// that the address map seems made for.
void tellWhetherMapFits();
// The Intel HEX loader refused a file, or read it otherwise than another command does, which
// `loadIt` runs.
void tellOtherWayIn(const BothTexts& what, const std::function<void()>& loadIt);
// No image, or no address map, stands there any more.
void withdrawContents();
void withdrawWhetherMapFits();
