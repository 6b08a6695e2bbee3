#include "editing/cell_change_dialogs.h"

#include <cmath>
#include <cstddef>
#include <string>

#include "core/dialogs.h"
#include "core/history.h"
#include "core/map_kinds.h"
#include "core/map_places.h"
#include "core/refusals.h"
#include "core/wording.h"
#include "platform/numbers.h"

namespace {

constexpr const char* firstThreshold = "110";

// By Fill.
constexpr Wording fillTitles[] = {{"補間（横）", "Interpolate across"},
                                  {"補間（縦）", "Interpolate down"},
                                  {"補間（縦横）", "Interpolate both ways"}};

const Wording& titleOf(Fill fill) { return fillTitles[static_cast<std::size_t>(fill)]; }

bool realKey(char32_t key) { return digitKey(key) || key == U'.'; }
bool signedKey(char32_t key) { return realKey(key) || key == U'-' || key == U'+'; }

std::string headingOf(const MapKind& kind) {
  const GridBlock block = gridOf(kind).block();
  const std::string size = decimalText(block.rows()) + " x " + decimalText(block.columns());
  return captionedBoth(
      {nameOf(kind) + "： " + size + " セル", nameOf(kind) + ": " + size + " cells"});
}

// Opens a dialog where there are cells for it.
void openFor(CellChangeDialog& dialog) {
  if (mapOfCursor()) return openDialog(dialog);
  showRefusal(nothingSelected);
}

void openInterpolation(Fill fill) {
  const MapKind* const kind = mapOfCursor();
  if (kind && !hasCellsBetween(gridOf(*kind).block(), fill)) {
    return showRefusal({"両端の間にセルがあるように選択してください。",
                        "Please select so that there are cells between the ends."});
  }
  interpolateDialog.fillWay = fill;
  openFor(interpolateDialog);
}

}  // namespace

SetDialog setDialog;
PercentDialog percentDialog;
InterpolateDialog interpolateDialog;

CellChangeDialog::CellChangeDialog(const char* name) : Window(name) {}

void CellChangeDialog::wire(Control& first) {
  wireDialog(*this, {[this] { fill(); }, &ok, [this] { accept(); }, &cancel, &first});
  threshold.keyFilter = digitKey;
  onlyBelow.onChange = [this] { threshold.setEnabled(onlyBelow.checked()); };
}

void CellChangeDialog::fill() {
  kind_ = mapOfCursor();
  heading.setCaption(kind_ ? headingOf(*kind_)
                           : captioned({"セルが選択されていません。", "No cells are selected."}));
  onlyBelow.setCaption(captioned({"次の値より小さいセルだけ", "Only cells below"}));
  onlyBelow.setChecked(false);
  threshold.setOwnName(captioned({"しきい値", "Threshold"}));
  threshold.setText(firstThreshold);
  threshold.setEnabled(false);
  fillOwn();
}

void CellChangeDialog::accept() {
  if (!kind_) return closeDialog(*this);
  ChosenCells cells{*kind_, gridOf(*kind_).block(), std::nullopt};
  TextBox* wrong = nullptr;
  if (onlyBelow.checked()) {
    cells.below = cellNumber(threshold.text());
    if (!parseAnswer(threshold.text())) wrong = &threshold;
  }
  if (!wrong) wrong = change(cells);
  if (!wrong) return closeDialog(*this);
  showRefusal({"数値が正しくありません。", "That is not a number that can be used here."});
  wrong->setFocus();
}

SetDialog::SetDialog() : CellChangeDialog("Set") {
  wire(value);
  value.nameAfter({&valueLabel});
  value.keyFilter = realKey;
}

void SetDialog::fillOwn() {
  setCaption(captioned({"値の設定", "Set"}));
  valueLabel.setCaption(captioned({"値", "Value"}));
  value.setText("");
}

TextBox* SetDialog::change(const ChosenCells& cells) {
  const std::optional<double> number = parseAnswer(value.text());
  if (!number || *number < 0) return &value;
  setCells(cells, *number);
  nameStep({"値の設定", "set"}, value.text());
  return nullptr;
}

PercentDialog::PercentDialog() : CellChangeDialog("Percent") {
  wire(percent);
  percent.nameAfter({&percentLabel});
  percent.keyFilter = signedKey;
}

void PercentDialog::fillOwn() {
  setCaption(captioned({"パーセント増減", "Percent"}));
  percentLabel.setCaption(captioned({"増減 (%)", "Change (%)"}));
  percent.setText("");
  atLeastOne.setCaption(captioned({"必ず 1 段階以上変える", "At least one step"}));
  atLeastOne.setChecked(false);
}

TextBox* PercentDialog::change(const ChosenCells& cells) {
  const std::optional<double> number = parseAnswer(percent.text());
  const double thousandths = std::round(number.value_or(leastPercentage) * wholePercent);
  if (!number || thousandths < leastPercentage || thousandths > mostPercentage) return &percent;
  changeCellsByPercentage(cells, static_cast<Percentage>(thousandths), atLeastOne.checked());
  nameStep({"パーセント増減", "percent"}, percent.text());
  return nullptr;
}

InterpolateDialog::InterpolateDialog() : CellChangeDialog("Interpolate") { wire(byScale); }

void InterpolateDialog::fillOwn() {
  setCaption(captioned(titleOf(fillWay)));
  byScale.setCaption(captioned({"スケールの値に従う", "By the values of the scale"}));
  even.setCaption(captioned({"等間隔", "Evenly"}));
  const bool tell = kind_ && scalesTell(*kind_, gridOf(*kind_).block(), fillWay);
  byScale.setEnabled(tell);
  spacing.select(tell ? &byScale : &even);
  firstFocus = spacing.selected();
}

TextBox* InterpolateDialog::change(const ChosenCells& cells) {
  interpolateCells(cells, fillWay, byScale.selected() ? Spacing::byScale : Spacing::even);
  nameStep(titleOf(fillWay));
  return nullptr;
}

void setSelection() { openFor(setDialog); }

void changeByPercent() { openFor(percentDialog); }

void interpolateAcross() { openInterpolation(Fill::across); }

void interpolateDown() { openInterpolation(Fill::down); }

void interpolateBoth() { openInterpolation(Fill::both); }
