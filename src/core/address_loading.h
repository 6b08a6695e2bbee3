// The menu command that picks an address map file and puts it in force.
#pragma once

#include <string>

void load_map_addr();
// The same, but the file is known already.
void loadAddressMapFrom(const std::string& path);
