// Add/reduce and multiply: every selected cell of the current tab's map that lies below a threshold
// changes by an amount or a factor. The two commands are one routine and one kind of dialog.
#pragma once

#include <cstdint>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"
#include "core/wording.h"

// What sets one of the two dialogs apart from the other.
struct BulkChange {
  const char* name;
  char32_t keyBesideDigits;  // in `Text2`
  Wording title;
  Wording amountCaption;
  Wording thresholdNote;
  Wording example;
  const char* amountHint;  // the same in both languages
  void (*change)(std::int32_t tab, std::int32_t threshold, float by);
  Wording step;  // what the history calls it, before the amount
};

// `Text1` is the threshold, `Text2` the amount or factor.
struct BulkChangeDialog : Window {
  explicit BulkChangeDialog(const BulkChange& design);

  Label Label1{*this}, Label2{*this}, Label3{*this}, Label4{*this};
  TextBox Text1{*this}, Text2{*this};
  Button Command1{*this, "OK"}, Command2{*this, "CANCEL"};

 private:
  void fill();
  void accept();
  // The first wrong entry; null when both are good.
  TextBox* wrongEntry();

  const BulkChange& design_;
};

extern BulkChangeDialog form7;
extern BulkChangeDialog form8;

// The menu commands.
void add_dec();
void kakeru();

// Adds `amount`, rounded down to a whole number, to each selected cell below the threshold.
void DEC_DATA(std::int32_t tab, std::int32_t threshold, float amount);
// Each selected cell below the threshold becomes `factor` times its number, rounded down, plus 1.
void multiplyData(std::int32_t tab, std::int32_t threshold, float factor);
