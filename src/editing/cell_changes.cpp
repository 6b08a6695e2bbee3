#include "editing/cell_changes.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

#include "core/map_cells.h"
#include "core/map_extent.h"
#include "core/stored_bytes.h"
#include "platform/numbers.h"
#include "rom/storable_numbers.h"

namespace {

// A place for each column, or each row, of a block.
using Places = std::vector<std::int64_t>;

Places evenPlaces(int count) {
  Places places;
  for (int i = 0; i < count; ++i) places.push_back(i);
  return places;
}

// Shorter than `count` where the scale ends.
template <class CellOf>
Places scalePlaces(int from, int count, CellOf cellOf) {
  Places places;
  for (int i = from; i < from + count; ++i) {
    const ScaleCell cell = cellOf(i);
    if (!cell.scale) break;
    places.push_back(cellNumber(gridOf(*cell.scale).text(cell.row, cell.column)));
  }
  return places;
}

Places columnPlaces(const MapKind& kind, const GridBlock& block) {
  return scalePlaces(block.left, block.columns(), [&](int i) { return loadCellOf(kind, i); });
}

Places rowPlaces(const MapKind& kind, const GridBlock& block) {
  return scalePlaces(block.top, block.rows(), [&](int i) { return speedCellOf(kind, i); });
}

bool isStraight(const Places& places, int count) {
  if (static_cast<int>(places.size()) != count) return false;
  const auto turns = [&places](auto wrong) {
    return std::adjacent_find(places.begin(), places.end(), wrong) != places.end();
  };
  return !turns(std::greater_equal<>()) || !turns(std::less_equal<>());
}

Way wayAt(const Places& places, int index) {
  const std::int64_t way = places.back() - places.front();
  const std::int64_t part = places[static_cast<std::size_t>(index)] - places.front();
  if (way == 0) return {};
  return way > 0 ? Way{part, way} : Way{-part, -way};
}

// Calls `change(row, column, number)` for each chosen cell that stands for bytes of the image.
template <class Change>
void forEachCell(const ChosenCells& chosen, MapCells& cells, Change change) {
  const StoredCells stored(extentOf(chosen.kind));
  const GridPause pause(gridOf(chosen.kind));
  for (int row = chosen.block.top; row <= chosen.block.bottom; ++row) {
    for (int column = chosen.block.left; column <= chosen.block.right; ++column) {
      const std::int64_t index = stored.indexOf(row, column);
      if (index < 0 || !stored.drawn(index)) continue;
      const std::int32_t number = cells.number(row, column);
      if (!chosen.below || number < *chosen.below) change(row, column, number);
    }
  }
}

// The ends between which a cell lies.
GridBlock endsAround(const GridBlock& block, Fill fill, int row, int column) {
  GridBlock ends = block;
  if (fill == Fill::across) ends.top = ends.bottom = row;
  if (fill == Fill::down) ends.left = ends.right = column;
  return ends;
}

bool isEnd(const GridBlock& ends, int row, int column) {
  return (row == ends.top || row == ends.bottom) && (column == ends.left || column == ends.right);
}

}  // namespace

void setCells(const ChosenCells& chosen, double number) {
  MapCells cells(chosen.kind);
  const std::int32_t nearest = storableNumbers(chosen.kind, entryOf(chosen.kind)).nearestTo(number);
  forEachCell(chosen, cells,
              [&](int row, int column, std::int32_t) { cells.change(row, column, nearest); });
  showAfterEffect(chosen.kind);
}

void changeCellsByPercentage(const ChosenCells& chosen, Percentage by, bool atLeastOneUnit) {
  MapCells cells(chosen.kind);
  const StorableNumbers storable = storableNumbers(chosen.kind, entryOf(chosen.kind));
  forEachCell(chosen, cells, [&](int row, int column, std::int32_t former) {
    cells.change(row, column, changedByPercentage(former, by, atLeastOneUnit, storable));
  });
  showAfterEffect(chosen.kind);
}

void interpolateCells(const ChosenCells& chosen, Fill fill, Spacing spacing) {
  const GridBlock& block = chosen.block;
  const bool byScale = spacing == Spacing::byScale && scalesTell(chosen.kind, block, fill);
  // A direction that isn't filled needs no scale.
  const Places right = byScale && fill != Fill::down ? columnPlaces(chosen.kind, block)
                                                     : evenPlaces(block.columns());
  const Places down =
      byScale && fill != Fill::across ? rowPlaces(chosen.kind, block) : evenPlaces(block.rows());
  MapCells cells(chosen.kind);
  const StorableNumbers storable = storableNumbers(chosen.kind, entryOf(chosen.kind));
  forEachCell(chosen, cells, [&](int row, int column, std::int32_t) {
    const GridBlock ends = endsAround(block, fill, row, column);
    if (isEnd(ends, row, column)) return;
    const Corners corners{cells.number(ends.top, ends.left), cells.number(ends.top, ends.right),
                          cells.number(ends.bottom, ends.left),
                          cells.number(ends.bottom, ends.right)};
    cells.change(row, column,
                 betweenCorners(corners, wayAt(right, column - block.left),
                                wayAt(down, row - block.top), storable));
  });
  showAfterEffect(chosen.kind);
}

bool hasCellsBetween(const GridBlock& block, Fill fill) {
  if (fill == Fill::across) return block.columns() > 2;
  if (fill == Fill::down) return block.rows() > 2;
  return block.columns() > 2 || block.rows() > 2;
}

bool scalesTell(const MapKind& kind, const GridBlock& block, Fill fill) {
  const bool right = fill == Fill::down || isStraight(columnPlaces(kind, block), block.columns());
  const bool down = fill == Fill::across || isStraight(rowPlaces(kind, block), block.rows());
  return right && down;
}
