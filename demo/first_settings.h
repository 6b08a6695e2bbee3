// The settings file that the program is delivered with: usable values for the demo car.
#pragma once

#include <string>

// 25 lines ended by CR LF, their meaning as docs/file-formats.md tells. Paths count from the
// program's folder.
std::string firstSettings();
