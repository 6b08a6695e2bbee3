// The conversion between the files' code page (CP932) and UTF-8, as the system offers it.
// Where the system knows no such code page, every byte beyond ASCII is without meaning.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// A byte without meaning becomes U+FFFD, each for itself.
std::string codePageToUtf8(std::string_view bytes);

// Nothing if a character has no place in the code page, or if `utf8` is not valid. Some systems
// put a similar character in the place of one: who needs the very same reads the result back.
std::optional<std::string> utf8ToCodePage(std::string_view utf8);
