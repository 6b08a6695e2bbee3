// Files that come in from outside: dropped on the main window, named on the command line, picked
// from the recent address maps. What can be taken is loaded as by its command; what can't is told
// in the notice strip before anything is given up for it.
#pragma once

#include <string>
#include <vector>

enum class Opening {
  dropped,   // one file
  compared,  // one file; an image becomes the comparison image
  named      // an image and an address map, in any order
};

// A path of "" stands for something that is no file of this machine.
void openFiles(std::vector<std::string> paths, Opening how);

// An address map by whatever name.
void openRecentMap(const std::string& path);
