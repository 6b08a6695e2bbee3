// What is done with an image on the records that the windows show. Scripts that edit one: one
// command a line, run on the records that the windows show, so that each gives what the same
// gesture gives there.
#pragma once

#include <string>

#include "frontend/batch/batch_files.h"

// The image as a save would write it after all of the script's lines. All or nothing: a line that
// can't be run is trouble that names it. `scriptPath` is for messages.
Bytes edited(const Bytes& image, const std::string& mapText, const std::string& script,
             const std::string& scriptPath);

// The page that the report of the windows would be, with their captions in one of the languages.
std::string reportOf(const Bytes& image, const std::string& mapText, const std::string& title,
                     bool japanese);
