// Pictures of a canvas as text, one item a line, held against stored ones in tests/data.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "platform/canvas.h"

inline std::string frameText(const Canvas& canvas) {
  static constexpr const char* kinds[] = {"line", "outline", "bar"};
  std::ostringstream text;
  for (const CanvasItem& item : canvas.items()) {
    text << kinds[item.kind] << ' ' << +item.colour.red << ',' << +item.colour.green << ','
         << +item.colour.blue << ' ' << item.x1 << ' ' << item.y1 << ' ' << item.x2 << ' '
         << item.y2 << '\n';
  }
  return text.str();
}

// A frame that differs is left in the folder for temporary files, to be looked at.
inline void expectFrame(const Canvas& canvas, const std::string& name) {
  std::ifstream file(std::string(DATA_FOLDER) + "/" + name, std::ios::binary);
  const std::string stored{std::istreambuf_iterator<char>(file), {}};
  const std::string drawn = frameText(canvas);
  if (drawn == stored) return;
  const auto left = std::filesystem::temp_directory_path() / name;
  std::ofstream(left, std::ios::binary) << drawn;
  ADD_FAILURE() << name << " differs from what was drawn; see " << left;
}

inline int countOf(const Canvas& canvas, CanvasItem::Kind kind, Colour colour) {
  int count = 0;
  for (const CanvasItem& item : canvas.items()) count += item.kind == kind && item.colour == colour;
  return count;
}
