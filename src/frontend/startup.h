// The start of a run.
#pragma once

#include <string>
#include <vector>

// Starts the program whose folder is `appPath`: the desktop is in force, the splash window shows,
// and the main window stands ready behind it. It opens `files` when it comes to the front.
void startProgram(const std::string& appPath, const std::vector<std::string>& files = {});
