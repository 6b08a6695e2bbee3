// Images that were never saved, as earlier states: kept when the image is given up, and every half
// minute as long as it is not saved, for the next start to find after a crash.
#pragma once

#include <functional>

// Keeps the image as a save would write it, if its file doesn't hold it; to be called before it is
// given up.
void keepGivenUpImage() noexcept;

// Keeps the unsaved image for the case that the program ends now. The file is written on another
// thread; nothing happens where nothing changed since the last time.
void keepUnfinishedImage() noexcept;
// Waits until that file is on disk.
void finishUnfinishedImage() noexcept;
// The image is saved or given up: what was kept of it for that case goes.
void dropUnfinishedImage() noexcept;

// The notice of such images goes, since the user is shown them; true for the first time after one
// was found.
bool withdrawUnfinishedNotice();

// Looks for images of programs that ended without being asked to, and says so by the notice strip,
// which offers `showStates`; from then on this program's own image is kept, too.
void watchUnsavedImage(const std::function<void()>& showStates);
