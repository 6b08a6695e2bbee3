// What the notice strip says of a save: that it failed where no box tells it, and what its file
// can't give back.
#pragma once

#include <cstddef>

// Until the next save that succeeds.
void tellNotSaved(int failure);
void tellSaved();
// Intel HEX of more bytes than the program's own reader takes.
void tellLongIntelHex(std::size_t bytes);
// The edits of an image that a failed save of a pair gave up.
void tellEditsKept();
// A pair that holds the first `bytes` of a longer image.
void tellPartSaved(std::size_t bytes);
