// The commands that load and save the image as Intel HEX.
#pragma once

#include <string>

extern const char* const intelHexLoadFilter;
extern const char* const intelHexSaveFilter;

void LOAD_IntelHEX_FILE();
void ANY_NAME_SAVE_IntelHEX();

// Writes the image to `path`; what the file then holds counts as saved. Throws Failure.
void saveImageAsIntelHex(const std::string& path);
