// What an image file of any form holds, before it is loaded.
#include "imagefiles/any_form.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makeAnyFormWindow() {
  AnyFormWindow& record = anyFormWindow;
  QDialog* const window = newDialog();
  auto* const rows = new QVBoxLayout(window);
  rows->addWidget(lineFor(record.heading));
  rows->addWidget(listFor(record.list, 680, 220), 1);
  auto* const field = new QHBoxLayout;
  field->addWidget(labelFor(record.baseLabel));
  field->addWidget(boxFor(record.base));
  field->addStretch();
  rows->addLayout(field);
  rows->addWidget(noteFor(record.verdict));
  rows->addLayout(buttonRow({&record.load, &record.cancel}));
  window->setMinimumSize(window->layout()->minimumSize());
  bindWindow(window, record);
  return window;
}
