// Files for others: what all commands that write some have in common.
#pragma once

#include <functional>
#include <string>

#include "controls/desktop.h"
#include "controls/picture.h"

// The image's name without its form, with which the names of its files for others begin.
std::string exportName();

// Asks for a file and puts there what `contents` makes of its path. What stood there is kept as an
// earlier state; a failure is told and leaves the file as it is.
void exportFile(const char* location, const FileDialog& dialog,
                const std::function<std::string(const std::string& path)>& contents);

// The picture in the form that the path tells: PNG, else SVG.
std::string pictureFile(const Picture& picture, const std::string& path);
// The entries of a file dialog for it.
extern const char* const pictureFilter;
