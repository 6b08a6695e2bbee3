#include "core/map_display.h"

#include <string>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/image_bytes.h"
#include "core/map_cells.h"
#include "core/map_extent.h"
#include "core/map_kinds.h"
#include "core/progress.h"
#include "core/shown_values.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

constexpr int addressWidth = 620;       // twips
constexpr int limitHeaderHeight = 194;  // twips

void drawColumnHeaders(Grid& grid, int columns) {
  for (int c = 0; c < columns; ++c) {
    grid.setText(0, c + 1, "+" + hexText(static_cast<std::uint32_t>(c)));
  }
}

void drawBytes(Grid& grid, const MapExtent& extent, std::int32_t& drawn) {
  MapCells cells(extent.kind);
  if (!extent.kind.isScale()) drawColumnHeaders(grid, extent.columns);
  const ShownValue shown(extent.kind);
  const bool counts = extent.kind.countsProgress();
  std::int64_t next = extent.address;
  for (int r = 1; r <= extent.rows; ++r) {
    grid.setText(r, 0, hexDigits(next, 2));
    for (int c = 1; c <= extent.columns; ++c) {
      showStored(cells, shown, r, c, imageByte(next++));
      ++drawn;
      if (counts) countProgress();
    }
  }
}

void drawRpmScale(const MapExtent& extent, std::int32_t& drawn) {
  MapCells cells(extent.kind);
  const ShownValue shown(extent.kind);
  for (int i = 0; i < extent.columns; ++i) {
    cells.set(i, 0, shown(imageByte(extent.address + i)));
    ++drawn;
    countProgress();
  }
}

void drawAirflow(Grid& grid, const MapExtent& extent, std::int32_t& drawn) {
  const int words = extent.bytes / 2;
  MapCells cells(extent.kind);
  for (int word = 1; word <= words; ++word) grid.setText(0, word, "+" + signedBlank(word));
  for (int r = 1; r <= extent.rows; ++r) {
    grid.setText(r, 0, hexDigits(extent.address, 2));
    for (int word = 0; word < words; ++word) {
      const std::int64_t place = extent.address + 2 * std::int64_t{word};
      cells.set(r, word + 1, storedIn(editorState.image, extent.kind, place));
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
      return drawRpmScale(extent, drawn);
    default:
      return drawBytes(grid, extent, drawn);
  }
}

bool drawnWhole(Grid& grid, const MapExtent& extent, std::int32_t& drawn) {
  if (extent.bytes < 1) return true;  // an absent map has no cells, and no headers either
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
  if (kind->rules().after == AfterEffect::airflowView) showAfterEffect(*kind);
}

void drawMap(MapId mapId) {
  const MapEntry& entry = editorState.addressMap.map(mapId);
  map_draw(entry.columns, entry.rows, entry.address, entry.bytes, mapId);
}

void redrawAllMaps() {
  for (const MapKind& kind : mapKinds()) {
    if (entryOf(kind).present()) drawMap(kind.id);
  }
}

void setGridLayout() {
  for (const MapKind& kind : mapKinds()) {
    Grid& grid = gridOf(kind);
    grid.setColumnWidths(kind.rules().columnWidth);
    if (grid.fixedColumns() > 0) grid.setColumnWidth(0, addressWidth);
    if (kind.family == MapFamily::limitRow) grid.setRowHeight(0, limitHeaderHeight);
  }
}

void resetPanels() {
  const GridsPause pause;
  for (const MapKind& kind : mapKinds()) MapCells(kind).clear();
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
