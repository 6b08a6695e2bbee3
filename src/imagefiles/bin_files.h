// Raw binary images: the file's bytes are the image. Load, save under a name, save.
#pragma once

void load_bin_file();
void write_bin_file();
void update_bin_file();
