// The refusals of the commands that load and save.
#pragma once

#include "core/wording.h"

// The refusal of a loader while no address map is loaded: shows the box and answers true.
bool refusedWithoutAddressMap();
// The refusal of a saver while no image is loaded.
bool refusedWithoutImage(const Wording& text);
extern const Wording nothingToSave;
// The refusal of a command that works on selected cells where there are none.
extern const Wording nothingSelected;
