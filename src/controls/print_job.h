// A document that can be printed, as plain data.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/picture.h"

// What of a sheet can be printed on, in points of a 72nd of an inch.
struct PaperArea {
  int width = 0;
  int height = 0;
};

struct PrintJob {
  std::string title;
  bool landscape = false;  // how the sheets lie at first
  // The pages for that paper, each in the paper's shape and filling it.
  std::function<std::vector<Picture>(const PaperArea&)> pages;
  // Runs where the user wants a PDF file, whose contents `pdf` makes.
  std::function<void(const std::function<std::string()>& pdf)> save;
};
