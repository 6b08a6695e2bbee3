// The list of differences, beside the main window.
#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

#include "changes/differences_window.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/look.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

QWidget* makeDifferencesWindow() {
  DifferencesWindow& record = differencesWindow;
  QDialog* const window = newDialog();
  window->setModal(false);
  // The keys of the main window's menu go on working.
  window->setWindowFlag(Qt::Tool);
  auto* const rows = new QVBoxLayout(window);
  rows->addWidget(noteFor(record.heading));
  auto* const list = new GridView(record.list);
  // Many rows make no window that hides the main one.
  list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  list->setZoom(fontZoom());
  constexpr QSize smallestList(660, 280);
  list->setMinimumSize(smallestList * fontZoom() / 100);
  rows->addWidget(list, 1);
  rows->addLayout(
      buttonRow({&record.goThere, &record.takeOver, &record.copyAsText, &record.close}));
  window->setMinimumSize(window->layout()->minimumSize());
  bindWindow(window, record);
  return window;
}
