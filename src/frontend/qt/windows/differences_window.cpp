// The list of differences, beside the main window.
#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

#include "changes/differences_window.h"
#include "frontend/qt/bind_window.h"
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
  rows->addWidget(listFor(record.list, 660, 280), 1);
  rows->addLayout(
      buttonRow({&record.goThere, &record.takeOver, &record.copyAsText, &record.close}));
  window->setMinimumSize(window->layout()->minimumSize());
  bindWindow(window, record);
  return window;
}
