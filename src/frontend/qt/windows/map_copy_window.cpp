// The dialogs that copy maps or scales over their counterparts: the direction and what is copied.
#include <QDialog>
#include <QGroupBox>
#include <QVBoxLayout>

#include "editing/map_copy.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

namespace {

QWidget* makeFrame(MapCopyDialog& form) {
  auto* const frame = new QGroupBox;
  bind(frame, form.Frame1);
  auto* const rows = new QVBoxLayout(frame);
  rows->addWidget(optionsFor({{form.Option1, form.Label1}, {form.Option2, form.Label2}}));
  rows->addSpacing(6);
  rows->addWidget(checkFor(form.Check1));
  rows->addWidget(checkFor(form.Check2));
  return frame;
}

QWidget* makeMapCopyWindow(MapCopyDialog& form) {
  QDialog* const window = newDialog();
  QBoxLayout* const rows = rowsOf(window);
  rows->addWidget(makeFrame(form));
  rows->addLayout(buttonRow({&form.Command1, &form.Command2}));
  bindWindow(window, form);
  return window;
}

}  // namespace

QWidget* makeForm3Window() { return makeMapCopyWindow(form3); }

QWidget* makeForm4Window() { return makeMapCopyWindow(form4); }
