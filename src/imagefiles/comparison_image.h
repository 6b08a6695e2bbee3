// The comparison image: a second image beside the working one, read-only, which the 3D graph draws
// as a second surface.
#pragma once

#include <string>

struct ImageForm;

// Both load it, from a raw file and from Intel HEX, and leave the working image alone.
void comp_bin();
void comp_intelHex();
// The same, but the file is known already.
void loadComparisonFrom(const std::string& path, const ImageForm& form);
