#include "core/status_line.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "core/difference_list.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/global_parameters.h"
#include "core/map_extent.h"
#include "core/map_kinds.h"
#include "core/map_places.h"
#include "core/pending_image.h"
#include "core/shown_values.h"
#include "core/step.h"
#include "core/stored_bytes.h"
#include "core/wording.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "rom/storable_numbers.h"

namespace {

// Sums over more cells would be felt at each key.
constexpr std::int64_t mostCellsSummed = 65'536;

// Parts of a line, some room between them.
class StatusText {
 public:
  void add(const std::string& part) {
    if (part.empty()) return;
    if (!text_.empty()) text_ += "   ";
    text_ += part;
  }
  void add(const Wording& name, const std::string& value) {
    if (!value.empty()) add(captioned(name) + " " + value);
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

std::string boostOf(const ScaleCell& load) {
  if (!load.scale || load.scale->rules().after != AfterEffect::boostRow) return {};
  return gridOf(*load.scale).text(0, load.column);
}

std::string inHexadecimal(const std::string& decimal) {
  const auto number = bareNumber(decimal);
  return number ? decimal + " = &H" + hexText(static_cast<std::uint32_t>(*number)) : decimal;
}

// What another image shows in place of `now`; "" for the same.
template <class Show>
std::string unlessSame(const std::string& now, Show show) {
  std::string other;
  const int failure = trapFailure([&] { other = show(); });
  return failure != 0 || other == now ? std::string() : other;
}

template <class Show>
void addOthers(StatusText& line, Show show) {
  std::string now;
  trapFailure([&] { now = show(pendingImage.bytes()); });
  line.add({"ファイル", "file"}, unlessSame(now, [&] { return show(editorState.savedImage); }));
  if (editorState.compareLoaded <= 0) return;
  line.add({"比較元", "comparison"},
           unlessSame(now, [&] { return show(editorState.compareImage); }));
}

void addSelection(StatusText& line, const Grid& grid) {
  const GridBlock block = grid.block();
  const std::int64_t count = std::int64_t{block.rows()} * block.columns();
  if (count < 2) return;
  std::string text = decimalText(block.rows()) + " x " + decimalText(block.columns());
  if (count <= mostCellsSummed) {
    std::int64_t sum = 0;
    std::int32_t least = cellNumber(grid.text(block.top, block.left));
    std::int32_t greatest = least;
    for (int row = block.top; row <= block.bottom; ++row) {
      for (int column = block.left; column <= block.right; ++column) {
        const std::int32_t number = cellNumber(grid.text(row, column));
        sum += number;
        least = std::min(least, number);
        greatest = std::max(greatest, number);
      }
    }
    text += captioned({": 合計 ", ": sum "}) + std::to_string(sum) + captioned({"、", ", "}) +
            decimalText(least) + captioned({"～", " to "}) + decimalText(greatest);
  }
  line.add(text);
}

std::string lineOf(const MapKind& kind) {
  const Grid& grid = gridOf(kind);
  if (!entryOf(kind).present() || grid.rows() < 1 || grid.columns() < 1) return {};
  const StoredCells cells(extentOf(kind));
  const std::int64_t index = cells.indexOf(grid.row(), grid.column());
  if (index < 0 || !cells.drawn(index)) return {};
  const std::int64_t address = cells.addressOf(index);
  StatusText line;
  line.add(addressText(address));
  line.add({"回転数", "RPM"}, grid.rowMeaning(grid.row()));
  line.add({"TP", "TP"}, grid.columnMeaning(grid.column()));
  line.add({"加給圧", "Boost"}, kind.isScale() ? boostOf({&kind, 0, grid.column()})
                                               : boostOf(loadCellOf(kind, grid.column())));
  line.add(inHexadecimal(grid.text(grid.row(), grid.column())));
  addOthers(line, [&](const RomImage& image) {
    return decimalText(ShownValue(kind)(storedIn(image, kind, address)));
  });
  addSelection(line, grid);
  return line.text();
}

std::string lineOf(const ParamKind& kind) {
  const ParamEntry& entry = editorState.addressMap.param(kind.id);
  if (!entry.present()) return {};
  StatusText line;
  line.add(addressText(entry.address));
  line.add(decimalText(entry.bytes) + captioned({"バイト", entry.bytes == 1 ? " byte" : " bytes"}));
  addOthers(line, [&kind](const RomImage& image) { return paramText(kind, image).value_or(""); });
  return line.text();
}

// What the focus is on; elsewhere the map of the tab.
std::string lineAtCursor() {
  if (editorState.imageSize == 0) return {};
  const MapPlace focus = placeOfFocus();
  if (focus.param) return lineOf(*focus.param);
  const MapKind* const map = focus.map ? focus.map : activeMap();
  return map ? lineOf(*map) : std::string();
}

std::string unsavedText() {
  const std::int64_t bytes = editorState.imageSize == 0 ? 0 : pendingImage.unsavedBytes();
  if (bytes == 0) return {};
  const std::string count = std::to_string(bytes);
  return captionedBoth({"● 変わるバイト数: " + count, "● bytes that will change: " + count});
}

// A cell that only took another colour stands as it stood.
std::int64_t textsChanged(const CellsOfStep& part) {
  const Grid& grid = gridOf(*part.kind);
  std::int64_t count = 0;
  for (std::size_t i = 0; i < part.places.size(); ++i) {
    const std::int32_t place = part.places[i];
    if (grid.text(place / grid.columns(), place % grid.columns()) != part.cells[i].text) ++count;
  }
  return count;
}

std::int64_t cellsAtLimit(const CellsOfStep& part) {
  const Grid& grid = gridOf(*part.kind);
  const StorableNumbers storable = storableNumbers(*part.kind, entryOf(*part.kind));
  const std::string limit = decimalText(part.kind->rules().limit);
  return std::count_if(part.places.begin(), part.places.end(), [&](std::int32_t place) {
    const std::string& text = grid.text(place / grid.columns(), place % grid.columns());
    return text == "0" || text == limit || storable.isEnd(cellNumber(text));
  });
}

std::string counted(std::int64_t count, const char* one, const char* many) {
  return std::to_string(count) + (count == 1 ? one : many);
}

}  // namespace

void showStatus() {
  form1().cursorStatus.setCaption(lineAtCursor());
  form1().unsavedStatus.setCaption(unsavedText());
}

void sayChanged(const Step& step) {
  std::int64_t cells = 0;
  std::int64_t limited = 0;
  for (const CellsOfStep& part : step.cells) {
    const std::int64_t changed = textsChanged(part);
    cells += changed;
    if (changed > 0) limited += cellsAtLimit(part);
  }
  if (cells == 0) return form1().doneStatus.setCaption("");
  BothTexts text{std::to_string(cells) + "個のセルを変更",
                 counted(cells, " cell changed", " cells changed")};
  if (limited > 0) {
    text.japanese += "、" + std::to_string(limited) + "個は限界値";
    text.english += ", " + counted(limited, " at its limit", " at their limit");
  }
  form1().doneStatus.setCaption(captionedBoth(text));
}

void saySaved(std::size_t bytes) {
  const std::string when = localTime("%H:%M");
  const std::string size = std::to_string(bytes);
  form1().doneStatus.setCaption(captionedBoth(
      {when + " 保存、" + size + "バイト", "saved " + when + ", " + size + " bytes"}));
}

void wireStatus() {
  for (const MapKind& kind : mapKinds()) {
    gridOf(kind).onSelect = showStatus;
    gridOf(kind).onGotFocus = showStatus;
  }
  for (const ParamKind& kind : paramKinds()) (form1().*kind.box).onGotFocus = showStatus;
  form1().doneStatus.setCaption("");
  showStatus();
}
