// Loading an image from the recent files' menu.
#pragma once

// The entry `index`, 0 to 9, was picked: its file is loaded by its extension, without a dialog.
void mnuRecentFile_Click(int index);
