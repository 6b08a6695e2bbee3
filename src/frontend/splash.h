// The first window of a run: a picture with a sound. It gives way to the main window by itself, or
// on any key or click.
#pragma once

#include <functional>

#include "controls/controls.h"
#include "controls/window.h"

struct FrmSplash : Window {
  FrmSplash();

  static constexpr int showingTime = 4500;  // milliseconds
  Label Picture1{*this}, Picture2{*this}, Picture3{*this};
  Frame Frame1{*this};
  Label Label3{*this, "For Windows9x/Me/WindowsNT4.0/W2K/XP"};
  Label Label4{*this, "Every cell of the map, exactly as you mean it."};
  Timer Timer1{*this, showingTime};

  // Runs once, when the main window has come to the front in its place.
  std::function<void()> onGone;
};

extern FrmSplash frmSplash;

// Takes the splash window away and brings the main window to the front.
void closeSplash();
