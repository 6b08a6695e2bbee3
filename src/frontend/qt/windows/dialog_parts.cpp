#include "frontend/qt/windows/dialog_parts.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QToolTip>

#include "frontend/qt/bind_controls.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/look.h"
#include "frontend/qt/text.h"

namespace {

constexpr int boxWidth = 96;
constexpr int buttonWidth = 88;
constexpr int noteWidth = 300;
constexpr int titleWidth = 320;

// The active window may be a dialog that is just closing.
QWidget* mainWindow() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (qobject_cast<QMainWindow*>(window)) return window;
  }
  return nullptr;
}

// One line that is cut where its room ends; its tool tip has the whole of it then.
class LineLabel : public QLabel {
 public:
  explicit LineLabel(const Label& record) : record_(record) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                          isEnabled(), shownLine(), foregroundRole());
  }
  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip || shownLine() == text()) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), shownTip(record_.caption()),
                       this);
    return true;
  }

 private:
  QString shownLine() const {
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
  }

  const Label& record_;
};

}  // namespace

QDialog* newDialog() {
  auto* const dialog = new QDialog(mainWindow());
  dialog->setModal(true);
  return dialog;
}

QBoxLayout* rowsOf(QDialog* dialog) {
  auto* const rows = new QVBoxLayout(dialog);
  rows->setSizeConstraint(QLayout::SetFixedSize);
  rows->addStrut(titleWidth);
  return rows;
}

QLabel* labelFor(Label& record) {
  auto* const label = new QLabel;
  bind(label, record);
  return label;
}

QLabel* noteFor(Label& record) {
  QLabel* const label = labelFor(record);
  label->setWordWrap(true);
  label->setMinimumWidth(byFont(noteWidth));
  return label;
}

QLabel* lineFor(Label& record) {
  auto* const label = new LineLabel(record);
  bind(label, record);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  return label;
}

QLineEdit* boxFor(TextBox& record) {
  auto* const box = new QLineEdit;
  box->setFixedWidth(byFont(boxWidth));
  bind(box, record);
  return box;
}

QWidget* checkFor(CheckBox& record) {
  auto* const check = new QCheckBox;
  bind(check, record);
  return check;
}

QPushButton* buttonFor(Button& record) {
  auto* const button = new QPushButton;
  button->setMinimumWidth(byFont(buttonWidth));
  bind(button, record);
  return button;
}

QWidget* listFor(Grid& record, int width, int height) {
  auto* const list = new GridView(record);
  list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  list->setZoom(fontZoom());
  list->setMinimumSize(QSize(width, height) * fontZoom() / 100);
  return list;
}

void addField(QGridLayout* cells, Label& label, TextBox& box, Label* unit) {
  const int line = cells->rowCount();
  cells->addWidget(labelFor(label), line, 0);
  cells->addWidget(boxFor(box), line, 1);
  if (unit) cells->addWidget(labelFor(*unit), line, 2);
}

QWidget* optionsFor(std::initializer_list<LabelledOption> options) {
  auto* const group = new QWidget;
  auto* const cells = new QGridLayout(group);
  cells->setContentsMargins(0, 0, 0, 0);
  cells->setColumnStretch(1, 1);
  int line = 0;
  for (const auto& [option, label] : options) {
    auto* const button = new QRadioButton;
    bind(button, option);
    cells->addWidget(button, line, 0);
    cells->addWidget(labelFor(label), line++, 1);
  }
  return group;
}

QLayout* buttonRow(std::initializer_list<Button*> buttons) {
  auto* const row = new QHBoxLayout;
  row->setContentsMargins(0, 10, 0, 0);
  row->addStretch();
  for (Button* button : buttons) row->addWidget(buttonFor(*button));
  return row;
}
