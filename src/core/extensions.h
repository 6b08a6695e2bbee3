// The ends of file names, which tell what a file is taken for.
#pragma once

#include <string>

// The last three characters of `path`, in upper case.
std::string extensionOf(const std::string& path);
// `path` with its last three characters replaced by `extension`; "" stays "".
std::string withExtension(const std::string& path, const std::string& extension);
