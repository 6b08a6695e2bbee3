// The question before a file is overwritten.
#pragma once

#include <string>

// Asks whether the file of this title may be overwritten.
bool userOverwrites(const std::string& title);
// The same if a file stands at `path`; true when there is none.
bool mayOverwrite(std::string path, const std::string& title);
