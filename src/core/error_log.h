// The log of failures, `error.log` in the program's folder: newest line first, at most 249 lines.
// It is written only if it exists; logging never adds a failure of its
// own, but the notice strip tells of a log that can't be written.
#pragma once

#include <string>

// Adds a line unless `number` is 0 or a cancelled dialog.
void logError(const std::string& location, int number, const std::string& text);
