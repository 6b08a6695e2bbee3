// The address editor's grid of 262,144 bytes in its view: from the record's load to the first
// painted picture, and a page of scrolling; and the main window when its maps take another size.
// The shapes are columns by rows.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QScrollBar>
#include <array>
#include <cstddef>
#include <memory>
#include <string>

#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_colours.h"
#include "editing/address_grid.h"
#include "frontend/headless/headless_desktop.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/look.h"
#include "frontend/qt/windows/make_window.h"

namespace {

constexpr QSize windowSize(1600, 1000);

void setUpStretch(int columns, int rows) {
  const int bytes = columns * rows;
  editorState.gridColorRate = 1;
  editorState.image.resize(static_cast<std::size_t>(bytes));
  for (std::size_t i = 0; i < editorState.image.size(); ++i) {
    editorState.image[i] = static_cast<std::uint8_t>(i * 2654435761U >> 24);
  }
  editorState.imageSize = bytes;
  editorState.addressEditColumns = columns;
  editorState.addressEditRows = rows;
}

QImage painted(GridView& view) {
  view.applyChanges();
  QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
  view.render(&image);
  return image;
}

void openAndPaint(benchmark::State& state) {
  setUpStretch(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  GridView view(form6.eGrid);
  view.resize(windowSize);
  view.show();
  for (auto _ : state) {
    form6.load();
    benchmark::DoNotOptimize(painted(view));
    state.PauseTiming();
    form6.unload();
    view.applyChanges();
    state.ResumeTiming();
  }
}
BENCHMARK(openAndPaint)
    ->Args({512, 512})
    ->Args({1, 262144})
    ->Args({262144, 1})
    ->Unit(benchmark::kMillisecond);

void scrollByPages(benchmark::State& state) {
  setUpStretch(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  GridView view(form6.eGrid);
  view.resize(windowSize);
  view.show();
  form6.load();
  painted(view);
  QScrollBar& bar = state.range(1) > 1 ? *view.verticalScrollBar() : *view.horizontalScrollBar();
  for (auto _ : state) {
    bar.setValue(bar.value() >= bar.maximum() ? 0 : bar.value() + bar.pageStep());
    benchmark::DoNotOptimize(painted(view));
  }
  form6.unload();
}
BENCHMARK(scrollByPages)
    ->Args({512, 512})
    ->Args({1, 262144})
    ->Args({262144, 1})
    ->Unit(benchmark::kMillisecond);

// From the wheel's turn to the whole window painted, through all steps of the zoom.
void zoomTheWindow(benchmark::State& state) {
  const auto columns = static_cast<int>(state.range(0));
  const auto rows = static_cast<int>(state.range(1));
  editorState.gridColorRate = 1;
  Grid& map = form1().Grid1;
  map.resize(rows, columns);
  for (int row = 1; row < rows; ++row) {
    for (int column = 1; column < columns; ++column) {
      const int number = (row * 31 + column * 7) % 256;
      map.setCell(row, column, std::to_string(number), cellColour(number));
    }
  }
  const std::unique_ptr<QWidget> window(makeWindow(form1()));
  window->resize(windowSize);
  window->show();
  QCoreApplication::processEvents();
  QImage image(windowSize, QImage::Format_ARGB32_Premultiplied);
  constexpr std::array steps{75, 90, 100, 110, 125, 150, 175, 200, 250, 300};
  std::size_t step = 0;
  for (auto _ : state) {
    form1().mapZoom.set(steps[++step % steps.size()], false);
    QCoreApplication::processEvents();
    window->render(&image);
  }
}
BENCHMARK(zoomTheWindow)
    ->Args({17, 17})
    ->Args({512, 512})
    ->Args({1024, 1024})
    ->Args({524288, 2})
    ->Args({2, 524288})
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  dressApplication();
  HeadlessDesktop desk;
  useDesktop(&desk);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  useDesktop(nullptr);
}
