// Loading and saving the image in each of its forms, by the menu.
#pragma once

// Raw binary images: the file's bytes are the image.
void load_bin_file();
void write_bin_file();
// The image's own file, in the form that its name tells.
void update_bin_file();

void LOAD_IntelHEX_FILE();
void ANY_NAME_SAVE_IntelHEX();
