// The list of differences: a window beside the main window that follows each gesture. One row for
// each map, scale and parameter that differs, then the stretches of bytes outside the address map.
#pragma once

#include <cstdint>
#include <vector>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"
#include "core/difference_list.h"
#include "core/row_list.h"

struct DifferencesWindow : Window {
  DifferencesWindow();

  Label heading{*this};
  RowList list;
  Button goThere{*this}, takeOver{*this}, copyAsText{*this}, close{*this};

  // The list anew, if the window is open.
  void follow();

 private:
  void fill();
  void showRows();
  const Difference* chosen() const;

  std::vector<Difference> rows_;
  std::uint64_t shownChanges_ = 0;
};

extern DifferencesWindow differencesWindow;

// The menu command.
void showDifferences();
