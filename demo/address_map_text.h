// The demo car's address maps as file contents with CR LF line ends: one block of seven lines an
// entry, captions in one language, comments between the blocks.
#pragma once

#include <string>

// Captions in English, plain ASCII.
std::string englishAddressMap();

// Captions in Japanese, in the code page (Shift-JIS).
std::string japaneseAddressMap();
