// A redraw of the 3D graph into its display list against a bare loop that computes the same
// segments.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "graph_scene.h"

namespace {

HeadlessDesktop& sceneDesktop() {
  static HeadlessDesktop desk;
  static const bool opened = (openScene(desk), true);
  benchmark::DoNotOptimize(opened);
  return desk;
}

struct Point {
  int x;
  int y;
};

Point bareColumnPoint(int column, int row, int height) {
  const double dx = editorState.graphStepX * column / static_cast<double>(editorState.graphRatioX);
  const double dy = editorState.graphStepY * row / static_cast<double>(editorState.graphRatioY);
  return {static_cast<int>(std::lrint(dx + 40 + dy)),
          static_cast<int>(std::lrint(355 - dy)) - height};
}

void appendBareWire(std::vector<CanvasItem>& items, const GraphTable& heights, Colour colour) {
  static Point points[graphCells + 1][graphCells + 1];
  for (int row = 1; row <= graphCells; ++row) {
    for (int column = 1; column <= graphCells; ++column) {
      const auto c = static_cast<std::size_t>(column);
      const auto r = static_cast<std::size_t>(row);
      points[c][r] = bareColumnPoint(column, row, heights[c][r]);
    }
  }
  for (int row = 1; row < graphCells; ++row) {
    for (int column = 1; column < graphCells; ++column) {
      const Point corners[] = {points[column][row], points[column + 1][row],
                               points[column + 1][row + 1], points[column][row + 1]};
      for (int k = 0; k < 4; ++k) {
        const Point& from = corners[k];
        const Point& to = corners[(k + 1) % 4];
        items.push_back({CanvasItem::line, colour, from.x, from.y, to.x, to.y});
      }
    }
  }
}

void bareLoop(benchmark::State& state) {
  sceneDesktop();
  redrawScene();
  const GraphTable heights = graphState.heights;
  GraphTable compared{};
  for (auto& column : compared) column.fill(60);
  std::vector<CanvasItem> items;
  for (auto _ : state) {
    items.clear();
    appendBareWire(items, compared, rgb(192, 0, 0));
    appendBareWire(items, heights, rgb(0, 255, 0));
    benchmark::DoNotOptimize(items.data());
  }
  state.counters["segments"] = static_cast<double>(items.size());
}
BENCHMARK(bareLoop);

void redraw(benchmark::State& state) {
  sceneDesktop();
  for (auto _ : state) redrawScene();
  state.counters["items"] = static_cast<double>(DR_GRAPH.Picture1.items().size());
}
BENCHMARK(redraw);

// After a change of a display parameter the grid's texts are read again.
void redrawFromTheGrid(benchmark::State& state) {
  sceneDesktop();
  for (auto _ : state) redrawGraph3D();
}
BENCHMARK(redrawFromTheGrid);

void keyPress(benchmark::State& state) {
  sceneDesktop();
  for (auto _ : state) {
    DR_GRAPH.Picture1.userKeyDown(upKey);
    DR_GRAPH.Picture1.userKeyUp(upKey);
  }
}
BENCHMARK(keyPress);

}  // namespace
