// Loading and saving the image in each of its forms, by the menu.
#pragma once

#include <string>

struct ImageForm;

// Raw binary images: the file's bytes are the image.
void load_bin_file();
void write_bin_file();
// The same as load_bin_file or LOAD_IntelHEX_FILE, but the file is known already.
void loadImageFrom(const std::string& path, const ImageForm& form);
// The image's own file, in the form that its name tells.
void update_bin_file();

void LOAD_IntelHEX_FILE();
void ANY_NAME_SAVE_IntelHEX();
void saveAsSRecords();
