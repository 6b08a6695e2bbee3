// The window of the TP curve: the canvas with its read-out and axis text, and the buttons below.
#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

#include "frontend/qt/bind_window.h"
#include "frontend/qt/canvas_view.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"
#include "graphs/tp_curve.h"

namespace {

constexpr QPoint readOut(24, 24);
constexpr QRect axisText(10, 312, 521, 18);

}  // namespace

QWidget* makeD2GraphWindow() {
  D2Graph& form = D2_GRAPH;
  QDialog* const window = newDialog();
  auto* const canvas = new CanvasView(form.Picture1);
  canvas->growWithRoom();
  labelOn(canvas, form.Label1, readOut.x(), readOut.y());
  boxOn(canvas, form.Label2, axisText);
  auto* const rows = new QVBoxLayout(window);
  rows->addWidget(new CanvasFrame(canvas), 1);
  rows->addLayout(buttonRow({&form.Command1, &form.Command2}));
  bindWindow(window, form);
  return window;
}
