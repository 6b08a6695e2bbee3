// The dialogs that change all selected cells: on which cells they work, what they ask, the
// threshold, and the buttons.
#include <QBoxLayout>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "editing/cell_change_dialogs.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

namespace {

QWidget* makeCellChangeWindow(CellChangeDialog& form, QWidget* own) {
  QDialog* const window = newDialog();
  QBoxLayout* const rows = rowsOf(window);
  rows->addWidget(noteFor(form.heading));
  rows->addWidget(own);
  auto* const below = new QHBoxLayout;
  below->addWidget(checkFor(form.onlyBelow));
  below->addWidget(boxFor(form.threshold));
  below->addStretch();
  rows->addLayout(below);
  rows->addLayout(buttonRow({&form.ok, &form.cancel}));
  bindWindow(window, form);
  return window;
}

QGridLayout* cellsIn(QWidget* own) {
  auto* const cells = new QGridLayout(own);
  cells->setContentsMargins(0, 0, 0, 0);
  cells->setColumnStretch(2, 1);
  return cells;
}

void addOption(QGridLayout* cells, Option& option) {
  auto* const button = new QRadioButton;
  bind(button, option);
  cells->addWidget(button, cells->rowCount(), 0);
}

}  // namespace

QWidget* makeSetWindow() {
  auto* const own = new QWidget;
  addField(cellsIn(own), setDialog.valueLabel, setDialog.value);
  return makeCellChangeWindow(setDialog, own);
}

QWidget* makePercentWindow() {
  auto* const own = new QWidget;
  QGridLayout* const cells = cellsIn(own);
  addField(cells, percentDialog.percentLabel, percentDialog.percent);
  cells->addWidget(checkFor(percentDialog.atLeastOne), cells->rowCount(), 0, 1, 3);
  return makeCellChangeWindow(percentDialog, own);
}

QWidget* makeInterpolateWindow() {
  auto* const own = new QWidget;
  QGridLayout* const cells = cellsIn(own);
  addOption(cells, interpolateDialog.byScale);
  addOption(cells, interpolateDialog.even);
  return makeCellChangeWindow(interpolateDialog, own);
}
