// Text files: the code page of the files (CP932, the system's form of Shift-JIS) or UTF-8 outside,
// UTF-8 inside the program.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The text of a file's bytes, always valid UTF-8. A UTF-8 byte-order mark means UTF-8 (the mark is
// dropped). Otherwise strictly valid UTF-8 is UTF-8, if it is pure ASCII, holds a character of
// three or four bytes, or holds a byte that has no meaning in CP932. All else is CP932. A byte
// without meaning becomes U+FFFD, each for itself; nothing fails, and NULs survive.
std::string decodeText(std::string_view bytes);

// The bytes for a text: CP932, or UTF-8 with a byte-order mark where CP932 would not be read back
// as the same text. decodeText(encodeText(t)) == t for every valid UTF-8 t.
std::string encodeText(std::string_view utf8);

// The lines of a text. CR LF, LF and CR alike end a line; a last line without an end counts, an end
// at the very end starts no further line.
std::vector<std::string> splitLines(std::string_view text);
