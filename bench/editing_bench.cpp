// Editing while a key is held: one step of a whole 16 x 16 map, and the boost rows of both load
// scales, each beside a bare loop over the same texts.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "core/boost.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "editing/cell_editing.h"
#include "platform/numbers.h"

namespace {

constexpr int side = 16;

std::string startText(int cell) { return std::to_string(cell * 37 % 250 + 1); }

struct BareCell {
  std::string text;
  Colour colour;
};

// One step of every cell, up and down in turn, so that none stays at a limit.
void stepWholeMap(benchmark::State& state) {
  editorState.plusKey = "+";
  editorState.minusKey = "-";
  editorState.gridColorRate = 1;
  const MapKind& map = *findMapKind(HIGH_FUEL);
  editorState.addressMap.map(map.id).bytes = side * side;
  Grid& grid = gridOf(map);
  grid.resize(side + 1, side + 1);
  for (int cell = 0; cell < side * side; ++cell) {
    grid.setText(cell / side + 1, cell % side + 1, startText(cell));
  }
  grid.setSelection({1, 1, side, side});
  bool up = true;
  for (auto _ : state) {
    stepSelection(map, up ? '+' : '-');
    up = !up;
    benchmark::ClobberMemory();
  }
}
BENCHMARK(stepWholeMap);

void stepBareTexts(benchmark::State& state) {
  std::vector<BareCell> cells;
  for (int cell = 0; cell < side * side; ++cell) cells.push_back({startText(cell), {}});
  int step = 1;
  for (auto _ : state) {
    for (BareCell& cell : cells) {
      long value = std::strtol(cell.text.c_str(), nullptr, 10) + step;
      value = value > 255 ? 255 : value < 0 ? 0 : value;
      cell.text = std::to_string(value);
      cell.colour = rgb(static_cast<int>(255 - value), 0, static_cast<int>(value));
    }
    step = -step;
    benchmark::ClobberMemory();
  }
}
BENCHMARK(stepBareTexts);

void setUpEngine() {
  editorState.displacement = 1998;
  editorState.injectorSize = 370;
  editorState.cylinders = 4;
}

void refreshBoostRows(benchmark::State& state) {
  setUpEngine();
  for (const MapId id : {TP_SCALE_FUEL, TP_SCALE_FIRE}) {
    editorState.addressMap.map(id).columns = side;
    editorState.addressMap.map(id).bytes = side;
    Grid& grid = gridOf(*findMapKind(id));
    for (int c = 1; c <= side; ++c) grid.setText(1, c, startText(c));
  }
  for (auto _ : state) {
    recalculateBoost();
    benchmark::ClobberMemory();
  }
}
BENCHMARK(refreshBoostRows);

void refreshBareBoostRows(benchmark::State& state) {
  std::array<std::string, 2 * side> loads;
  std::array<std::string, 2 * side> boosts;
  for (int i = 0; i < 2 * side; ++i) {
    loads[static_cast<std::size_t>(i)] = startText(i % side + 1);
  }
  float displacement = 1998;
  benchmark::DoNotOptimize(displacement);
  for (auto _ : state) {
    for (std::size_t i = 0; i < loads.size(); ++i) {
      const double load = 0.125 * static_cast<double>(std::strtol(loads[i].c_str(), nullptr, 10));
      const float unit = displacement / 4 / 8640 / 370;
      const double ratio = load / (static_cast<double>(unit) * 60000);
      std::array<char, 32> text;
      const auto end = std::to_chars(text.data(), text.data() + text.size(), ratio * 1.035 - 1.035,
                                     std::chars_format::fixed, 2);
      boosts[i].assign(text.data(), end.ptr);
    }
    benchmark::ClobberMemory();
  }
}
BENCHMARK(refreshBareBoostRows);

}  // namespace
