// The command line: what tuners do with many images at once, without a window.
#pragma once

#include <string>
#include <vector>

// Runs the command that the arguments name, and tells on standard error what failed. Gives the exit
// code; nothing escapes.
int runCommandLine(std::vector<std::string> arguments) noexcept;
