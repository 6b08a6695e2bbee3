#include "controls/controls.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <ranges>

#include "controls/gesture.h"
#include "controls/handler.h"
#include "platform/utf8.h"

void Label::userClick() {
  if (takesInput()) runHandler(onClick);
}

void Frame::userClick() {
  if (takesInput()) runHandler(onClick);
}

void TextBox::changing(const std::string& to) {
  if (watch && to != text_) watch->textChanges(*this);
}

void TextBox::setText(std::string text) {
  changing(text);
  assign(text_, std::move(text));
}

void TextBox::gotFocus() {
  tell({Change::selection});
  Control::gotFocus();
}

std::string TextBox::edited(std::string_view text, By by) const {
  if (!takesInput() || text == text_) return text_;
  const std::u32string before = utf32(text_);
  const std::u32string after = utf32(text);
  const auto [oldPart, newPart] = std::ranges::mismatch(before, after);
  const auto sameEnd = std::mismatch(before.rbegin(), std::reverse_iterator(oldPart),
                                     after.rbegin(), std::reverse_iterator(newPart))
                           .second.base();
  std::u32string entered(newPart, sameEnd);
  const bool enters = !entered.empty();
  if (by == By::keys && keyFilter) std::erase_if(entered, std::not_fn(keyFilter));
  const std::size_t kept = after.size() - static_cast<std::size_t>(sameEnd - newPart);
  if (maxLength_ > 0) {
    const std::size_t limit = std::max(static_cast<std::size_t>(maxLength_), before.size());
    entered.resize(std::min(entered.size(), limit - std::min(limit, kept)));
  }
  if (enters && entered.empty()) return text_;
  return utf8(std::u32string(after.begin(), newPart) + entered +
              std::u32string(sameEnd, after.end()));
}

void TextBox::userEdit(std::string_view text, By by) {
  std::string left = edited(text, by);
  if (left == text_) return;
  const Gesture gesture({this});
  changing(left);
  assign(text_, std::move(left));
  runHandler(onChange);
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
    : Captioned(owner, std::move(caption)), group_(&group) {
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

void TabStrip::setSecondLine(int number, std::string text) {
  assign(tabs_.at(static_cast<std::size_t>(number - 1)).secondLine, std::move(text));
}

void TabStrip::setNote(int number, std::string text) {
  assign(tabs_.at(static_cast<std::size_t>(number - 1)).note, std::move(text));
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

void MenuItem::userOpen() {
  if (takesInput()) runHandler(onOpen);
}

void Timer::restart(int milliseconds) {
  interval_ = milliseconds;
  setEnabled(true);
  tell({Change::values});
}

void Timer::fire() {
  if (enabled() && window().loaded()) runHandler(onTimer);
}
