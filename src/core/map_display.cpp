#include "core/map_display.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "core/airflow_view.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/image_bytes.h"
#include "core/map_colours.h"
#include "core/map_extent.h"
#include "core/map_kinds.h"
#include "core/progress.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

constexpr int cellWidth = 430;          // twips
constexpr int airflowCellWidth = 620;   // twips
constexpr int rpmCellWidth = 550;       // twips
constexpr int addressWidth = 620;       // twips
constexpr int limitHeaderHeight = 194;  // twips

class CellText {
 public:
  explicit CellText(std::int64_t number)
      : end_(std::to_chars(digits_, digits_ + sizeof digits_, number).ptr) {}
  std::string_view view() const { return {digits_, static_cast<std::size_t>(end_ - digits_)}; }

 private:
  char digits_[24];
  char* end_;
};

std::string addressHeader(std::int64_t address) {
  return padHex(hexText(static_cast<std::uint32_t>(address)), 2);
}

std::int64_t shownValue(const MapKind& kind, int byte) {
  if (!kind.scaled()) return byte;
  const std::int64_t shown = std::int64_t{byte} * editorState.addressMap.map(kind.id).scale;
  if (shown != static_cast<std::int32_t>(shown)) throw Failure(overflow);
  return shown;
}

void drawColumnHeaders(Grid& grid, int columns) {
  for (int c = 0; c < columns; ++c) {
    grid.setText(0, c + 1, "+" + hexText(static_cast<std::uint32_t>(c)));
  }
}

void drawBytes(Grid& grid, const MapExtent& extent, std::int32_t& drawn) {
  const bool scale = extent.kind.family == MapFamily::tpScale;
  const bool additional = extent.kind.family == MapFamily::additional;
  if (!scale) drawColumnHeaders(grid, extent.columns);
  std::int64_t next = extent.address;
  for (int r = 1; r <= extent.rows; ++r) {
    grid.setText(r, 0, addressHeader(next));
    for (int c = 1; c <= extent.columns; ++c) {
      const int byte = imageByte(next++);
      const CellText text(shownValue(extent.kind, byte));
      if (scale) {
        grid.setText(r, c, text.view());
      } else {
        grid.setCell(r, c, text.view(), cellColour(byte));
      }
      ++drawn;
      if (!additional) countProgress();
    }
  }
}

void drawRpmScale(Grid& grid, const MapExtent& extent, std::int32_t& drawn) {
  for (int i = 0; i < extent.columns; ++i) {
    const CellText text(shownValue(extent.kind, imageByte(extent.address + i)));
    grid.setText(i, 0, text.view());
    ++drawn;
    countProgress();
  }
}

void drawAirflow(Grid& grid, const MapExtent& extent, std::int32_t& drawn) {
  const int words = extent.bytes / 2;
  for (int word = 1; word <= words; ++word) grid.setText(0, word, "+" + signedBlank(word));
  for (int r = 1; r <= extent.rows; ++r) {
    grid.setText(r, 0, addressHeader(extent.address));
    for (int word = 0; word < words; ++word) {
      const std::int64_t place = extent.address + 2 * std::int64_t{word};
      const int value = imageByte(place) * 256 + imageByte(place + 1);
      grid.setCell(r, word + 1, CellText(value).view(), airflowCellColour(value));
      ++drawn;
      countProgress();
    }
  }
}

void drawCells(Grid& grid, const MapExtent& extent, std::int32_t& drawn) {
  switch (extent.kind.family) {
    case MapFamily::airflow:
      return drawAirflow(grid, extent, drawn);
    case MapFamily::rpmScale:
      return drawRpmScale(grid, extent, drawn);
    default:
      return drawBytes(grid, extent, drawn);
  }
}

bool drawnWhole(Grid& grid, const MapExtent& extent, std::int32_t& drawn) {
  const GridPause pause(grid);
  return trapFailure([&] { drawCells(grid, extent, drawn); }) == 0;
}

}  // namespace

void map_draw(int columns, int rows, int address, int bytes, int mapId) {
  const MapKind* kind = findMapKind(mapId);
  if (!kind) {
    return showUnknownMap({"map_drawのパラメーターに例外がある。",
                           "There is an exception for a parameter of map_draw."});
  }
  Grid& grid = gridOf(*kind);
  std::int32_t& drawn = editorState.cellsDrawn[static_cast<std::size_t>(mapId)];
  drawn = 0;
  grid.setVisible(false);
  const MapExtent extent{*kind, columns, rows, address, bytes};
  if (!drawnWhole(grid, extent, drawn)) return showRoutineError("MAP_DRAW");
  grid.setVisible(true);
  if (kind->family == MapFamily::airflow) drawAirflowView(grid, bytes);
}

void drawMap(MapId mapId) {
  const MapEntry& entry = editorState.addressMap.map(mapId);
  map_draw(entry.columns, entry.rows, entry.address, entry.bytes, mapId);
}

void redrawAllMaps() {
  for (const MapKind& kind : mapKinds()) {
    if (editorState.addressMap.map(kind.id).present()) drawMap(kind.id);
  }
}

void setGridLayout() {
  for (const MapKind& kind : mapKinds()) {
    Grid& grid = gridOf(kind);
    switch (kind.family) {
      case MapFamily::rpmScale:
        grid.setColumnWidths(rpmCellWidth);
        continue;
      case MapFamily::airflow:
        grid.setColumnWidths(airflowCellWidth);
        break;
      default:
        grid.setColumnWidths(cellWidth);
    }
    grid.setColumnWidth(0, addressWidth);
    if (kind.family == MapFamily::limitRow) grid.setRowHeight(0, limitHeaderHeight);
  }
}

void resetPanels() {
  const GridsPause pause;
  for (const MapKind& kind : mapKinds()) gridOf(kind).clear();
  for (const ParamKind& kind : paramKinds()) (form1().*kind.box).setText("N/A");
  editorState.cellsDrawn.fill(0);
  editorState.paramShown.fill(false);
}

void setGridsRedraw(bool on) {
  for (const MapKind& kind : mapKinds()) gridOf(kind).setRedraw(on);
}

GridsPause::GridsPause() : outermost_(gridOf(mapKinds().front()).redraw()) {
  if (outermost_) setGridsRedraw(false);
}

GridsPause::~GridsPause() {
  if (outermost_) setGridsRedraw(true);
}
