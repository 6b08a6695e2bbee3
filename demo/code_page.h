// Text in the code page of the Japanese system that address maps come from.
#pragma once

#include <string>
#include <string_view>

// `utf8` in CP932. Throws std::runtime_error for text that has no place there.
std::string inCodePage(std::string_view utf8);
