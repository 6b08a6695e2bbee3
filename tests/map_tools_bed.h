// The bed of the map tools' tests: a car with a map on every tab, grids as plain matrices of
// numbers, and random maps, selections and settings with fixed seeds.
#pragma once

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support.h"

using Matrix = std::vector<std::vector<int>>;

// A cell by its place in the grid: data cells count from 1.
inline int& cellOf(Matrix& cells, int row, int column) {
  return cells.at(static_cast<std::size_t>(row - 1)).at(static_cast<std::size_t>(column - 1));
}

class MapToolsTest : public ProgramTest {
 protected:
  static constexpr int columns = 8;
  static constexpr int rows = 6;
  static constexpr int airflowTab = 5;
  static constexpr int globalTab = 14;

  ~MapToolsTest() override {
    for (Window* window : std::vector<Window*>(desk.shownWindows)) {
      if (window != &form1()) window->unload();
    }
  }

  // 8 x 6 maps from &H100 on, 64 bytes apart; 16 airflow words; the eight additional maps.
  void loadCar(std::size_t imageBytes = 0x1000) {
    std::string map = "TYPE_UNIT\r\nCAR\r\n" + mapBlock("VQ_MAP", "&H200", 16, 1, 32) +
                      mapBlock("TP_SCALE_FUEL", "&H240", columns, 1, columns) +
                      mapBlock("TP_SCALE_FIRE", "&H248", columns, 1, columns) +
                      mapBlock("RPM_SCALE_FUEL", "&H250", rows, 1, rows, "50") +
                      mapBlock("RPM_SCALE_FIRE", "&H258", rows, 1, rows, "100") +
                      mapBlock("K_DATA", "&H20", 1, 1, 2);
    int address = 0x100;
    for (const char* keyword : {"HIGH_FUEL", "HIGH_FIRE", "REG_FUEL", "REG_FIRE"}) {
      map += smallBlock(keyword, address);
      address += 64;
    }
    address = 0x280;
    for (int i = 1; i <= 8; ++i, address += 64) {
      map += smallBlock("ADD_MAP" + std::to_string(i), address, i == 2 ? "2" : "1");
    }
    startWithMap(map);
    loadImage(patternImage(imageBytes));
  }

  static std::string smallBlock(const std::string& keyword, int address,
                                const std::string& scale = "0") {
    return mapBlock(keyword, std::to_string(address), columns, rows, columns * rows, scale,
                    "about " + keyword);
  }

  static Grid& tabGrid(int tab) { return gridOf(*mapKindOfTab(tab)); }

  // An empty cell counts as 0.
  static Matrix numbers(const Grid& grid) {
    Matrix cells;
    for (int r = 1; r < grid.rows(); ++r) {
      cells.emplace_back();
      for (int c = 1; c < grid.columns(); ++c) {
        cells.back().push_back(grid.text(r, c).empty() ? 0 : std::stoi(grid.text(r, c)));
      }
    }
    return cells;
  }
  static void fill(Grid& grid, const Matrix& cells) {
    for (std::size_t r = 0; r < cells.size(); ++r) {
      for (std::size_t c = 0; c < cells[r].size(); ++c) {
        grid.setText(static_cast<int>(r) + 1, static_cast<int>(c) + 1, std::to_string(cells[r][c]));
      }
    }
  }

  int random(int low, int high) { return std::uniform_int_distribution(low, high)(engine); }
  // Random numbers into all data cells.
  Matrix scramble(Grid& grid, int high) {
    Matrix cells = numbers(grid);
    for (auto& row : cells) {
      for (int& cell : row) cell = random(0, high);
    }
    fill(grid, cells);
    return cells;
  }
  // A drag between two random cells, in any of the four directions.
  GridBlock dragAtRandom(Grid& grid) {
    drag(grid, random(1, grid.rows() - 1), random(1, grid.columns() - 1),
         random(1, grid.rows() - 1), random(1, grid.columns() - 1));
    return grid.block();
  }

  std::mt19937 engine{20};
};

inline GridSelection ordered(const GridBlock& block) {
  return {block.top, block.left, block.bottom, block.right};
}
inline void PrintTo(const GridSelection& s, std::ostream* out) {
  *out << s.row << "," << s.column << " - " << s.rowSel << "," << s.columnSel;
}
