#include "editing/add_multiply.h"

#include <cmath>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/history.h"
#include "core/map_cells.h"
#include "core/map_kinds.h"
#include "editing/selection.h"
#include "platform/numbers.h"

namespace {

constexpr const char* firstThreshold = "110";
constexpr double largestThreshold = 65536;
constexpr double smallestAmount = -255;

const BulkChange addition{
    "Form7",
    U'-',
    {"データ増減", "Addition and reduction"},
    {"増減値", "Addition and reduction value"},
    {"値より大きい値は変更されません。", "A more large value aren't changed than a value."},
    {"-5 したい場合は -5と入力する。", "I input a numerical value that I want to fluctuate."},
    "増減したい値を入力してください。",
    DEC_DATA,
    {"増減", "addition"}};

const BulkChange multiplication{
    "Form8",
    U'.',
    {"データ乗算", "Multiplication"},
    {"乗算値", "Multiplication value"},
    {"しきい値より大きい値は変更されません。", "A more large value aren't changed than a value."},
    {"15% 増やしたい場合は1.15と入力する。", "I input a numerical value that I want to fluctuate."},
    "",
    multiplyData,
    {"乗算", "multiplication"}};

// `newValue` makes a cell's new number from its old one.
template <class NewValue>
void changeCells(const MapKind& kind, std::int32_t threshold, NewValue newValue) {
  MapCells cells(kind);
  walkSelection(gridOf(kind), [&](int row, int column) {
    const std::int32_t number = cells.number(row, column);
    if (number < threshold) cells.set(row, column, limitedTo(kind, newValue(number)));
  });
  showAfterEffect(kind);
}

template <class NewValue>
void changeOnTab(std::int32_t tab, std::int32_t threshold, NewValue newValue,
                 const Wording& refusalOnGlobal) {
  if (const MapKind* const kind = mapKindOfTab(tab)) {
    changeCells(*kind, threshold, newValue);
  } else if (tab == globalTab) {
    showRefusal(refusalOnGlobal);
  } else {
    showRefusal({"DEC_DATA のパラメーターに例外がある。",
                 "There is an exception for a parameter of DEC_DATA."});
  }
}

}  // namespace

BulkChangeDialog form7{addition};
BulkChangeDialog form8{multiplication};

BulkChangeDialog::BulkChangeDialog(const BulkChange& design)
    : Window(design.name), design_(design) {
  wireDialog(*this, {[this] { fill(); }, &Command1, [this] { accept(); }, &Command2, &Text2});
  Text1.nameAfter({&Label1});
  Text2.nameAfter({&Label2});
  Text1.keyFilter = digitKey;
  Text2.keyFilter = [extra = design.keyBesideDigits](char32_t key) {
    return digitKey(key) || key == extra;
  };
}

void BulkChangeDialog::fill() {
  setCaption(captioned(design_.title));
  Label1.setCaption(captioned({"しきい値", "Marginal value"}));
  Label2.setCaption(captioned(design_.amountCaption));
  Label3.setCaption(captioned(design_.thresholdNote));
  Label4.setCaption(captioned(design_.example));
  Text1.setText(firstThreshold);
  Text2.setText("");
  Text2.setToolTip(design_.amountHint);
}

TextBox* BulkChangeDialog::wrongEntry() {
  if (Text2.text().empty() || parseNumber(Text2.text()) < smallestAmount) return &Text2;
  const double threshold = parseNumber(Text1.text());
  const bool good = !Text1.text().empty() && threshold >= 0 && threshold <= largestThreshold;
  return good ? nullptr : &Text1;
}

void BulkChangeDialog::accept() {
  if (TextBox* const wrong = wrongEntry()) {
    showRefusal({"不正なデータが入力されています。", "Wrong data are inputed."});
    return wrong->setFocus();
  }
  design_.change(editorState.currentTab, cellNumber(Text1.text()),
                 realClamped(parseNumber(Text2.text())));
  nameStep(design_.step, Text2.text());
  closeDialog(*this);
}

void DEC_DATA(std::int32_t tab, std::int32_t threshold, float amount) {
  changeOnTab(tab, threshold,
              [by = std::floor(double{amount})](std::int32_t number) { return by + number; },
              {"この画面(GLOBAL)で、この機能(増減)は使用できません。",
               "With this screen(GLOBAL), this function(addition and reduction) can be useful."});
}

void multiplyData(std::int32_t tab, std::int32_t threshold, float factor) {
  changeOnTab(tab, threshold,
              [by = double{factor}](std::int32_t number) { return std::floor(by * number) + 1; },
              {"この画面(GLOBAL)で、この機能(乗算)は使用できません。",
               "With this screen(GLOBAL), this function(multiplication) can be useful."});
}

void add_dec() { openDialog(form7); }

void kakeru() { openDialog(form8); }
