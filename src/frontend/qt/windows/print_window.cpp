// The dialog before the preview: the maps, and the buttons that choose several at once.
#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>

#include "exchange/print_dialog.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makePrintWindow() {
  PrintDialog& form = printDialog;
  QDialog* const window = newDialog();
  QBoxLayout* const rows = rowsOf(window);
  rows->addWidget(labelFor(form.heading));
  rows->addLayout(buttonRow({&form.thisMap, &form.allMaps, &form.noMap}));
  auto* const cells = new QGridLayout;
  constexpr int columns = 3;
  int place = 0;
  for (const auto& box : form.maps) {
    cells->addWidget(checkFor(*box), place / columns, place % columns);
    ++place;
  }
  rows->addLayout(cells);
  rows->addLayout(buttonRow({&form.preview, &form.cancel}));
  bindWindow(window, form);
  return window;
}
