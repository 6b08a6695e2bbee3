// The image's file on disk: whether it is still as it was loaded or saved. What others did to it
// stands in the notice strip; nothing is asked and no save is held up.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "core/editor_state.h"
#include "platform/files.h"

// The image comes from these files, as they were read.
void watchFiles(std::span<const FileContent> files);
// Reads the one file of the image about to be loaded, as readImageFile does, and watches it.
RomImage readWatched(const std::string& path);

// The main window became the active one: a watched file of another size or time is looked into.
void lookAtFiles();
// `path` is about to be replaced: if it is a watched one, its bytes are looked at in any case.
void lookBeforeSave(const std::string& path);
// `path` was replaced by `bytes`. `watchSaved`: it is now the image's own file.
void noteWritten(const std::string& path, std::span<const std::uint8_t> bytes);
void watchSaved(const std::string& path, std::span<const std::uint8_t> bytes);
