// The dialog of smoothing: a threshold with its note.
#include <QDialog>
#include <QGridLayout>
#include <QLabel>

#include "editing/smoothing.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makeForm10Window() {
  QDialog* const window = newDialog();
  auto* const cells = new QGridLayout;
  cells->setColumnStretch(2, 1);
  addField(cells, form10.Label1, form10.Text1);
  cells->addWidget(noteFor(form10.Label2), cells->rowCount(), 0, 1, 3);
  QBoxLayout* const rows = rowsOf(window);
  rows->addLayout(cells);
  rows->addLayout(buttonRow({&form10.Command1, &form10.Command2}));
  bindWindow(window, form10);
  return window;
}
