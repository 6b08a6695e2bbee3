#include "controls/controls.h"

#include <algorithm>

#include "controls/handler.h"
#include "platform/utf8.h"

void Label::userClick() {
  if (takesInput()) runHandler(onClick);
}

void Frame::userClick() {
  if (takesInput()) runHandler(onClick);
}

void TextBox::setText(std::string text) {
  assign(text_, std::move(text));
  selectionStart_ = 0;
  selectionLength_ = 0;
}

void TextBox::gotFocus() {
  selectionStart_ = 0;
  selectionLength_ = static_cast<int>(utf32(text_).size());
  tell({Change::selection});
  Control::gotFocus();
}

void TextBox::replaceSelection(std::u32string_view with) {
  std::u32string characters = utf32(text_);
  const auto start = std::min(static_cast<std::size_t>(selectionStart_), characters.size());
  characters.erase(start, static_cast<std::size_t>(selectionLength_));
  if (maxLength_ > 0) {
    const auto limit = static_cast<std::size_t>(maxLength_);
    with = with.substr(0, limit - std::min(limit, characters.size()));
  }
  characters.insert(start, with);
  selectionStart_ = static_cast<int>(start + with.size());
  selectionLength_ = 0;
  assign(text_, utf8(characters));
  runHandler(onChange);
}

void TextBox::userType(std::string_view keys) {
  for (const char32_t key : utf32(keys)) {
    if (!takesInput()) return;
    if (key == U'\b') {
      if (selectionLength_ == 0 && selectionStart_ > 0) {
        --selectionStart_;
        selectionLength_ = 1;
      }
      if (selectionLength_ > 0) replaceSelection({});
    } else if (acceptsKey(key)) {
      replaceSelection(std::u32string_view(&key, 1));
    }
  }
}

void TextBox::userPaste(std::string_view text) {
  if (takesInput()) replaceSelection(utf32(text));
}

void TextBox::userEdit(std::string text) {
  if (!takesInput() || text == text_) return;
  text_ = std::move(text);
  runHandler(onChange);
}

void TextBox::userSelect(int start, int length) {
  selectionStart_ = std::max(start, 0);
  selectionLength_ = std::max(length, 0);
}

bool digitKey(char32_t key) { return key >= U'0' && key <= U'9'; }

void CheckBox::userMouseDown() {
  if (takesInput()) runHandler(onMouseDown);
}

void CheckBox::userToggle() {
  if (!takesInput()) return tell({Change::values});
  setChecked(!checked_);
  runHandler(onChange);
}

Option* OptionGroup::selected() const {
  const auto found = std::find_if(members_.begin(), members_.end(),
                                  [](const Option* option) { return option->selected(); });
  return found == members_.end() ? nullptr : *found;
}

void OptionGroup::select(const Option* chosen) {
  for (Option* member : members_) {
    const bool on = member == chosen;
    if (member->selected_ == on) continue;
    member->selected_ = on;
    member->tell({Change::values});
  }
}

Option::Option(Window& owner, OptionGroup& group, std::string caption)
    : Control(owner), group_(&group), caption_(std::move(caption)) {
  group.members_.push_back(this);
}

void Option::userMouseDown() {
  if (takesInput()) runHandler(onMouseDown);
}

void Option::userSelect() {
  if (!takesInput() || selected_) return;
  group_->select(this);
  runHandler(onSelect);
}

std::string ListBox::text() const {
  if (index_ < 0 || index_ >= static_cast<int>(items_.size())) return {};
  return items_[static_cast<std::size_t>(index_)];
}

void ListBox::selectText(std::string_view text) {
  const auto found = std::find(items_.begin(), items_.end(), text);
  setIndex(found == items_.end() ? -1 : static_cast<int>(found - items_.begin()));
}

void ListBox::userMouseDown() {
  if (takesInput()) runHandler(onMouseDown);
}

void ListBox::userSelect(int index) {
  if (!takesInput() || index == index_ || index < 0) return;
  if (index >= static_cast<int>(items_.size())) return;
  setIndex(index);
  runHandler(onChange);
}

void TabStrip::setCaption(int number, std::string text) {
  assign(tabs_.at(static_cast<std::size_t>(number - 1)).caption, std::move(text));
}

void TabStrip::setTabToolTip(int number, std::string text) {
  assign(tabs_.at(static_cast<std::size_t>(number - 1)).toolTip, std::move(text));
}

void TabStrip::userSelect(int number) {
  if (!takesInput() || number < 1 || number > count()) return tell({Change::values});
  assign(selected_, number);
  runHandler(onClick);
}

MenuItem& MenuItem::add(std::unique_ptr<MenuItem> child) {
  children_.push_back(std::move(child));
  tell({Change::shape});
  return *children_.back();
}

MenuItem* MenuItem::find(std::string_view name) {
  if (name_ == name) return this;
  for (const auto& child : children_) {
    if (MenuItem* found = child->find(name)) return found;
  }
  return nullptr;
}

void MenuItem::userPick() {
  if (takesInput() && visible()) runHandler(onClick);
}

void Timer::restart(int milliseconds) {
  interval_ = milliseconds;
  setEnabled(true);
  tell({Change::values});
}

void Timer::fire() {
  if (enabled() && window().loaded()) runHandler(onTimer);
}
