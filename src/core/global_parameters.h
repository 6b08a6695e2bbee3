// The single parameters: from the image into their text boxes. Their way back is ANY_SET_MEMORY.
#pragma once

// Shows all present parameters. A parameter outside the image fails with badSubscript.
void showGlobalParams();

// True if the box of a scaled parameter of this length can stand for its bytes: up to 32 bits.
constexpr int maximumScaledBytes = 4;

// The key filters of the scaled parameters' boxes.
void wireGlobalParams();
