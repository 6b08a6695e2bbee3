// The forms in which an image stands in files. A row tells all that the commands need: texts, how
// the file is read and written, and how large it may be. S-records are saved only: what loads them
// goes by a file's content.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/editor_state.h"
#include "core/wording.h"

// What one command says about a form: its name in the log, the file dialog's filter and title.
struct FormTexts {
  const char* location;
  const char* filter;
  Wording title;
};

struct ImageForm {
  const char* extension;  // three letters; what a file is taken for by its name
  FormTexts save;
  // The name that the dialog of saving proposes.
  std::string (*proposedToSave)();
  // Writes the image to `path`; what the file then holds counts as saved. Throws Failure.
  void (*write)(const std::string& path);
  // The rest is null for a form that no name stands for.
  FormTexts load, compare;
  std::string (*proposedToLoad)();
  // The image of a file's bytes. No byte at all fails with badSubscript.
  RomImage (*decode)(RomImage fileBytes);
  // What a comparison image leaves in `EditorState.compareLoaded`.
  std::int32_t (*comparable)(const RomImage& image);
  // Loaded from the recent files: the bar starts anew, or else the pointer is busy.
  bool recentFillsBar;
};

extern const std::array<ImageForm, 3> imageForms;
extern const ImageForm& rawImages;
extern const ImageForm& intelHexImages;
extern const ImageForm& sRecordImages;

// The same as `write`, but the image keeps its form and its addresses. Where they can't hold it the
// notice strip says so, nothing is written, and it fails with cancelled.
void writeAsLaidOut(const std::string& path, const FileLayout& layout);

// The form that the last three characters of `path` name, in whatever case; null if none.
const ImageForm* imageFormOf(const std::string& path);

constexpr std::size_t largestImageFile = 0x40000000;  // bytes

// The bytes of an image's file, whatever its form; a pair that a killed save left half done is
// completed or taken back before. More than `largestImageFile` are refused unread with outOfMemory;
// throws as readFile does.
RomImage readImageFile(const std::string& path);
