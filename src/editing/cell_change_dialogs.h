// The dialogs of the commands that change all selected cells of a map, an airflow row or a scale:
// set, change by a percentage, fill between ends or corners. Each tells on which cells it works,
// and leaves cells at or above a threshold alone if the user asks for it.
#pragma once

#include <cstdint>
#include <optional>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/window.h"
#include "editing/cell_changes.h"

struct CellChangeDialog : Window {
  Label heading{*this};
  CheckBox onlyBelow{*this};
  TextBox threshold{*this};
  Button ok{*this, "OK"}, cancel{*this, "CANCEL"};

 protected:
  explicit CellChangeDialog(const char* name);
  // To be called at the end of the constructor of what follows from it.
  void wire(Control& first);
  // Fills what one dialog has alone.
  virtual void fillOwn() = 0;
  // Does the work; the entry that is wrong, null for none.
  virtual TextBox* change(const ChosenCells& cells) = 0;
  ~CellChangeDialog() = default;

  // On which the dialog works: where the cursor was when it opened. The main window's focus may go
  // while the dialog has the keys.
  const MapKind* kind_ = nullptr;

 private:
  void fill();
  void accept();
};

struct SetDialog final : CellChangeDialog {
  SetDialog();
  Label valueLabel{*this};
  TextBox value{*this};

 private:
  void fillOwn() override;
  TextBox* change(const ChosenCells& cells) override;
};

struct PercentDialog final : CellChangeDialog {
  PercentDialog();
  Label percentLabel{*this};
  TextBox percent{*this};
  CheckBox atLeastOne{*this};

 private:
  void fillOwn() override;
  TextBox* change(const ChosenCells& cells) override;
};

struct InterpolateDialog final : CellChangeDialog {
  InterpolateDialog();
  OptionGroup spacing;
  Option byScale{*this, spacing}, even{*this, spacing};

  Fill fillWay = Fill::across;

 private:
  void fillOwn() override;
  TextBox* change(const ChosenCells& cells) override;
};

extern SetDialog setDialog;
extern PercentDialog percentDialog;
extern InterpolateDialog interpolateDialog;

// The menu commands.
void setSelection();
void changeByPercent();
void interpolateAcross();
void interpolateDown();
void interpolateBoth();
