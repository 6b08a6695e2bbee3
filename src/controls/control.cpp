#include "controls/control.h"

#include <algorithm>

#include "controls/handler.h"
#include "controls/window.h"

namespace {

void append(std::string& text, const std::string& part) {
  if (part.empty()) return;
  if (!text.empty()) text += ' ';
  text += part;
}

}  // namespace

Control::Control(Window& owner) : window_(&owner) { owner.controls_.push_back(this); }

Control::~Control() { std::erase(window_->controls_, this); }

std::string Control::spokenName() const {
  std::string text;
  for (const Captioned* part : nameParts_) append(text, part->caption());
  append(text, ownName());
  return text;
}

std::string Control::description() const {
  std::string text;
  for (const Captioned* part : readOuts_) {
    if (part->visible()) append(text, part->caption());
  }
  return text.empty() ? toolTip_ : text;
}

void Control::refer(std::vector<const Captioned*>& parts,
                    std::initializer_list<Captioned*> captions) {
  parts.clear();
  for (Captioned* caption : captions) {
    parts.push_back(caption);
    auto& callers = caption->callers_;
    if (std::ranges::find(callers, this) == callers.end()) callers.push_back(this);
  }
}

bool Control::takesInput() const { return enabled_ && window_->takesInput(); }

void Control::setFocus() {
  if (!enabled_) return;
  window_->moveFocus(this);
  tell({Change::focus});
}

void Control::userFocus() {
  if (takesInput()) window_->moveFocus(this);
}

void Control::userLeave() {
  if (window_->focus_ == this) window_->moveFocus(nullptr);
}

void Control::gotFocus() { runHandler(onGotFocus); }

void Captioned::setCaption(std::string text) {
  if (text == caption_) return;
  assign(caption_, std::move(text));
  for (const Control* caller : callers_) caller->tell({Change::values});
}
