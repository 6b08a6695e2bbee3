// Which image is loaded, and under which name.
#pragma once

#include "controls/desktop.h"
#include "core/editor_state.h"

// `image` and `savedImage` become `bytes`, `imageSize` their number; the file is taken for a whole
// image in the form that its name tells. No bytes at all fail with badSubscript.
void takeImage(RomImage bytes);
// Drops the image, which is kept as an earlier state if it isn't saved, and what the grids show of
// it, so that no save can write half a load; title bar and file size say so.
void dropImage();

// Keeps what a file dialog returned; then, once the file is loaded or saved, the image takes its
// name.
void keepChosen(const ChosenFile& chosen);
void nameImage();
