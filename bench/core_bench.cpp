// Drawing, writing back, the progress bar and the boost row of a full car, each beside a bare loop
// over the same bytes or texts; and a step key over a whole map, by the user's door.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "core/boost.h"
#include "core/history.h"
#include "core/map_display.h"
#include "core/map_kinds.h"
#include "core/progress.h"
#include "core/rom_image.h"
#include "full_car.h"

namespace {

std::string_view digits(std::array<char, 24>& buffer, int number, int base = 10) {
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, base);
  return {buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())};
}

// The shape of each map as the yardsticks walk it.
struct Shape {
  std::size_t address;
  int columns;
  int rows;
  int scale;  // 0: the airflow map's words
};

std::vector<Shape> shapes() {
  std::vector<Shape> all;
  for (const MapKind& kind : mapKinds()) {
    const MapEntry& entry = editorState.addressMap.map(kind.id);
    const bool airflow = kind.family == MapFamily::airflow;
    all.push_back({static_cast<std::size_t>(entry.address), airflow ? entry.bytes / 2 : 16,
                   entry.rows,
                   airflow         ? 0
                   : kind.scaled() ? entry.scale
                                   : 1});
  }
  return all;
}

// All header and cell texts of all maps, one after the other.
void formatAll(const std::vector<Shape>& all, std::vector<std::string>& texts) {
  std::array<char, 24> buffer;
  std::size_t next = 0;
  const std::uint8_t* const image = editorState.image.data();
  for (const Shape& shape : all) {
    for (int c = 0; c < shape.columns; ++c) {
      texts[next].assign("+");
      texts[next++].append(digits(buffer, c, 16));
    }
    const std::uint8_t* byte = image + shape.address;
    for (int r = 0; r < shape.rows; ++r) {
      texts[next++].assign(digits(buffer, static_cast<int>(byte - image), 16));
      for (int c = 0; c < shape.columns; ++c) {
        const int word = shape.scale == 0 ? *byte++ * 256 : 0;
        const int value = shape.scale == 0 ? word + *byte++ : *byte++ * shape.scale;
        texts[next++].assign(digits(buffer, value));
      }
    }
  }
}

constexpr std::size_t mostTexts = 8192;
constexpr int countedCells = 2176;  // all but those of the additional maps

void drawAllMaps(benchmark::State& state) {
  fullCar();
  for (auto _ : state) {
    const GridsPause pause;
    redrawAllMaps();
  }
}

void formatTheSameTexts(benchmark::State& state) {
  fullCar();
  const std::vector<Shape> all = shapes();
  std::vector<std::string> texts(mostTexts);
  for (auto _ : state) {
    formatAll(all, texts);
    benchmark::DoNotOptimize(texts.data());
  }
}

void writeAllBack(benchmark::State& state) {
  fullCar();
  for (auto _ : state) writeBackAll();
}

void parseTheSameTexts(benchmark::State& state) {
  fullCar();
  std::vector<std::string> texts;
  for (const Shape& shape : shapes()) {
    const int cells = shape.columns * shape.rows;
    for (int i = 0; i < cells; ++i) {
      const auto place = shape.address + static_cast<std::size_t>(i);
      texts.push_back(std::to_string(editorState.image[place] * std::max(shape.scale, 1)));
    }
  }
  std::vector<std::uint8_t> bytes(texts.size());
  for (auto _ : state) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      double number = 0;
      std::from_chars(texts[i].data(), texts[i].data() + texts[i].size(), number);
      bytes[i] = static_cast<std::uint8_t>(static_cast<int>(number));
    }
    benchmark::DoNotOptimize(bytes.data());
  }
}

void loadByTheMenu(benchmark::State& state) {
  HeadlessDesktop& desk = fullCar();
  const std::string file = editorState.imagePath;
  MenuItem& command = *form1().menuBar.find("load_bin_file");
  for (auto _ : state) {
    desk.openAnswers.push_back(file);
    command.userPick();
  }
  state.counters["cells"] = editorState.progressCount;
}

void countTheSameProgress(benchmark::State& state) {
  fullCar();
  for (auto _ : state) {
    for (int i = 1; i <= countedCells; ++i) setProgress(i);
    setProgress(-1);
  }
}

void boostOfBothScales(benchmark::State& state) {
  fullCar();
  for (auto _ : state) recalculateBoost();
}

void theSameArithmetic(benchmark::State& state) {
  fullCar();
  std::vector<std::string> values;
  for (const Grid* grid : {&form1().TP_FUEL, &form1().TP_FIRE}) {
    for (int c = 1; c <= 16; ++c) values.push_back(grid->text(1, c));
  }
  std::vector<std::string> texts(values.size());
  for (auto _ : state) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      int tp = 0;
      std::from_chars(values[i].data(), values[i].data() + values[i].size(), tp);
      const auto load = static_cast<float>(tp * 0.125);
      const auto perCylinder = static_cast<float>(static_cast<double>(editorState.displacement) /
                                                  static_cast<double>(editorState.cylinders));
      const float a = perCylinder / 8640.0F;
      const auto b = static_cast<float>(static_cast<double>(a) / editorState.injectorSize);
      const auto ratio = load / static_cast<float>(b * 60000.0);
      const auto boost = static_cast<float>(static_cast<double>(ratio) * 1.035 - 1.035);
      std::array<char, 24> buffer;
      const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), boost,
                                     std::chars_format::fixed, 2);
      texts[i].assign(buffer.data(), end.ptr);
    }
    benchmark::DoNotOptimize(texts.data());
  }
}

// From press to release over a whole map; the history of steps is full before long.
void holdStepKey(benchmark::State& state) {
  fullCar();
  editorState.currentTab = 1;
  editorState.plusKey = "+";
  editorState.minusKey = "-";
  Grid& grid = form1().Grid1;
  grid.setSelection({1, 1, grid.rows() - 1, grid.columns() - 1});
  bool up = true;
  for (auto _ : state) {
    grid.userKey(up ? U'+' : U'-');
    grid.userKeyUp();
    up = !up;
  }
  forgetHistory();
}

BENCHMARK(drawAllMaps)->Unit(benchmark::kMicrosecond);
BENCHMARK(formatTheSameTexts)->Unit(benchmark::kMicrosecond);
BENCHMARK(writeAllBack)->Unit(benchmark::kMicrosecond);
BENCHMARK(parseTheSameTexts)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadByTheMenu)->Unit(benchmark::kMicrosecond);
BENCHMARK(countTheSameProgress)->Unit(benchmark::kMicrosecond);
BENCHMARK(boostOfBothScales)->Unit(benchmark::kMicrosecond);
BENCHMARK(theSameArithmetic)->Unit(benchmark::kMicrosecond);
BENCHMARK(holdStepKey)->Unit(benchmark::kMicrosecond);

}  // namespace
