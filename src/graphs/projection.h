// The oblique parallel projection of a map's cells: columns run to the right, rows away from the
// viewer. Plain numbers, pixels with y downward. Whatever leaves 32 bits is clamped to them.
#pragma once

#include <array>
#include <cstdint>

constexpr int graphCells = 40;  // at most so many columns, and so many rows

// A number for each cell, by [column][row], both counted from 1.
using GraphTable = std::array<std::array<std::int32_t, graphCells + 1>, graphCells + 1>;

// How the surface lies on the canvas. The steps are pixels per column and row before their ratio
// divides them; a ratio of 0 counts as 1.
struct Projection {
  std::int32_t stepX = 0;
  std::int32_t stepY = 0;
  float ratioX = 1;
  float ratioY = 1;
  int originX = 0;    // pixels
  int direction = 1;  // +1: far rows lean to the right, -1: to the left
};

struct CanvasPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const CanvasPoint&) const = default;
};

// A cell's place on the ground plane. Columns and rows are counted from 1.
CanvasPoint groundPoint(const Projection& projection, int column, int row);

// The same for all cells of a map at once; the cells of a row share their y.
struct Ground {
  GraphTable x{};
  std::array<std::int32_t, graphCells + 1> y{};  // by row
};
Ground groundOf(const Projection& projection, int columns, int rows);

// The y of a point that stands `height` above the ground.
std::int32_t raised(std::int32_t groundY, std::int32_t height);
