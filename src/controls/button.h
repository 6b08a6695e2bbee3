// The record of a button, which windows press for their keys and close box.
#pragma once

#include <functional>

#include "controls/control.h"

class Button : public Captioned {
 public:
  using Captioned::Captioned;

  void userClick();
  std::function<void()> onClick;
};
