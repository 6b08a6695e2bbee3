// What must hold for a tuner's data at every gesture of a random walk: bytes that nobody edited
// stay as they are, what stood in a cell stands there again, and every file is whole.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "core/map_kinds.h"
#include "imagefiles/intel_hex_writer.h"
#include "support.h"

// A cell or box and the image bytes that it stands for.
struct Piece {
  std::string where;
  std::int64_t address;
  int bytes;
  std::string text;
  double step;  // the bytes tell numbers that are so far apart; 0: unknown
};

// Every cell and box that shows bytes of the image, in the order of the maps and parameters.
inline std::vector<Piece> shownPieces() {
  std::vector<Piece> pieces;
  for (const MapKind& kind : mapKinds()) {
    const MapEntry& entry = editorState.addressMap.map(kind.id);
    const Grid& grid = gridOf(kind);
    const int width = kind.family == MapFamily::airflow ? 2 : 1;
    const int inRow = width == 2 ? entry.bytes / 2 : entry.columns;
    const double step = kind.scaled() ? std::abs(entry.scale) : 1;
    const int drawn = editorState.cellsDrawn[static_cast<std::size_t>(kind.id)];
    for (int i = 0; entry.present() && i < drawn; ++i) {
      const bool headers = kind.family == MapFamily::rpmScale;
      pieces.push_back({kind.keyword, std::int64_t{entry.address} + i * width, width,
                        headers ? grid.text(i, 0) : grid.text(1 + i / inRow, 1 + i % inRow), step});
    }
  }
  for (const ParamKind& kind : paramKinds()) {
    const ParamEntry& entry = editorState.addressMap.param(kind.id);
    if (!entry.present() || !editorState.paramShown[static_cast<std::size_t>(kind.id)]) continue;
    pieces.push_back({kind.keyword, entry.address, entry.bytes, (form1().*kind.box).text(), 0});
  }
  return pieces;
}

// The first byte of the image that differs from `before` although no piece over it has another
// text than in `former`; -1 if there is none.
inline std::ptrdiff_t unaskedChange(const Bytes& before, const std::vector<Piece>& former) {
  const Bytes& now = editorState.image;
  if (now.size() != before.size()) return std::ssize(now);
  std::vector<bool> edited(now.size());
  const std::vector<Piece> pieces = shownPieces();
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i < former.size() && pieces[i].text == former[i].text) continue;
    std::fill_n(edited.begin() + pieces[i].address, pieces[i].bytes, true);
  }
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] != before[i] && !edited[i]) return static_cast<std::ptrdiff_t>(i);
  }
  return -1;
}

// The first piece whose bytes are its own alone and whose number is a step or more from the one in
// `former`; "" if there is none.
inline std::string lostText(const std::vector<Piece>& former) {
  std::vector<int> owners(editorState.image.size());
  const std::vector<Piece> pieces = shownPieces();
  const auto firstOwner = [&](const Piece& piece) { return owners.begin() + piece.address; };
  for (const Piece& piece : pieces) {
    std::for_each_n(firstOwner(piece), piece.bytes, [](int& count) { ++count; });
  }
  for (std::size_t i = 0; i < std::min(pieces.size(), former.size()); ++i) {
    const Piece& piece = pieces[i];
    const std::string& text = former[i].text;
    const double moved = std::abs(std::atof(text.c_str()) - std::atof(piece.text.c_str()));
    const bool alone =
        std::count(firstOwner(piece), firstOwner(piece) + piece.bytes, 1) == piece.bytes;
    if (!alone || piece.text == text || piece.step <= 0 || moved < piece.step) continue;
    return piece.where + ": " + text + " became " + piece.text;
  }
  return "";
}

// Whether a file is the image or one half of it, raw or as Intel HEX; the settings have 25 lines.
inline bool isWhole(const std::string& name, const Bytes& file) {
  const std::string text(file.begin(), file.end());
  if (name.ends_with(".ini")) {
    return text.ends_with("\r\n") && std::count(text.begin(), text.end(), '\n') == 25;
  }
  const Bytes& image = editorState.image;
  const auto size = static_cast<std::size_t>(std::max(editorState.imageSize, 0));
  if (size == 0 || image.size() < size) return false;
  Bytes forms[] = {
      {image.begin(), image.begin() + std::ptrdiff_t(size)}, Bytes(size, 0xFF), Bytes(size, 0xFF)};
  for (std::size_t k = 0; k < size / 2 * 2; ++k) forms[1 + k % 2][k / 2] = image[k];
  return std::ranges::any_of(
      forms, [&](const Bytes& form) { return file == form || text == intelHexText(form); });
}

// Keeps an eye on the files of one folder.
class FolderWatch {
 public:
  // The names of the files that are neither as they were at the last look nor whole.
  std::string broken(const std::string& folder) {
    std::string names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      Bytes file = readFile(entry.path().string());
      const std::string name = entry.path().filename().string();
      Bytes& known = files_[name];
      if (file != known && !isWhole(name, file)) names += name + ' ';
      known = std::move(file);
    }
    return names;
  }

 private:
  std::map<std::string, Bytes> files_;
};
