// Text files of the program in the code page: read whole as UTF-8, replaced whole.
#pragma once

#include <string>

// Fails with the number of the input/output failure.
std::string readTextFile(const std::string& path);
void replaceTextFile(const std::string& path, const std::string& text);
