// The environment dialog: start folders, step keys and colour rate, the 3D graph's axes, language,
// and the list of recent files.
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "frontend/environment.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/look.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

namespace {

constexpr int folderWidth = 320;
constexpr int numberWidth = 72;

void addFolder(QGridLayout* cells, Label& label, TextBox& box, Button& button) {
  const int row = cells->rowCount();
  QLineEdit* const line = boxFor(box);
  line->setMinimumWidth(byFont(folderWidth));
  cells->addWidget(labelFor(label), row, 0);
  cells->addWidget(line, row, 1);
  cells->addWidget(buttonFor(button), row, 2);
}

QLineEdit* numberFor(TextBox& box) {
  QLineEdit* const line = boxFor(box);
  line->setMinimumWidth(0);
  line->setFixedWidth(byFont(numberWidth));
  return line;
}

void addNumber(QGridLayout* cells, Label& label, TextBox& box) {
  const int row = cells->rowCount();
  cells->addWidget(labelFor(label), row, 0);
  cells->addWidget(numberFor(box), row, 1, Qt::AlignLeft);
}

// The steps stand above the ratios, each with its axis.
QGroupBox* graphGroup() {
  auto* const group = new QGroupBox;
  auto* const rows = new QVBoxLayout(group);
  rows->addWidget(labelFor(form9.Label6));
  auto* const cells = new QGridLayout;
  cells->addWidget(labelFor(form9.Label7), 0, 0);
  cells->addWidget(numberFor(form9.Text6), 0, 1);
  cells->addWidget(labelFor(form9.Label8), 0, 2);
  cells->addWidget(numberFor(form9.Text7), 0, 3);
  cells->addWidget(labelFor(form9.Label9), 1, 0);
  cells->addWidget(numberFor(form9.Text8), 1, 1);
  cells->addWidget(labelFor(form9.Label10), 1, 2);
  cells->addWidget(numberFor(form9.Text9), 1, 3);
  cells->setColumnStretch(cells->columnCount(), 1);
  rows->addLayout(cells);
  return group;
}

QGroupBox* cellGroup() {
  auto* const group = new QGroupBox;
  auto* const cells = new QGridLayout(group);
  addNumber(cells, form9.Label3, form9.Text3);
  addNumber(cells, form9.Label4, form9.Text4);
  addNumber(cells, form9.Label5, form9.Text5);
  return group;
}

QLayout* languageRow() {
  auto* const row = new QHBoxLayout;
  row->addWidget(labelFor(form9.Label11));
  row->addWidget(checkFor(form9.Check1));
  row->addStretch();
  row->addWidget(buttonFor(form9.Command5));
  return row;
}

}  // namespace

QWidget* makeForm9Window() {
  QDialog* const window = newDialog();
  auto* const folders = new QGridLayout;
  addFolder(folders, form9.Label1, form9.Text1, form9.Command3);
  addFolder(folders, form9.Label2, form9.Text2, form9.Command4);
  auto* const groups = new QHBoxLayout;
  groups->addWidget(cellGroup());
  groups->addWidget(graphGroup(), 1);
  auto* const rows = new QVBoxLayout(window);
  rows->addLayout(folders);
  rows->addLayout(groups);
  rows->addLayout(languageRow());
  rows->addLayout(buttonRow({&form9.Command1, &form9.Command2}));
  bindWindow(window, form9);
  return window;
}
