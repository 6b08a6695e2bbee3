// The status line at the lower left of the main window: what the cursor is on, how many bytes a
// save would change, and what the last command did.
#pragma once

#include <cstddef>

struct Step;

// All of it as it stands now.
void showStatus();
// What a gesture changed in cells and boxes, and how many of the cells stand at a limit.
void sayChanged(const Step& step);
// "saved 07:12, 32768 bytes".
void saySaved(std::size_t bytes);
// Keeps the line up to date as the focus and the selections move; nothing is said yet.
void wireStatus();
