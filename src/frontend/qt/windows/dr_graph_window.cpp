// The window of the 3D graph: the canvas with what lies on it, the display parameters and the
// buttons below.
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_menu.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/canvas_view.h"
#include "frontend/qt/line_view.h"
#include "frontend/qt/look.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"
#include "graphs/dr_graph.h"

namespace {

constexpr int listWidth = 44;

void paintGround(QLabel* label, const QColor& colour) {
  QPalette palette = label->palette();
  palette.setColor(QPalette::Window, colour);
  label->setPalette(palette);
  label->setAutoFillBackground(true);
}

CanvasView* makeCanvas(DrGraph& form) {
  auto* const canvas = new CanvasView(form.Picture1);
  canvas->growWithRoom();
  for (Line* line : {&form.Line1, &form.Line2, &form.Line3, &form.Line4}) {
    new LineView(*line, canvas);
  }
  for (const PlacedLabel& placed : form.labelsOnCanvas()) labelOn(canvas, placed);
  const PlacedLabel busyNotice{&form.Label17, 453, 6, 134, 18}, tip{&form.Label13, 140, 8, 300, 66};
  paintGround(labelOn(canvas, busyNotice), QColor(32, 32, 32));
  QLabel* const help = labelOn(canvas, tip);
  help->setWordWrap(true);
  paintGround(help, QColor(32, 32, 32));
  return canvas;
}

QRadioButton* handFor(Option& record) {
  auto* const option = new QRadioButton;
  QFont font = option->font();
  font.setPixelSize(22);
  option->setFont(font);
  bind(option, record);
  return option;
}

// A column of the frame: a heading and what belongs to it.
QVBoxLayout* addColumn(QHBoxLayout* columns, Label& heading) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(4);
  column->addWidget(labelFor(heading));
  columns->addLayout(column);
  return column;
}

void addMask(QHBoxLayout* columns, DrGraph& form) {
  QVBoxLayout* const column = addColumn(columns, form.Label5);
  column->addWidget(checkFor(form.Check1));
  column->addWidget(checkFor(form.Check2));
  column->addStretch();
}

void addThreshold(QHBoxLayout* columns, DrGraph& form) {
  QVBoxLayout* const column = addColumn(columns, form.Label6);
  column->addWidget(boxFor(form.Text2));
  column->addStretch();
}

void addMagnification(QHBoxLayout* columns, DrGraph& form) {
  auto* const list = new QListWidget;
  bind(list, form.List1);
  list->setFixedSize(byFont(listWidth),
                     list->sizeHintForRow(0) * list->count() + 2 * list->frameWidth());
  auto* const row = new QHBoxLayout;
  row->setSpacing(4);
  row->addWidget(list);
  row->addWidget(labelFor(form.Label15), 0, Qt::AlignTop);
  row->addStretch();
  QVBoxLayout* const column = addColumn(columns, form.Label14);
  column->addLayout(row);
  column->addStretch();
}

void addDirection(QHBoxLayout* columns, DrGraph& form) {
  auto* const pair = new QWidget;
  auto* const hands = new QHBoxLayout(pair);
  hands->setContentsMargins(0, 0, 0, 0);
  hands->addWidget(handFor(form.Option1));
  hands->addWidget(handFor(form.Option2));
  hands->addStretch();
  QVBoxLayout* const column = addColumn(columns, form.Label16);
  column->addWidget(pair);
  column->addStretch();
}

void addComparison(QHBoxLayout* columns, DrGraph& form) {
  QVBoxLayout* const column = addColumn(columns, form.Label18);
  column->addWidget(checkFor(form.Check3));
  column->addStretch();
}

QGroupBox* makeParameters(DrGraph& form) {
  auto* const frame = new QGroupBox;
  bind(frame, form.Frame1);
  auto* const columns = new QHBoxLayout(frame);
  columns->setContentsMargins(10, 6, 10, 8);
  columns->setSpacing(14);
  addMask(columns, form);
  addThreshold(columns, form);
  addMagnification(columns, form);
  addDirection(columns, form);
  addComparison(columns, form);
  return frame;
}

QLayout* makeButtons(DrGraph& form) {
  auto* const row = new QHBoxLayout;
  row->addWidget(buttonFor(form.Command3));
  row->addStretch();
  row->addWidget(buttonFor(form.Command2));
  row->addWidget(buttonFor(form.Command1));
  return row;
}

}  // namespace

QWidget* makeDrGraphWindow() {
  DrGraph& form = DR_GRAPH;
  QDialog* const window = newDialog();
  auto* const rows = new QVBoxLayout(window);
  rows->setContentsMargins(10, 10, 10, 10);
  rows->addWidget(new CanvasFrame(makeCanvas(form)), 1);
  rows->addWidget(makeParameters(form));
  rows->addLayout(makeButtons(form));
  bind(new QTimer(window), form.Timer1);
  window->addAction(menuOf(form.pictureMenu.menu, window)->menuAction());
  bindWindow(window, form);
  return window;
}
