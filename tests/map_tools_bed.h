// The bed of the map tools' tests: a car with a map on every tab, grids as plain matrices of
// numbers, and random maps and selections with a fixed seed.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <random>
#include <sstream>

#include "core/map_kinds.h"
#include "support.h"

using Matrix = std::vector<std::vector<int>>;

// A cell by its place in the grid: data cells count from 1.
inline int& cellOf(Matrix& cells, int row, int column) {
  return cells.at(static_cast<std::size_t>(row - 1)).at(static_cast<std::size_t>(column - 1));
}

class LoadedCarTest : public ProgramTest {
 protected:
  static constexpr int columns = 8;
  static constexpr int rows = 6;
  static constexpr int doubledTab = 7;

  // 8 x 6 maps from &H100 on, 64 bytes apart; 16 airflow words; the eight additional maps.
  LoadedCarTest() {
    std::string map =
        "TYPE_UNIT,CAR\nVQ_MAP,&H200,16,1,32,0,c\nK_DATA,&H20,1,1,2,0,c\n"
        "TP_SCALE_FUEL,&H240,8,1,8,0,c\nTP_SCALE_FIRE,&H248,8,1,8,0,c\n"
        "RPM_SCALE_FUEL,&H250,6,1,6,50,c\nRPM_SCALE_FIRE,&H258,6,1,6,100,c\n";
    for (int tab = 1; tab < globalTab; ++tab) {
      if (tab == airflowTab) continue;
      const int address = 0x100 + 64 * (tab < airflowTab ? tab - 1 : tab);
      map += mapBlock(mapKindOfTab(tab)->keyword, std::to_string(address), columns, rows,
                      columns * rows, tab == doubledTab ? "2" : "1");
    }
    startWithMap(map);
    loadImage(patternImage(0x1000));
  }

  static Grid& tabGrid(int tab) { return gridOf(*mapKindOfTab(tab)); }

  static Matrix numbers(const Grid& grid) {
    Matrix cells(static_cast<std::size_t>(grid.rows() - 1));
    for (int r = 1; r < grid.rows(); ++r) {
      for (int c = 1; c < grid.columns(); ++c) {
        cells[static_cast<std::size_t>(r - 1)].push_back(std::atoi(grid.text(r, c).c_str()));
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

  // The selected cells' texts: "1 2|3 4".
  static std::string selected(const Grid& grid) {
    std::string texts = grid.clip();
    std::replace(texts.begin(), texts.end(), '\t', ' ');
    std::replace(texts.begin(), texts.end(), '\r', '|');
    return texts;
  }

  // The parts of "a,,b".
  static std::vector<std::string> fields(const std::string& text) {
    std::istringstream stream(text + ",");
    std::vector<std::string> parts;
    for (std::string part; std::getline(stream, part, ',');) parts.push_back(part);
    return parts;
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
  // "1 2|3" as the cells of a whole map, zeros behind.
  static Matrix matrix(const std::string& text, int height = rows) {
    Matrix cells(static_cast<std::size_t>(height), std::vector<int>(columns));
    std::istringstream lines(text);
    std::string line;
    for (int r = 0; std::getline(lines, line, '|'); ++r) {
      std::istringstream numbers(line);
      for (int c = 0, cell = 0; numbers >> cell; ++c) cellOf(cells, r + 1, c + 1) = cell;
    }
    return cells;
  }

  std::mt19937 engine{20};
};
