// The dialog of map shift: the direction, and whether the load scale moves along.
#include <QDialog>
#include <QVBoxLayout>

#include "editing/map_shift.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makeForm11Window() {
  QDialog* const window = newDialog();
  QBoxLayout* const rows = rowsOf(window);
  rows->addWidget(optionsFor({{form11.Option1, form11.Label1}, {form11.Option2, form11.Label2}}));
  rows->addSpacing(6);
  rows->addWidget(checkFor(form11.Check1));
  rows->addLayout(buttonRow({&form11.Command1, &form11.Command2}));
  bindWindow(window, form11);
  return window;
}
