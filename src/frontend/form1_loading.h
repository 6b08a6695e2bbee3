// The main window's coming up.
#pragma once

// Loads the main window, if it isn't yet: settings, address map, captions, layout, start image.
void loadForm1();
