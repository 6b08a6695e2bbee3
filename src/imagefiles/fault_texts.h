// What is wrong with an image file, in both languages.
#pragma once

#include "core/wording.h"
#include "rom/image_reading.h"

// With the line, where there is one. A fault that has no Japanese text keeps its own.
BothTexts textsOf(const ImageFault& fault);
