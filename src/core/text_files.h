// Text files of the program in the code page: read as UTF-8, replaced whole.
#pragma once

#include <functional>
#include <string>
#include <string_view>

// Whether the first bytes of a file, which end behind a comma or a line end, are already more than
// its reader takes.
using IsTooMuch = std::function<bool(std::string_view bytes)>;

// The whole text. A file without end is not read to it: reading stops with badSubscript when what
// is read so far is too much, and with outOfMemory at 16 MiB. Fails with the number of the
// input/output failure.
std::string readTextFile(const std::string& path, const IsTooMuch& isTooMuch);
void replaceTextFile(const std::string& path, const std::string& text);
