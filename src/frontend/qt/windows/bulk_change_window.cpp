// The dialogs of add/reduce and multiply: amount and threshold, each explained by a note.
#include <QDialog>
#include <QGridLayout>
#include <QLabel>

#include "editing/add_multiply.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

namespace {

QWidget* makeBulkChangeWindow(BulkChangeDialog& form) {
  QDialog* const window = newDialog();
  auto* const cells = new QGridLayout;
  cells->setColumnStretch(2, 1);
  addField(cells, form.Label2, form.Text2);
  cells->addWidget(noteFor(form.Label4), cells->rowCount(), 0, 1, 3);
  addField(cells, form.Label1, form.Text1);
  cells->addWidget(noteFor(form.Label3), cells->rowCount(), 0, 1, 3);
  QBoxLayout* const rows = rowsOf(window);
  rows->addLayout(cells);
  rows->addLayout(buttonRow({&form.Command1, &form.Command2}));
  bindWindow(window, form);
  return window;
}

}  // namespace

QWidget* makeForm7Window() { return makeBulkChangeWindow(form7); }

QWidget* makeForm8Window() { return makeBulkChangeWindow(form8); }
