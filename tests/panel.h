// A loaded window with a record of each kind, every one of which tells what reached it.
#pragma once

#include <functional>
#include <string>

#include "controls/button.h"
#include "controls/canvas.h"
#include "controls/controls.h"
#include "controls/grid.h"

struct Panel : Window {
  Panel() : Window("panel") {
    defaultButton = &ok;
    cancelButton = &cancel;
    onKey = says("key");
    label.onClick = says("label");
    frame.onClick = says("frame");
    ok.onClick = says("ok");
    cancel.onClick = says("cancel");
    item.onClick = says("item");
    box.onChange = says("text");
    box.onLostFocus = says("left");
    check.onMouseDown = [this] { told += check.checked() ? "on " : "off "; };
    check.onChange = [this] { told += check.checked() ? "changed on " : "changed off "; };
    second.onMouseDown = list.onMouseDown = says("press");
    second.onSelect = says("second");
    list.onChange = [this] { told += "line" + std::to_string(list.index()) + ' '; };
    strip.onClick = [this] { told += "tab" + std::to_string(strip.selected()) + ' '; };
    grid.onDoubleClick = says("double");
    grid.onKey = canvas.onKey = [this](char32_t key) { told += "k" + std::to_string(key) + ' '; };
    grid.onKeyUp = says("up");
    grid.onMouseDown = [this](MouseButton b) { told += b == MouseButton::right ? "right " : "? "; };
    canvas.onKeyDown = [this](int key) { told += "d" + std::to_string(key) + ' '; };
    canvas.onKeyUp = [this](int key) { told += "u" + std::to_string(key) + ' '; };
    load();
  }
  std::function<void()> says(const char* word) {
    return [this, word] { told.append(word) += ' '; };
  }
  std::string told;
  Label label{*this, "<b> & </b>"};
  Frame frame{*this};
  Button ok{*this, "a & b"}, cancel{*this};
  MenuItem item{*this, "item"};
  TextBox box{*this, "12"}, other{*this};
  CheckBox check{*this};
  OptionGroup group;
  Option first{*this, group}, second{*this, group};
  ListBox list{*this, {"1", "2", "3"}};
  TabStrip strip{*this, {{"first", "tip"}, {"second & last", ""}}};
  ProgressBar bar{*this};
  Grid grid{*this, 3, 3, 1, 1, Grid::Look{}};
  Canvas canvas{*this, 40, 30};
};
