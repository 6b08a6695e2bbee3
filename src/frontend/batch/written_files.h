// Files that commands write, and what --json tells of them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frontend/batch/batch_commands.h"
#include "frontend/batch/many_files.h"

// By --to, else by the output's name, else `own`; trouble where none of them tells.
ImageFileForm formOf(const Arguments& arguments, const std::string& output,
                     std::optional<ImageFileForm> own = {});

// A file to be written from others: an image in a form, or a page.
struct WrittenFile {
  std::vector<std::string> from;
  std::string to;
  const char* form;
  std::size_t size;  // of the image or the page
};

// --json tells on standard output, which can't be the result's place then.
void requireRoomForJson(const Arguments& arguments, const std::string& to);
// Of a file that was written: JSON if that is asked for, else nothing.
FileResult tellOf(const Arguments& arguments, const WrittenFile& file);
int tellWritten(const Arguments& arguments, std::vector<FileResult> results);
