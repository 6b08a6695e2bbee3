// What the notice strip says of a save: that it failed where no box tells it, and what its file
// can't give back.
#pragma once

#include <cstddef>
#include <string>

#include "rom/image_reading.h"

// Until the next save that succeeds.
void tellNotSaved(int failure);
void tellSaved();
// Nothing was written to `path`, since its form can't hold the image where it lies.
void tellFormHoldsNot(const std::string& path, ImageFileForm form);
// Intel HEX of more bytes than the program's own reader takes.
void tellLongIntelHex(std::size_t bytes);
// The edits of an image that a failed save of a pair gave up.
void tellEditsKept();
// A pair that holds the first `bytes` of a longer image.
void tellPartSaved(std::size_t bytes);
