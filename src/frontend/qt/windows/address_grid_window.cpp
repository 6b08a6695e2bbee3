// The grid of the address-designated editor with its menu. It opens as large as its stretch, as far
// as the screen allows, and can be resized.
#include <QDialog>
#include <QGroupBox>
#include <QMenuBar>
#include <QVBoxLayout>

#include "editing/address_grid.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_menu.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

namespace {

QWidget* makeFrame() {
  auto* const frame = new QGroupBox;
  bind(frame, form6.Frame1);
  auto* const rows = new QVBoxLayout(frame);
  rows->addWidget(new GridView(form6.eGrid), 1);
  rows->addStretch();
  return frame;
}

}  // namespace

QWidget* makeForm6Window() {
  QDialog* const window = newDialog();
  auto* const menu = new QMenuBar;
  bind(menu, form6.menuBar);
  auto* const rows = new QVBoxLayout(window);
  rows->setMenuBar(menu);
  rows->addWidget(makeFrame(), 1);
  rows->addLayout(buttonRow({&form6.Command1, &form6.Command2}));
  bindWindow(window, form6);
  return window;
}
