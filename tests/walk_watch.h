// What must hold for a tuner's data at every gesture of a random walk: bytes that nobody edited
// stay as they are, what stood in a cell stands there again, and every file is whole.
#pragma once

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <span>

#include "core/map_kinds.h"
#include "rom/intel_hex_writer.h"
#include "support.h"

// A cell or box, and how it tells the image bytes that it stands for: as a number, in a map or in
// a box, or digit by digit.
struct Piece {
  std::string where;
  std::int64_t address;
  int bytes;
  std::string text;
  enum { inMap, inBox, digits } kind;
  double scale;  // 0: none
};

// Every cell and box that shows bytes of the image, in the order in which they are stored.
inline std::vector<Piece> shownPieces() {
  std::vector<Piece> pieces;
  for (const MapKind& kind : mapKinds()) {
    const MapEntry& entry = editorState.addressMap.map(kind.id);
    const Grid& grid = gridOf(kind);
    const int width = kind.family == MapFamily::airflow ? 2 : 1;
    const int inRow = width == 2 ? entry.bytes / 2 : entry.columns;
    const double scale = kind.scaled() ? entry.scale : 0;
    const int drawn = editorState.cellsDrawn[static_cast<std::size_t>(kind.id)];
    for (int i = 0; entry.present() && i < drawn; ++i) {
      const bool headers = kind.family == MapFamily::rpmScale;
      pieces.push_back({kind.keyword, std::int64_t{entry.address} + i * width, width,
                        headers ? grid.text(i, 0) : grid.text(1 + i / inRow, 1 + i % inRow),
                        Piece::inMap, scale});
    }
  }
  for (const ParamKind& kind : paramKinds()) {
    const ParamEntry& entry = editorState.addressMap.param(kind.id);
    if (!entry.present() || !editorState.paramShown[static_cast<std::size_t>(kind.id)]) continue;
    pieces.push_back({kind.keyword, entry.address, entry.bytes, (form1().*kind.box).text(),
                      kind.scaled() ? Piece::inBox : Piece::digits, entry.scale});
  }
  return pieces;
}

// What the bytes of `image` read as in a piece: high byte first, times the scale, rounded down.
inline std::string readAs(const Piece& piece, const Bytes& image) {
  std::uint32_t number = 0;
  std::string digits;
  char text[400];
  for (int i = 0; i < piece.bytes; ++i) {
    const std::uint8_t byte = image.at(static_cast<std::size_t>(piece.address + i));
    number = number * 256 + byte;
    std::snprintf(text, sizeof text, "%02X", byte);
    digits += text;
  }
  if (piece.kind == Piece::digits) return digits;
  const double scaled = static_cast<std::int32_t>(number) * (piece.scale == 0 ? 1 : piece.scale);
  std::snprintf(text, sizeof text, "%.0f", std::floor(scaled) + 0.0);
  return text;
}

// `image` with what all texts stand for, one piece after the other.
inline Bytes stored(const std::vector<Piece>& pieces, Bytes image) {
  for (const Piece& piece : pieces) {
    std::string digits = piece.text;
    if (piece.kind != Piece::digits) {
      const double number = std::atof(digits.c_str());
      const bool scaled = piece.kind == Piece::inBox || piece.scale != 0;
      const double whole = scaled ? std::floor(number / piece.scale) : std::nearbyint(number);
      char text[40];
      std::snprintf(text, sizeof text, "%0*X", 2 * piece.bytes,
                    static_cast<std::uint32_t>(static_cast<std::int64_t>(whole)));
      digits = text;
    }
    digits.resize(2 * static_cast<std::size_t>(piece.bytes), 'x');
    for (int i = 0; i < piece.bytes; ++i) {
      unsigned byte = 0;
      std::from_chars(&digits[2 * static_cast<std::size_t>(i)], &digits[2 * i] + 2, byte, 16);
      image.at(static_cast<std::size_t>(piece.address + i)) = static_cast<std::uint8_t>(byte);
    }
  }
  return image;
}

// Where two images differ first, with the piece there; "" where they don't.
inline std::string difference(const Bytes& image, const Bytes& expected) {
  if (image.size() != expected.size()) return "size " + std::to_string(image.size());
  const auto [at, other] = std::ranges::mismatch(image, expected);
  if (at == image.end()) return "";
  std::string where = std::to_string(at - image.begin());
  for (const Piece& piece : shownPieces()) {
    const auto offset = at - image.begin() - piece.address;
    if (offset >= 0 && offset < piece.bytes) where += " " + piece.where + " " + piece.text;
  }
  return where + ": " + std::to_string(*at) + " for " + std::to_string(*other);
}

// A place of the history: all cells with their colours, all boxes, and the image. The boost rows
// follow the engine, too, and stay out.
struct Place {
  std::vector<std::string> shown;
  Bytes image;
};

inline Place placeNow() {
  Place place{{}, editorState.image};
  for (const MapKind& kind : mapKinds()) {
    const Grid& grid = gridOf(kind);
    const bool boost = kind.rules().after == AfterEffect::boostRow;
    const int cells = entryOf(kind).present() ? grid.rows() * grid.columns() : 0;
    for (int i = boost ? grid.columns() : 0; i < cells; ++i) {
      const GridCell& cell = grid.cellAt(i / grid.columns(), i % grid.columns());
      place.shown.push_back(kind.keyword + (" " + std::to_string(i)) + ": " + cell.text + " red " +
                            std::to_string(cell.background.red) + " blue " +
                            std::to_string(cell.background.blue));
    }
  }
  for (const ParamKind& kind : paramKinds()) place.shown.push_back((form1().*kind.box).text());
  return place;
}

inline std::string difference(const Place& place, const Place& expected) {
  const auto [now, then] = std::ranges::mismatch(place.shown, expected.shown);
  if (now == place.shown.end() || then == expected.shown.end()) {
    return difference(place.image, expected.image);
  }
  return *now + " for " + *then;
}

// Whether a file is the image, raw or as far as it counts as Intel HEX, or one half of it in either
// form; the settings have 25 lines.
inline bool isWhole(const std::string& name, const Bytes& file) {
  const std::string text(file.begin(), file.end());
  if (name.ends_with(".ini")) {
    return text.ends_with("\r\n") && std::count(text.begin(), text.end(), '\n') == 25;
  }
  const Bytes& image = editorState.image;
  const auto size = static_cast<std::size_t>(std::max(editorState.imageSize, 0));
  if (size == 0 || image.size() < size) return false;
  Bytes halves[] = {Bytes(size, 0xFF), Bytes(size, 0xFF)};
  for (std::size_t k = 0; k < size / 2 * 2; ++k) halves[k % 2][k / 2] = image[k];
  const auto isHalf = [&](const Bytes& half) { return file == half || text == intelHexText(half); };
  return file == image || text == intelHexText(std::span(image).first(size)) ||
         std::ranges::any_of(halves, isHalf);
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
