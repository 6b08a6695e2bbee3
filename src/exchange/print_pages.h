// What stands on paper: each map as a page of its own, with title, scales and colours.
#pragma once

#include <string>
#include <vector>

#include "controls/picture.h"
#include "controls/print_job.h"
#include "exchange/map_table.h"

// What stands on every page beside its table.
struct PageTexts {
  std::string car;
  std::string image;
  std::string date;
};

// One page for each table. One that is too wide stands in bands below one another, one that is too
// large is made smaller; where nobody could read it then, it goes on over further pages. Each band
// and each page has its scales.
std::vector<Picture> pagesOf(const std::vector<MapTable>& tables, const PageTexts& texts,
                             const PaperArea& area);
// Whether the tables become larger on sheets that lie on their long side.
bool wantLandscape(const std::vector<MapTable>& tables);
