// The comparison image: a second image beside the working one, read-only, which the 3D graph draws
// as a second surface.
#pragma once

// Both load it, from a raw file and from Intel HEX, and leave the working image alone.
void comp_bin();
void comp_intelHex();
