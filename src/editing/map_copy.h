// Copying maps over their counterparts through the image: fuel and ignition between the high-octane
// and the regular set, TP and RPM scales between the fuel and the ignition side.
#pragma once

#include <array>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"
#include "core/wording.h"
#include "rom/map_entries.h"

// A map and its counterpart, in the order of the first direction.
struct MapPair {
  MapId first;
  MapId second;
};

// What sets one of the two dialogs apart from the other.
struct MapCopy {
  const char* name;
  std::array<MapId, 4> writtenBack;  // before the copy, in this order
  std::array<MapPair, 2> pairs;      // of `Check1` and `Check2`
  Wording title;
  Wording frame;
  std::array<Wording, 2> directions;
  std::array<Wording, 2> checks;
  std::array<Wording, 2> hints;
  bool needsBothMaps;  // a pair with an absent map can't be ticked
};

// `Option1` and `Option2` are the directions, `Check1` and `Check2` the pairs to copy.
struct MapCopyDialog : Window {
  explicit MapCopyDialog(const MapCopy& design);

  Frame Frame1{*this};
  OptionGroup directions;
  Option Option1{*this, directions}, Option2{*this, directions};
  Label Label1{*this}, Label2{*this};
  CheckBox Check1{*this}, Check2{*this};
  Button Command1{*this, "OK"}, Command2{*this, "CANCEL"};

 private:
  void fill();
  void fillCheck(CheckBox& check, std::size_t pair);
  void accept();
  void copyPairs();

  const MapCopy& design_;
};

extern MapCopyDialog form3;
extern MapCopyDialog form4;

// Copies a map over its counterpart, as the dialog with this pair alone ticked. False where the two
// are no pair that can be copied.
bool copyOverCounterpart(MapId source, MapId target);

// The menu commands.
void F_F();
void T_R();
