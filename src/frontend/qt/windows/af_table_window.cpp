// The air/fuel table: a grid of ratios in a frame.
#include <QDialog>
#include <QGroupBox>
#include <QVBoxLayout>

#include "calc/af_table.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makeForm5Window() {
  QDialog* const window = newDialog();
  auto* const frame = new QGroupBox;
  bind(frame, form5.Frame1);
  (new QVBoxLayout(frame))->addWidget(new GridView(form5.Grid1));
  QBoxLayout* const rows = rowsOf(window);
  rows->addWidget(frame);
  rows->addLayout(buttonRow({&form5.Command1}));
  bindWindow(window, form5);
  return window;
}
