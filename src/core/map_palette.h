// In which colours map cells are shown: the given shades from red to blue, or a second palette in
// which low values are dark and high ones bright, so that who can't tell red from blue can read
// it. Records keep the given colours; what is painted or exported passes through here.
#pragma once

#include "controls/colour.h"

bool secondColoursInForce();
void useSecondColours(bool on);

// What is shown for the colour of a record's cell. Only shades of maps are exchanged.
Colour shownColour(Colour given);
// The text that stands on the cell: `given` in the given colours, else black or white, whichever
// stands out more (always by 4.5 : 1 at least).
Colour shownInk(Colour given, Colour ground);
// IEC 61966-2-1: how much light a colour gives, from 0 (black) to 1 (white).
double luminance(Colour colour);
// Black or white, whichever stands out more from the ground.
Colour inkOn(Colour ground);
