// What the notice strip says when the program can't write a file or a list of its own.
#pragma once

#include <string>

enum class OwnFile { settings, log, recentFiles, recentMaps, look };

// `why` stands behind the name; "" where nothing more is known.
void tellNotWritten(OwnFile file, const std::string& why = {});
void tellWritten(OwnFile file);
