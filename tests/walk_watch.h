// What must hold for a tuner's data at every gesture of a random walk: bytes that nobody edited
// stay as they are, and every file in the folder is whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

// A cell or box and the image bytes that it stands for.
struct Piece {
  std::string where;
  std::int64_t address;
  int bytes;
  std::string text;
  double step;  // the bytes tell numbers that are so far apart; 0: unknown
};

// Every cell and box that shows bytes of the image, in the order of the maps and parameters.
std::vector<Piece> shownPieces();

// The first byte of the image that differs from `before` although no piece over it has another
// text than in `formerPieces`; -1 if there is none.
std::int64_t unaskedChange(const std::vector<std::uint8_t>& before,
                           const std::vector<Piece>& formerPieces);

// The first piece whose bytes are its own alone and whose number is a step or more from the one in
// `formerPieces`; "" if there is none.
std::string lostText(const std::vector<Piece>& formerPieces);

// Keeps an eye on the files of one folder.
class FolderWatch {
 public:
  // "" if every file is as it was at the last look, or new and whole: an image file is the image
  // or one half of it, raw or as Intel HEX; the settings have all their lines. Else what is wrong.
  std::string whatIsWrong(const std::string& folder);

 private:
  std::map<std::string, std::vector<std::uint8_t>> files_;
};
