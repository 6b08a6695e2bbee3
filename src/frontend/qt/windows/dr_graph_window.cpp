// The window of the 3D graph: the canvas with what lies on it, the display parameters and the
// buttons below.
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/canvas_view.h"
#include "frontend/qt/line_view.h"
#include "frontend/qt/look.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"
#include "graphs/dr_graph.h"

namespace {

struct Place {
  Label DrGraph::*label;
  int x;
  int y;
};

constexpr Place places[] = {
    {&DrGraph::Label1, 8, 8},     {&DrGraph::Label2, 8, 32},    {&DrGraph::Label3, 8, 48},
    {&DrGraph::Label4, 8, 64},    {&DrGraph::Label8, 8, 88},    {&DrGraph::Label9, 8, 180},
    {&DrGraph::Label10, 8, 204},  {&DrGraph::Label11, 8, 228},  {&DrGraph::Label12, 8, 338},
    {&DrGraph::Label19, 508, 34}, {&DrGraph::Label20, 508, 50},
};
constexpr QRect loadAxis(96, 357, 472, 18);
constexpr QRect busyNotice(453, 6, 134, 18);
constexpr QRect tip(140, 8, 300, 66);
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
  for (const Place& place : places) labelOn(canvas, form.*place.label, place.x, place.y);
  boxOn(canvas, form.Label7, loadAxis);
  paintGround(boxOn(canvas, form.Label17, busyNotice), QColor(32, 32, 32));
  QLabel* const help = boxOn(canvas, form.Label13, tip);
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
  bindWindow(window, form);
  return window;
}
