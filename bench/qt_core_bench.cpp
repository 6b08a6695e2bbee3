// Drawing all maps of a full car into their records, beside filling as many cells of the toolkit's
// own table widgets with the same texts and colours.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTableWidget>
#include <memory>
#include <vector>

#include "core/map_display.h"
#include "core/map_kinds.h"
#include "full_car.h"

namespace {

void drawAllMaps(benchmark::State& state) {
  fullCar();
  for (auto _ : state) {
    const GridsPause pause;
    redrawAllMaps();
  }
}

void fillTable(QTableWidget& table, const Grid& grid) {
  for (int r = 0; r < grid.rows(); ++r) {
    for (int c = 0; c < grid.columns(); ++c) {
      const std::string& text = grid.text(r, c);
      auto* const item =
          new QTableWidgetItem(QString::fromUtf8(text.data(), static_cast<int>(text.size())));
      const Colour colour = grid.background(r, c);
      item->setBackground(QColor(colour.red, colour.green, colour.blue));
      table.setItem(r, c, item);
    }
  }
}

void fillTableWidgets(benchmark::State& state) {
  fullCar();
  std::vector<std::unique_ptr<QTableWidget>> tables;
  for (const MapKind& kind : mapKinds()) {
    const Grid& grid = gridOf(kind);
    tables.push_back(std::make_unique<QTableWidget>(grid.rows(), grid.columns()));
  }
  for (auto _ : state) {
    for (const MapKind& kind : mapKinds()) {
      fillTable(*tables[static_cast<std::size_t>(kind.id - 1)], gridOf(kind));
    }
  }
}

BENCHMARK(drawAllMaps)->Unit(benchmark::kMicrosecond);
BENCHMARK(fillTableWidgets)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
