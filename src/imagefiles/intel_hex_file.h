// Intel HEX files as the program saves them.
#pragma once

#include <cstdint>
#include <span>
#include <string>

// Replaces the file at `path` by the text of `source`, which it gives. Throws Failure as
// replaceFile does.
std::string writeIntelHex(const std::string& path, std::span<const std::uint8_t> source);
