// Earlier states as images: what bytes a state stands for, loading it, saving a copy.
#pragma once

#include "core/earlier_states.h"
#include "core/editor_state.h"

// The image that a state is, or that its file held. Throws Failure for a state that is damaged and
// for a file that was no image.
RomImage imageOf(const EarlierState& state);

// Loads it as the image under its own path; what the file there holds counts as saved.
void loadEarlierState(const EarlierState& state);

// Asks for a name and saves the state's bytes as they stand.
void saveStateCopy(const EarlierState& state);
