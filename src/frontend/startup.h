// The order in which the program comes up.
#pragma once

#include <string>

// Starts the program whose folder is `appPath`: the desktop is in force, the splash window shows,
// and the main window stands ready behind it.
void startProgram(const std::string& appPath);

// Loads the main window, if it isn't yet: settings, address map, captions, layout, start image.
void loadForm1();
