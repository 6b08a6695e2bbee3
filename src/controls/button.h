// The record of a button, which windows press for their keys and close box.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "controls/control.h"

class Button : public Control {
 public:
  explicit Button(Window& owner, std::string caption = {})
      : Control(owner), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }
  void setCaption(std::string text) { assign(caption_, std::move(text)); }

  void userClick();
  std::function<void()> onClick;

 private:
  std::string caption_;
};
