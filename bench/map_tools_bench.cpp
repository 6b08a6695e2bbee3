// The map tools over a whole 40 x 40 map, and the address editor over 262,144 bytes, each beside a
// bare loop over the same texts.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "editing/add_multiply.h"
#include "editing/address_grid.h"
#include "editing/copy_paste.h"
#include "editing/map_shift.h"
#include "editing/smoothing.h"
#include "frontend/headless/headless_desktop.h"

namespace {

constexpr int side = 40;
constexpr int threshold = 256;

struct BareCell {
  std::string text;
  Colour colour;
};
using BareMap = std::vector<BareCell>;

std::string startText(int cell) { return std::to_string(cell * 37 % 250 + 1); }

HeadlessDesktop& bareDesktop() {
  static HeadlessDesktop headless;
  useDesktop(&headless);
  return headless;
}

const MapKind& wholeKind() { return *findMapKind(HIGH_FUEL); }

Grid& wholeMap() {
  bareDesktop();
  editorState.gridColorRate = 1;
  editorState.currentTab = 1;
  editorState.addressMap.map(HIGH_FUEL).bytes = side * side;
  Grid& grid = form1().Grid1;
  grid.resize(side + 1, side + 1);
  for (int cell = 0; cell < side * side; ++cell) {
    grid.setText(cell / side + 1, cell % side + 1, startText(cell));
  }
  grid.setSelection({1, 1, side, side});
  return grid;
}

BareMap bareMap() {
  BareMap cells;
  for (int cell = 0; cell < side * side; ++cell) cells.push_back({startText(cell), {}});
  return cells;
}

BareCell& at(BareMap& cells, int row, int column) {
  return cells[static_cast<std::size_t>(row * side + column)];
}

int number(const std::string& text) {
  return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}

void write(BareCell& cell, int value) {
  const int shade = std::clamp(value, 0, 255);
  cell.text = std::to_string(value);
  cell.colour = rgb(255 - shade, 0, shade);
}

template <class Work>
void overWholeMap(benchmark::State& state, Work work) {
  Grid& grid = wholeMap();
  for (auto _ : state) {
    work(grid);
    benchmark::ClobberMemory();
  }
}

template <class Work>
void overBareTexts(benchmark::State& state, Work work) {
  BareMap cells = bareMap();
  for (auto _ : state) {
    work(cells);
    benchmark::ClobberMemory();
  }
}

void copyWholeMap(benchmark::State& state) { overWholeMap(state, copyBlock); }
BENCHMARK(copyWholeMap);

void copyBareTexts(benchmark::State& state) {
  std::vector<int> buffer(copyColumns * copyRows);
  overBareTexts(state, [&](BareMap& cells) {
    std::string text;
    std::fill(buffer.begin(), buffer.end(), 0);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      buffer[i] = number(cells[i].text);
      text += cells[i].text + ',';
    }
    benchmark::DoNotOptimize(text += "39,39");
  });
}
BENCHMARK(copyBareTexts);

void pasteWholeMap(benchmark::State& state) {
  copyBlock(wholeMap());
  overWholeMap(state, [](Grid&) { pasteBlock(wholeKind()); });
}
BENCHMARK(pasteWholeMap);

void pasteBareTexts(benchmark::State& state) {
  copyBlock(wholeMap());
  overBareTexts(state, [text = *bareDesktop().clipboard](BareMap& cells) {
    std::size_t start = 0;
    for (BareCell& cell : cells) {
      const std::size_t comma = text.find(',', start);
      write(cell, number(text.substr(start, comma - start)));
      start = comma + 1;
    }
  });
}
BENCHMARK(pasteBareTexts);

// Up and down in turn, so that no cell stays at a limit.
void addOverWholeMap(benchmark::State& state) {
  float amount = 1;
  overWholeMap(state, [&](Grid&) { DEC_DATA(1, threshold, amount = -amount); });
}
BENCHMARK(addOverWholeMap);

void addOverBareTexts(benchmark::State& state) {
  int amount = 1;
  overBareTexts(state, [&](BareMap& cells) {
    amount = -amount;
    for (BareCell& cell : cells) {
      const int value = number(cell.text);
      if (value < threshold) write(cell, std::clamp(value + amount, 0, 255));
    }
  });
}
BENCHMARK(addOverBareTexts);

void multiplyWholeMap(benchmark::State& state) {
  float factor = 2;
  overWholeMap(state, [&](Grid&) { multiplyData(1, threshold, factor = 1 / factor); });
}
BENCHMARK(multiplyWholeMap);

