// The list of earlier states: of the image's own file or of all, the newest first.
#pragma once

#include <string>
#include <vector>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"
#include "core/earlier_states.h"
#include "core/row_list.h"

struct EarlierStatesWindow : Window {
  EarlierStatesWindow();

  Label heading{*this};
  CheckBox thisFileOnly{*this};
  RowList list;
  bool showAllFirst = false;
  Button showDifferences{*this}, loadState{*this}, saveCopy{*this}, forget{*this}, close{*this};

 private:
  struct Row {
    EarlierState state;
    std::string differing;  // bytes, beside the image now
    bool damaged = false;
  };

  void fill();
  void showRows(int chosenRow);
  void showChosen();
  const Row* chosen() const;
  void leaveFor(void (*command)(const EarlierState& state));

  std::vector<Row> rows_;
};

extern EarlierStatesWindow earlierStatesWindow;

// The menu command.
void showEarlierStates();
