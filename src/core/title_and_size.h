// What the main window says of the image: its name in the title bar, its size on a label.
#pragma once

// The title bar: the image's name and " - ZELKOVA".
void updateTitleBar();
// The size of the loaded image on its label.
void showFileSize();