void multiplyBareTexts(benchmark::State& state) {
  double factor = 2;
  overBareTexts(state, [&](BareMap& cells) {
    factor = 1 / factor;
    for (BareCell& cell : cells) {
      const int value = number(cell.text);
      if (value >= threshold) continue;
      write(cell, std::clamp(static_cast<int>(std::floor(value * factor)) + 1, 0, 255));
    }
  });
}
BENCHMARK(multiplyBareTexts);

void smoothWholeMap(benchmark::State& state) {
  overWholeMap(state, [](Grid&) { SMOOTH_DATA(wholeKind(), threshold); });
}
BENCHMARK(smoothWholeMap);

void smoothBetween(BareCell& cell, const BareCell& before, const BareCell& behind) {
  const int a = number(before.text);
  const int b = number(behind.text);
  if (std::max(a, b) < threshold) write(cell, static_cast<int>(std::nearbyint((a + b) / 2.0)));
}

void smoothBareTexts(benchmark::State& state) {
  overBareTexts(state, [](BareMap& cells) {
    for (int r = 0; r < side - 2; ++r) {
      for (int c = 0; c < side - 2; ++c) {
        smoothBetween(at(cells, r, c + 1), at(cells, r, c), at(cells, r, c + 2));
      }
    }
    for (int c = 0; c < side - 2; ++c) {
      for (int r = 0; r < side - 2; ++r) {
        smoothBetween(at(cells, r + 1, c), at(cells, r, c), at(cells, r + 2, c));
      }
    }
  });
}
BENCHMARK(smoothBareTexts);

void shiftWholeMap(benchmark::State& state) {
  overWholeMap(state, [](Grid& grid) {
    form11.directions.select(&form11.Option1);
    MAP_SHIFT(wholeKind(), side, side);
    grid.setText(1, side, "255");
  });
}
BENCHMARK(shiftWholeMap);

void shiftBareTexts(benchmark::State& state) {
  overBareTexts(state, [](BareMap& cells) {
    for (int r = 0; r < side; ++r) {
      for (int c = 1; c < side; ++c) write(at(cells, r, c - 1), number(at(cells, r, c).text));
      write(at(cells, r, side - 1), 0);
    }
    at(cells, 0, side - 1).text = "255";
  });
}
BENCHMARK(shiftBareTexts);

constexpr int stretchSide = 512;
constexpr int stretchBytes = stretchSide * stretchSide;

void setUpStretch() {
  bareDesktop();
  editorState.gridColorRate = 1;
  editorState.image.resize(stretchBytes);
  for (std::size_t i = 0; i < stretchBytes; ++i) {
    editorState.image[i] = static_cast<std::uint8_t>(i * 2654435761U >> 24);
  }
  editorState.imageSize = stretchBytes;
  editorState.addressEditStart = 0;
  editorState.addressEditColumns = stretchSide;
  editorState.addressEditRows = stretchSide;
}

std::string bareHex(std::uint8_t byte) {
  const char* const digits = "0123456789ABCDEF";
  return {digits[byte >> 4], digits[byte & 15]};
}

BareMap bareStretch() {
  BareMap cells(stretchBytes);
  for (std::size_t i = 0; i < stretchBytes; ++i) {
    const std::uint8_t byte = editorState.image[i];
    cells[i].text = bareHex(byte);
    cells[i].colour = rgb(255 - byte, 0, byte);
  }
  return cells;
}

void openAddressGrid(benchmark::State& state) {
  setUpStretch();
  for (auto _ : state) {
    form6.load();
    state.PauseTiming();
    form6.unload();
    state.ResumeTiming();
  }
}
BENCHMARK(openAddressGrid)->Unit(benchmark::kMillisecond);

void formatBareBytes(benchmark::State& state) {
  setUpStretch();
  for (auto _ : state) {
    BareMap cells = bareStretch();
    benchmark::DoNotOptimize(cells.data());
    state.PauseTiming();
    cells = {};
    state.ResumeTiming();
  }
}
BENCHMARK(formatBareBytes)->Unit(benchmark::kMillisecond);

void acceptAddressGrid(benchmark::State& state) {
  setUpStretch();
  for (auto _ : state) {
    state.PauseTiming();
    form6.load();
    state.ResumeTiming();
    form6.Command1.userClick();
  }
}
BENCHMARK(acceptAddressGrid)->Unit(benchmark::kMillisecond);

void parseBareBytes(benchmark::State& state) {
  setUpStretch();
  const BareMap cells = bareStretch();
  for (auto _ : state) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      editorState.image[i] =
          static_cast<std::uint8_t>(std::strtol(cells[i].text.c_str(), nullptr, 16));
    }
    benchmark::ClobberMemory();
  }
}
BENCHMARK(parseBareBytes)->Unit(benchmark::kMillisecond);

}  // namespace
