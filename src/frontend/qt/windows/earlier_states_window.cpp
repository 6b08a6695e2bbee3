// The list of earlier states.
#include "imagefiles/earlier_states_window.h"

#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

#include "frontend/qt/bind_window.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/look.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makeEarlierStatesWindow() {
  EarlierStatesWindow& record = earlierStatesWindow;
  QDialog* const window = newDialog();
  auto* const rows = new QVBoxLayout(window);
  rows->addWidget(lineFor(record.heading));
  rows->addWidget(checkFor(record.thisFileOnly));
  auto* const list = new GridView(record.list);
  // Many rows make no window that is larger than the screen.
  list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  list->setZoom(fontZoom());
  constexpr QSize smallestList(760, 300);
  list->setMinimumSize(smallestList * fontZoom() / 100);
  rows->addWidget(list, 1);
  rows->addLayout(buttonRow({&record.showDifferences, &record.loadState, &record.saveCopy,
                             &record.forget, &record.close}));
  window->setMinimumSize(window->layout()->minimumSize());
  bindWindow(window, record);
  return window;
}
