// The guard before anything replaces the image, and the same test at shut-down.
#pragma once

// Writes back, and asks if the image differs from the file as last loaded or saved. The answer is
// in `EditorState.guardAnswer`: 1 go on, 0 stop.
void confirmDiscard();

// True if `image` and `savedImage` differ in a byte of the first `imageSize`.
bool imageDiffersFromSaved();
