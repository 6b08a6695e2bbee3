// Texts that exist in both languages, picked at the moment of showing.
#pragma once

#include <string>

struct Wording {
  const char* japanese;
  const char* english;
};

// The wording in the language of `EditorState.english`: 0 Japanese, any other number English.
std::string worded(const Wording& wording);
// The wording that windows take when they are loaded: English only when `english` is 1.
std::string captioned(const Wording& wording);

// A text in both languages that is made up at run time.
struct BothTexts {
  std::string japanese;
  std::string english;
  bool operator==(const BothTexts&) const = default;
};

// In the language of windows.
std::string captionedBoth(const BothTexts& texts);
