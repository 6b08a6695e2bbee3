// A whole redraw of the 3D graph in the real canvas, from the projection to the pixels, against
// handing the same segments to the toolkit in one call per colour. The argument is the density of
// the screen.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <vector>

#include "frontend/qt/canvas_view.h"
#include "graph_scene.h"

namespace {

QImage screen(int density) {
  QImage image(DrGraph::canvasWidth * density, DrGraph::canvasHeight * density,
               QImage::Format_RGB32);
  image.setDevicePixelRatio(density);
  return image;
}

struct Layer {
  QPen pen;
  std::vector<QLine> lines;
};

std::vector<Layer> layersOnCanvas() {
  std::vector<Layer> layers;
  Colour last = white;
  for (const CanvasItem& item : DR_GRAPH.Picture1.items()) {
    if (item.kind != CanvasItem::line) continue;
    if (item.colour != last) {
      layers.push_back({QPen(QColor(item.colour.red, item.colour.green, item.colour.blue), 1), {}});
    }
    last = item.colour;
    layers.back().lines.emplace_back(item.x1, item.y1, item.x2, item.y2);
  }
  return layers;
}

void toolkitAlone(benchmark::State& state) {
  redrawScene();
  const std::vector<Layer> layers = layersOnCanvas();
  QImage image = screen(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    QPainter painter(&image);
    painter.fillRect(QRect(0, 0, DrGraph::canvasWidth, DrGraph::canvasHeight), Qt::black);
    for (const Layer& layer : layers) {
      painter.setPen(layer.pen);
      painter.drawLines(layer.lines.data(), static_cast<int>(layer.lines.size()));
    }
  }
}
BENCHMARK(toolkitAlone)->Arg(1)->Arg(2);

void wholeRedraw(benchmark::State& state) {
  CanvasView view(DR_GRAPH.Picture1);
  QImage image = screen(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    redrawScene();
    drawCursorMarker(markerYellow);
    view.render(&image);
  }
}
BENCHMARK(wholeRedraw)->Arg(1)->Arg(2);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  HeadlessDesktop desk;
  openScene(desk);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  useDesktop(nullptr);
}
