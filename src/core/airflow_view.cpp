#include "core/airflow_view.h"

#include <algorithm>
#include <vector>

#include "core/form1.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

constexpr Colour frameColour = rgb(0, 128, 0);
constexpr Colour curveColour = rgb(0, 96, 0);
constexpr Colour tickColour = rgb(255, 255, 128);
constexpr int baseline = 235;
constexpr int right = 546;
constexpr int left = 18;
constexpr int meshWidth = 16;
constexpr double unitsPerPixel = 290;

int pointX(int point) { return point * 8 + left; }

int pointY(double value) { return roundToLong(baseline - value / unitsPerPixel); }

// The heights of the row's first `count` words; cells that the grid doesn't have stay at 0.
std::vector<int> pointHeights(Grid& grid, int count) {
  const GridPause pause(grid, GridPause::Hide::yes);
  std::vector<int> heights(static_cast<std::size_t>(count) + 2);
  trapFailure([&] {
    for (int i = 1; i <= count; ++i) {
      heights[static_cast<std::size_t>(i - 1)] = pointY(parseNumber(grid.text(1, i)));
    }
  });
  return heights;
}

void drawMesh(Canvas& canvas) {
  canvas.drawOutline(2, 2, 563, baseline, frameColour);
  for (int y = baseline; y >= 11; y -= meshWidth) canvas.drawLine(left, y, right, y, curveColour);
  for (int x = left; x <= right; x += meshWidth) canvas.drawLine(x, 2, x, baseline, curveColour);
}

void drawCurve(Canvas& canvas, const std::vector<int>& heights, int segments) {
  int point = 1;
  for (; point <= segments; ++point) {
    const int y = heights[static_cast<std::size_t>(point - 1)];
    const int nextY = heights[static_cast<std::size_t>(point)];
    canvas.drawLine(pointX(point), y, pointX(point + 1), nextY, curveColour);
    canvas.drawLine(pointX(point), y - 1, pointX(point), y + 1, tickColour);
  }
  const int y = heights[static_cast<std::size_t>(point - 1)];
  canvas.drawBar(pointX(point), y - 1, pointX(point), y + 1, tickColour);
}

}  // namespace

void drawAirflowView(Grid& grid, int bytes) {
  // No more points than the grid has words, whatever length the entry claims.
  const int words = std::clamp(bytes / 2, 0, grid.columns() - 1);
  const std::vector<int> heights = pointHeights(grid, words);
  Canvas& canvas = form1().Picture2;
  canvas.clear();
  canvas.setVisible(false);
  drawMesh(canvas);
  drawCurve(canvas, heights, std::max(words - 1, 0));
  canvas.setVisible(true);
  canvas.repaint();
}
