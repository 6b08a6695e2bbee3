// The start of a run.
#pragma once

#include <string>

// Starts the program whose folder is `appPath`: the desktop is in force, the splash window shows,
// and the main window stands ready behind it.
void startProgram(const std::string& appPath);
