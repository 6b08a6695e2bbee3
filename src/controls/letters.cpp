#include "controls/letters.h"

#include <algorithm>
#include <cstddef>
#include <set>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"

namespace {

char capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool isLetter(char c) { return capital(c) >= 'A' && capital(c) <= 'Z'; }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// A letter inside a character of several bytes is none.
bool startsWord(std::string_view caption, std::size_t at) {
  return at == 0 || caption[at - 1] == ' ' || caption[at - 1] == '(';
}

// The caption by which a field is reached: of the labels that it is named after the first.
Captioned* headOf(const Window& window, const Control& field) {
  if (field.namedAfter().empty()) return nullptr;
  const auto found =
      std::find(window.controls().begin(), window.controls().end(), field.namedAfter().front());
  return found == window.controls().end() ? nullptr : dynamic_cast<Label*>(*found);
}

Captioned* letteredOf(const Window& window, Control& control) {
  if (dynamic_cast<TextBox*>(&control) || dynamic_cast<ListBox*>(&control)) {
    return headOf(window, control);
  }
  if (auto* const option = dynamic_cast<Option*>(&control)) {
    const bool sign = std::none_of(option->caption().begin(), option->caption().end(), isLetter);
    return sign ? headOf(window, *option) : option;
  }
  if (auto* const check = dynamic_cast<CheckBox*>(&control)) return check;
  auto* const button = dynamic_cast<Button*>(&control);
  const bool byKey = button == window.defaultButton || button == window.cancelButton;
  return byKey ? nullptr : button;
}

}  // namespace

char freeLetter(std::string_view caption, std::string& taken) {
  const auto firstFree = [&](auto counts) -> char {
    for (std::size_t i = 0; i < caption.size(); ++i) {
      const char letter = capital(caption[i]);
      if (!counts(i) || taken.find(letter) != std::string::npos) continue;
      taken += letter;
      return letter;
    }
    return 0;
  };
  if (std::ranges::none_of(caption, isLetter)) {
    return firstFree([&](std::size_t i) { return isDigit(caption[i]); });
  }
  const char atStart =
      firstFree([&](std::size_t i) { return isLetter(caption[i]) && startsWord(caption, i); });
  return atStart ? atStart : firstFree([&](std::size_t i) { return isLetter(caption[i]); });
}

std::size_t placeOfLetter(std::string_view caption, char letter) {
  std::size_t place = std::string_view::npos;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if ((caption[i] & 0x80) != 0) return place;
    if (!isLetter(letter) && !isDigit(letter)) return place;
    if (capital(caption[i]) != letter) continue;
    if (startsWord(caption, i)) return i;
    if (place == std::string_view::npos) place = i;
  }
  return place;
}

void giveLetters(Window& window) {
  std::string taken;
  std::set<const Captioned*> done;  // options may share a caption
  for (Control* control : window.controls()) {
    Captioned* const lettered = letteredOf(window, *control);
    if (!lettered || !done.insert(lettered).second) continue;
    lettered->setLetter(freeLetter(lettered->caption(), taken));
  }
}
