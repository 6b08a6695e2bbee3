// The engine specification: three numbers with their units.
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "calc/engine_specification.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makeForm2Window() {
  QDialog* const window = newDialog();
  auto* const fields = new QGridLayout;
  addField(fields, form2.Label1, form2.Text1, &form2.Label3);
  addField(fields, form2.Label2, form2.Text2, &form2.Label4);
  addField(fields, form2.Label5, form2.Text3);
  auto* const rows = new QVBoxLayout(window);
  rows->addLayout(fields);
  rows->addLayout(buttonRow({&form2.Command2, &form2.Command1}));
  bindWindow(window, form2);
  return window;
}
