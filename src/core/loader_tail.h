// What every loader ends in, and the texts that all loaders and savers share.
#pragma once

#include <string>

#include "controls/desktop.h"
#include "core/editor_state.h"
#include "core/wording.h"

// The title bar: the image's name and " - ZELKOVA".
void updateTitleBar();
// The size of the loaded image on its label.
void showFileSize();
// Title bar, all maps, parameters, layout, boost. A parameter outside the image fails with
// badSubscript and ends the tail there; repainting goes on again in any case.
void loaderTail();

// `image` and `savedImage` become `bytes`, `imageSize` their number. No bytes at all fail with
// badSubscript.
void takeImage(RomImage bytes);
// Drops the image, so that no save can write half a load; title bar and file size say so.
void dropImage();

// The refusal of a loader while no address map is loaded: shows the box and answers true.
bool refusedWithoutAddressMap();
// The refusal of a saver while no image is loaded.
bool refusedWithoutImage(const Wording& text);
extern const Wording nothingToSave;

// Asks whether the file of this title may be overwritten.
bool userOverwrites(const std::string& title);
// The same if a file stands at `path`; true when there is none.
bool mayOverwrite(std::string path, const std::string& title);

// Keeps what a file dialog returned; then, once the file is loaded or saved, the image takes its
// name.
void keepChosen(const ChosenFile& chosen);
void nameImage();

// The last three characters of `path`, in upper case: what a file is taken for by its name.
std::string extensionOf(const std::string& path);
// `path` with its last three characters replaced by `extension`; "" stays "".
std::string withExtension(const std::string& path, const std::string& extension);
