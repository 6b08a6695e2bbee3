// The list of earlier states.
#include "imagefiles/earlier_states_window.h"

#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

#include "frontend/qt/bind_window.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makeEarlierStatesWindow() {
  EarlierStatesWindow& record = earlierStatesWindow;
  QDialog* const window = newDialog();
  auto* const rows = new QVBoxLayout(window);
  rows->addWidget(lineFor(record.heading));
  rows->addWidget(checkFor(record.thisFileOnly));
  rows->addWidget(listFor(record.list, 760, 300), 1);
  rows->addLayout(buttonRow({&record.showDifferences, &record.loadState, &record.saveCopy,
                             &record.forget, &record.close}));
  window->setMinimumSize(window->layout()->minimumSize());
  bindWindow(window, record);
  return window;
}
