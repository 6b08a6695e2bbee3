// How the program was called, and what it answers there.
#pragma once

#include <string>
#include <vector>

// The arguments behind the program's own name, as UTF-8.
std::vector<std::string> programArguments(int argc, const char* const* argv);

enum class Stream { output, error };
// Writes a text where the caller sees it, if there is such a place.
void tellCaller(Stream stream, const std::string& text);
