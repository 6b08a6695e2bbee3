// The window of the TP curve: the canvas with its read-out and axis text, and the buttons below.
#include <QDialog>
#include <QMenu>
#include <QVBoxLayout>

#include "frontend/qt/bind_menu.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/canvas_view.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"
#include "graphs/tp_curve.h"

QWidget* makeD2GraphWindow() {
  D2Graph& form = D2_GRAPH;
  QDialog* const window = newDialog();
  auto* const canvas = new CanvasView(form.Picture1);
  canvas->growWithRoom();
  for (const PlacedLabel& placed : form.labelsOnCanvas()) labelOn(canvas, placed);
  auto* const rows = new QVBoxLayout(window);
  rows->addWidget(new CanvasFrame(canvas), 1);
  rows->addLayout(buttonRow({&form.Command1, &form.Command2}));
  window->addAction(menuOf(form.pictureMenu.menu, window)->menuAction());
  bindWindow(window, form);
  return window;
}
