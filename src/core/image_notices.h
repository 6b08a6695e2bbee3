// What the notice strip says of an image that was loaded: that it looks like something else, and
// that the address map in force doesn't fit it.
#pragma once

// Told when an image is taken, and withdrawn when it isn't one of those any more.
void tellContents();
// Told before the maps are drawn: entries that don't lie in the image, and the size of the image
// that the address map seems made for.
void tellWhetherMapFits();
// No image, or no address map, stands there any more.
void withdrawContents();
void withdrawWhetherMapFits();
