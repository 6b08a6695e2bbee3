#include "core/rom_image.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/image_bytes.h"
#include "core/map_display.h"
#include "core/map_extent.h"
#include "core/map_kinds.h"
#include "core/progress.h"
#include "core/step.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/utf8.h"

namespace {

std::uint8_t asByte(std::int32_t value) {
  if (value < 0 || value > 255) throw Failure(overflow);
  return static_cast<std::uint8_t>(value);
}

// The whole part of `number` / `scale`, rounded down.
std::int32_t unscaled(double number, double scale) {
  if (scale == 0) throw Failure(divisionByZero);
  return roundToLong(std::floor(number / scale));
}

// The byte that a cell's text stands for, which is the byte times `scale` in a scaled map.
std::uint8_t storedByte(std::string_view text, bool scaled, std::int32_t scale) {
  if (const auto whole = bareNumber(text); whole && (!scaled || scale > 0)) {
    return asByte(scaled ? *whole / scale : *whole);
  }
  const double number = parseNumber(text);
  return asByte(scaled ? unscaled(number, scale) : roundToLong(number));
}

// Walks the cells of a grid in storing order and refuses those that no draw has filled.
class StoringWalk {
 public:
  explicit StoringWalk(const MapKind& kind)
      : grid_(gridOf(kind)),
        drawn_(editorState.cellsDrawn[static_cast<std::size_t>(kind.id)]),
        scaled_(kind.scaled()),
        scale_(entryOf(kind).scale) {}
  const std::string& nextText(int row, int column) {
    if (stored_++ >= drawn_) throw Failure(badSubscript);
    return grid_.text(row, column);
  }
  std::uint8_t nextByte(int row, int column) {
    return storedByte(nextText(row, column), scaled_, scale_);
  }

 private:
  const Grid& grid_;
  std::int32_t drawn_;
  std::int32_t stored_ = 0;
  bool scaled_;
  std::int32_t scale_;
};

// Rows without cells are none, so that a file can't ask for billions of empty ones.
int rowsWith(int cells, const MapExtent& extent) { return cells > 0 ? extent.rows : 0; }

void storeBytes(const MapExtent& extent) {
  StoringWalk walk(extent.kind);
  const bool counts = extent.kind.countsProgress();
  std::int64_t place = extent.address;
  for (int r = 1; r <= rowsWith(extent.columns, extent); ++r) {
    for (int c = 1; c <= extent.columns; ++c) {
      setImageByte(place++, walk.nextByte(r, c));
      if (counts) countProgress();
    }
  }
}

void storeRpmScale(const MapExtent& extent) {
  StoringWalk walk(extent.kind);
  for (int i = 0; i < extent.columns; ++i) {
    setImageByte(extent.address + i, walk.nextByte(i, 0));
    countProgress();
  }
}

std::uint8_t digitPair(std::string_view digits, std::size_t pair) {
  const std::size_t start = 2 * pair;
  if (start >= digits.size()) return 0;
  return static_cast<std::uint8_t>(hexPrefix(digits.substr(start, 2)));
}

void storeAirflow(const MapExtent& extent) {
  StoringWalk walk(extent.kind);
  const int words = extent.bytes / 2;
  std::int64_t place = extent.address;
  for (int r = 1; r <= rowsWith(words, extent); ++r) {
    for (int word = 1; word <= words; ++word) {
      const std::int32_t value = roundToLong(parseNumber(walk.nextText(r, word)));
      const std::string digits = padHex(hexText(static_cast<std::uint32_t>(value)), 2);
      setImageByte(place++, digitPair(digits, 0));
      setImageByte(place++, digitPair(digits, 1));
      countProgress();
    }
  }
}

void storeCells(const MapExtent& extent) {
  switch (extent.kind.family) {
    case MapFamily::airflow:
      return storeAirflow(extent);
    case MapFamily::rpmScale:
      return storeRpmScale(extent);
    default:
      return storeBytes(extent);
  }
}

void storeDigits(const ParamEntry& entry, std::string_view digits) {
  for (int i = 0; i < entry.bytes; ++i) {
    const std::int64_t place = std::int64_t{entry.address} + i;
    setImageByte(place, digitPair(digits, static_cast<std::size_t>(i)));
  }
}

// One byte for each character, so that pairs count characters.
std::string oneBytePerCharacter(const std::string& text) {
  std::string bytes;
  for (const char32_t character : utf32(text)) {
    bytes.push_back(character < 0x80 ? static_cast<char>(character) : '?');
  }
  return bytes;
}

void checkInsideImage(const ParamEntry& entry) {
  imageByte(entry.address);
  imageByte(std::int64_t{entry.address} + entry.bytes - 1);
}

void storeParam(const ParamKind& kind) {
  const ParamEntry& entry = editorState.addressMap.param(kind.id);
  if (!entry.present()) return;
  // A box that never showed the image's bytes has nothing to say about them.
  if (!editorState.paramShown[static_cast<std::size_t>(kind.id)]) return checkInsideImage(entry);
  const std::string& text = (form1().*kind.box).text();
  if (!kind.scaled()) return storeDigits(entry, oneBytePerCharacter(text));
  const std::int32_t value = unscaled(parseNumber(text), entry.scale);
  storeDigits(entry, padHex(hexText(static_cast<std::uint32_t>(value)), entry.bytes));
}

}  // namespace

void Set_Memory(int columns, int rows, int address, int bytes, int mapId) {
  const MapKind* kind = findMapKind(mapId);
  if (!kind) {
    return showUnknownMap({"Set_Memoryのパラメーターに例外がある。",
                           "There is an exception for a parameter of Set_Memory."});
  }
  int number = 0;
  {
    const GridPause pause(gridOf(*kind), GridPause::Hide::yes);
    const StepPause following;
    number = trapFailure([&] { storeCells({*kind, columns, rows, address, bytes}); });
  }
  if (number != 0) showRoutineError("SET_MEMORY");
}

void writeMapBack(int mapId) {
  const MapEntry& entry = editorState.addressMap.map(mapId);
  Set_Memory(entry.columns, entry.rows, entry.address, entry.bytes, mapId);
}

void ANY_SET_MEMORY() {
  const StepPause following;
  const int number = trapFailure([] {
    for (const ParamKind& kind : paramKinds()) storeParam(kind);
  });
  if (number != 0) showRoutineError("ANY_SET_MEMORY");
}

void writeBackAll() {
  const GridsPause pause;
  form1().refresh();
  for (const MapKind& kind : mapKinds()) {
    if (entryOf(kind).present()) writeMapBack(kind.id);
  }
  ANY_SET_MEMORY();
}
