#include "walk_watch.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "plain_hex_reader.h"
#include "platform/files.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

void addCells(const MapKind& kind, std::vector<Piece>& pieces) {
  const MapEntry& entry = editorState.addressMap.map(kind.id);
  const Grid& grid = gridOf(kind);
  const bool words = kind.family == MapFamily::airflow;
  const bool headers = kind.family == MapFamily::rpmScale;
  const int inRow = words ? entry.bytes / 2 : entry.columns;
  const double step = kind.scaled() ? std::abs(entry.scale) : 1;
  const int drawn = editorState.cellsDrawn[static_cast<std::size_t>(kind.id)];
  for (int i = 0; entry.present() && i < drawn; ++i) {
    const std::string& text = headers ? grid.text(i, 0) : grid.text(1 + i / inRow, 1 + i % inRow);
    const int bytes = words ? 2 : 1;
    const std::int64_t address = std::int64_t{entry.address} + std::int64_t{i} * bytes;
    pieces.push_back({kind.keyword + (" cell " + std::to_string(i)), address, bytes, text, step});
  }
}

// One file's bytes in all ways to read it.
std::vector<Bytes> readings(const Bytes& file) {
  std::vector<Bytes> ways = {file};
  const std::string text(file.begin(), file.end());
  if (auto bytes = readHexPlainly(text, 1 << 26)) ways.push_back(*std::move(bytes));
  return ways;
}

// The image, and its halves as a pair has them: every other byte, then as many of 0xFF.
std::vector<Bytes> savedForms() {
  const auto size = static_cast<std::size_t>(std::max(editorState.imageSize, 0));
  const Bytes& image = editorState.image;
  if (size == 0 || image.size() < size) return {};
  std::vector<Bytes> forms = {Bytes(image.begin(), image.begin() + std::ptrdiff_t(size))};
  for (std::size_t first : {0U, 1U}) {
    Bytes half(size, 0xFF);
    for (std::size_t k = 0; k < size / 2; ++k) half[k] = image[2 * k + first];
    forms.push_back(std::move(half));
  }
  return forms;
}

bool isWhole(const std::string& name, const Bytes& file) {
  if (name.ends_with(".ini")) {
    const std::string text(file.begin(), file.end());
    return text.ends_with("\r\n") && std::count(text.begin(), text.end(), '\n') == 25;
  }
  const std::vector<Bytes> forms = savedForms();
  const std::vector<Bytes> ways = readings(file);
  return std::find_first_of(ways.begin(), ways.end(), forms.begin(), forms.end()) != ways.end();
}

}  // namespace

std::vector<Piece> shownPieces() {
  std::vector<Piece> pieces;
  for (const MapKind& kind : mapKinds()) addCells(kind, pieces);
  for (const ParamKind& kind : paramKinds()) {
    const ParamEntry& entry = editorState.addressMap.param(kind.id);
    if (!entry.present() || !editorState.paramShown[static_cast<std::size_t>(kind.id)]) continue;
    const std::string& text = (form1().*kind.box).text();
    pieces.push_back({kind.keyword, entry.address, entry.bytes, text, 0});
  }
  return pieces;
}

std::int64_t unaskedChange(const Bytes& before, const std::vector<Piece>& formerPieces) {
  const Bytes& now = editorState.image;
  if (now.size() != before.size()) return static_cast<std::int64_t>(now.size());
  std::vector<bool> edited(now.size());
  const std::vector<Piece> pieces = shownPieces();
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i < formerPieces.size() && pieces[i].text == formerPieces[i].text) continue;
    std::fill_n(edited.begin() + pieces[i].address, pieces[i].bytes, true);
  }
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] != before[i] && !edited[i]) return static_cast<std::int64_t>(i);
  }
  return -1;
}

std::string lostText(const std::vector<Piece>& formerPieces) {
  std::vector<int> owners(editorState.image.size());
  const std::vector<Piece> pieces = shownPieces();
  for (const Piece& piece : pieces) {
    for (int i = 0; i < piece.bytes; ++i) ++owners[static_cast<std::size_t>(piece.address + i)];
  }
  for (std::size_t i = 0; i < pieces.size() && i < formerPieces.size(); ++i) {
    const Piece& piece = pieces[i];
    const auto first = owners.begin() + piece.address;
    const bool alone = std::count(first, first + piece.bytes, 1) == piece.bytes;
    const std::string& former = formerPieces[i].text;
    const double moved = std::abs(std::atof(former.c_str()) - std::atof(piece.text.c_str()));
    const bool tells = piece.step > 0 && moved >= piece.step;
    if (!alone || piece.text == former || !tells) continue;
    return piece.where + ": " + former + " became " + piece.text;
  }
  return "";
}

std::string FolderWatch::whatIsWrong(const std::string& folder) {
  std::string wrong;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    Bytes file = readFile(entry.path().string());
    const std::string name = entry.path().filename().string();
    Bytes& known = files_[name];
    if (file != known && !isWhole(name, file)) wrong += name + " is not whole ";
    known = std::move(file);
  }
  return wrong;
}
