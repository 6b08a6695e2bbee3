// The dialog before the preview: which maps are printed.
#pragma once

#include <array>
#include <functional>
#include <memory>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"
#include "core/map_kinds.h"

struct PrintDialog : Window {
  PrintDialog();

  Label heading{*this};
  Button thisMap{*this}, allMaps{*this}, noMap{*this};
  // By map; those that the model lacks are hidden.
  std::array<std::unique_ptr<CheckBox>, mapCount> maps = boxesFor(*this);
  Button preview{*this}, cancel{*this};

 private:
  static std::array<std::unique_ptr<CheckBox>, mapCount> boxesFor(Window& window);
  void fill();
  void accept();
  void tick(const std::function<bool(const MapKind& kind)>& wanted);
  bool isCurrent(const MapKind& kind) const { return &kind == current_; }

  // Where the cursor was when the dialog opened.
  const MapKind* current_ = nullptr;
};

extern PrintDialog printDialog;

// The menu command.
void printMaps();
