// A table of 513 x 41 values from a spreadsheet into a map, beside bare parses of the same text.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/map_kinds.h"
#include "core/map_places.h"
#include "exchange/export_files.h"
#include "exchange/number_table.h"
#include "exchange/spreadsheet.h"
#include "full_car.h"

namespace {

constexpr int columns = 513;
constexpr int rows = 41;

std::string tableText(int seed) {
  std::string text;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      if (column > 0) text += '\t';
      text += std::to_string((row * columns + column) * 37 % 199 + 28 + seed);
    }
    text += "\r\n";
  }
  return text;
}

// Every cell takes another value each time.
const std::string texts[] = {tableText(0), tableText(1)};

// The wide map in place of the first one.
HeadlessDesktop& wideMap() {
  HeadlessDesktop& desk = fullCar();
  MapEntry& entry = editorState.addressMap.map(HIGH_FUEL);
  if (entry.columns == columns) return desk;
  static const ScratchFolder scratch;
  const std::string wide = (scratch.path() / "wide.adr").string();
  std::ofstream(wide) << "TYPE_UNIT,WIDE\nHIGH_FUEL,0,513,41,21033,0,wide\n";
  desk.openAnswers = {wide};
  form1().menuBar.find("load_map_addr")->userPick();
  return desk;
}

void pasteTable(benchmark::State& state, bool asGesture) {
  HeadlessDesktop& desk = wideMap();
  MenuItem& row = *form1().menuBar.find("paste_table");
  int turn = 0;
  for (auto _ : state) {
    state.PauseTiming();
    desk.clipboard = texts[turn ^= 1];
    showCell(*findMapKind(HIGH_FUEL), 1, 1);
    forgetHistory();
    state.ResumeTiming();
    asGesture ? row.userPick() : pasteFromSpreadsheet();
  }
  if (gridOf(*findMapKind(HIGH_FUEL)).text(rows, columns).empty()) state.SkipWithError("not there");
}

void readTable(benchmark::State& state) {
  for (auto _ : state) {
    NumberTable table(texts[0], Comma::divides, rows + 1, columns + 1);
    double sum = 0;
    for (std::size_t row = 0; row < table.rows(); ++row) {
      for (std::size_t column = 0; column < table.columns(); ++column) {
        sum += *table.number({row, column});
      }
    }
    benchmark::DoNotOptimize(sum);
  }
}

// Numbers one behind the other, whatever divides them.
void parseBareNumbers(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<double> numbers;
    const char* at = texts[0].c_str();
    for (char* end = nullptr;; at = end) {
      const double number = std::strtod(at, &end);
      if (end == at) break;
      numbers.push_back(number);
    }
    benchmark::DoNotOptimize(numbers.data());
  }
}

// Lines, their fields, and each field's number.
void parseBareFields(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<std::vector<double>> table;
    std::istringstream lines(texts[0]);
    for (std::string line; std::getline(lines, line);) {
      std::istringstream fields(line);
      std::vector<double>& row = table.emplace_back();
      for (std::string field; std::getline(fields, field, '\t');) {
        row.push_back(std::strtod(field.c_str(), nullptr));
      }
    }
    benchmark::DoNotOptimize(table.data());
  }
}

// All of the largest usual car.
void writeReport(benchmark::State& state) {
  fullCar();
  std::size_t bytes = 0;
  for (auto _ : state) bytes = reportText().size();
  state.counters["bytes"] = static_cast<double>(bytes);
}

BENCHMARK(writeReport)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(pasteTable, asGesture, true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(pasteTable, command, false)->Unit(benchmark::kMicrosecond);
BENCHMARK(readTable)->Unit(benchmark::kMicrosecond);
BENCHMARK(parseBareNumbers)->Unit(benchmark::kMicrosecond);
BENCHMARK(parseBareFields)->Unit(benchmark::kMicrosecond);

}  // namespace
