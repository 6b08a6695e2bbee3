// Conversions and names that files.cpp and file_replacement.cpp share.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

// Throws std::system_error for a text that can't name a file (one with a NUL).
std::filesystem::path systemPath(std::string_view path);

// The failure number for `error` met at `path`: failureNumberOf, but a file in a missing folder is
// pathNotFound.
int failureNumberAt(const std::string& path, std::error_code error);
