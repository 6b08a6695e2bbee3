// The dialog of odd/even pairs: size and form, and a button with its instruction for each
// direction.
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"
#include "imagefiles/odd_even.h"

namespace {

QGroupBox* frameFor(Frame& record) {
  auto* const frame = new QGroupBox;
  bind(frame, record);
  return frame;
}

QWidget* makeSizes(OddEven& form) {
  auto* const list = new QListWidget;
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  bind(list, form.List1);
  const int lines = list->count() * list->sizeHintForRow(0);
  list->setFixedHeight(lines + 2 * list->frameWidth());
  QGroupBox* const frame = frameFor(form.Frame1);
  auto* const rows = new QVBoxLayout(frame);
  rows->addWidget(list);
  return frame;
}

QWidget* makeForms(OddEven& form) {
  QGroupBox* const frame = frameFor(form.Frame2);
  auto* const rows = new QVBoxLayout(frame);
  for (Option* option : form.formats.members()) {
    auto* const button = new QRadioButton;
    bind(button, *option);
    rows->addWidget(button);
  }
  rows->addStretch();
  return frame;
}

}  // namespace

QWidget* makeOddEvenWindow() {
  OddEven& form = oddeven;
  QDialog* const window = newDialog();
  auto* const cells = new QGridLayout(window);
  cells->setVerticalSpacing(10);
  cells->addWidget(makeSizes(form), 0, 0);
  cells->addWidget(makeForms(form), 0, 1);
  cells->addWidget(buttonFor(form.Command1), 1, 0);
  cells->addWidget(noteFor(form.Label1), 1, 1);
  cells->addWidget(buttonFor(form.Command2), 2, 0);
  cells->addWidget(noteFor(form.Label2), 2, 1);
  cells->addLayout(buttonRow({&form.Close}), 3, 0, 1, 2);
  bindWindow(window, form);
  return window;
}
