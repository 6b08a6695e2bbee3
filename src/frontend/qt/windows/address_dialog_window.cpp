// The start dialog of the address-designated editor: start, bytes per row, rows.
#include <QDialog>
#include <QGridLayout>

#include "editing/address_dialog.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makeForm13Window() {
  QDialog* const window = newDialog();
  auto* const cells = new QGridLayout;
  cells->setColumnStretch(0, 1);
  addField(cells, form13.Label1, form13.Text1);
  addField(cells, form13.Label2, form13.Text2);
  addField(cells, form13.Label3, form13.Text3);
  QBoxLayout* const rows = rowsOf(window);
  rows->addLayout(cells);
  rows->addLayout(buttonRow({&form13.Command1, &form13.Command2}));
  bindWindow(window, form13);
  return window;
}
