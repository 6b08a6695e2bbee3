// The version window: banner, version, warning, link to the manual.
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "frontend/about.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/look.h"
#include "frontend/qt/pictures.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/layouts.h"

namespace {

constexpr int width = 440;  // of the banner

QLabel* pictureFor(Label& record, const QString& name) {
  QLabel* const label = labelFor(record);
  label->setPixmap(picture(name));
  label->setMinimumHeight(label->sizeHint().height());
  return label;
}

// The colours of a map from end to end, as wide as the window.
QLabel* scaleFor(Label& record) {
  QLabel* const label = pictureFor(record, QStringLiteral("scale.png"));
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  label->setScaledContents(true);
  return label;
}

QFrame* line() {
  auto* const frame = new QFrame;
  frame->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  return frame;
}

QLayout* makeSupport(FrmAbout& form) {
  QLabel* const address = labelFor(form.Label6);
  address->setForegroundRole(QPalette::Link);
  address->setWordWrap(true);
  auto* const row = new QHBoxLayout;
  row->addWidget(labelFor(form.Label2));
  row->addWidget(address, 1);
  return row;
}

QLayout* makeVersion(FrmAbout& form) {
  QLabel* const version = labelFor(form.lblVersion);
  version->setFont(headlineFont());
  auto* const row = new QHBoxLayout;
  row->addWidget(pictureFor(form.picIcon, QStringLiteral("icon48.png")));
  row->addSpacing(8);
  row->addWidget(version, 1);
  return row;
}

}  // namespace

QWidget* makeAboutWindow() {
  FrmAbout& form = frmAbout;
  QDialog* const window = newDialog();
  window->setFixedWidth(width);
  QLabel* const warning = labelFor(form.att1);
  warning->setWordWrap(true);
  auto* const ok = new QPushButton;
  bind(ok, form.cmdOK);
  auto* const rows = new QVBoxLayout;
  rows->setContentsMargins(18, 12, 18, 14);
  rows->setSpacing(10);
  rows->addLayout(makeVersion(form));
  rows->addWidget(line());
  rows->addWidget(scaleFor(form.Picture2));
  rows->addWidget(line());
  rows->addWidget(warning);
  rows->addLayout(makeSupport(form));
  rows->addWidget(ok, 0, Qt::AlignRight);
  auto* const whole = new QVBoxLayout(window);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(0);
  whole->addWidget(pictureFor(form.Picture1, QStringLiteral("banner.png")));
  whole->addLayout(rows);
  bindWindow(window, form);
  return window;
}
