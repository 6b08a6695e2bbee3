// The splash window: the picture, the colours of a map below it, a slogan and the systems' line.
#include <QGroupBox>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/pictures.h"
#include "frontend/qt/windows/layouts.h"
#include "frontend/splash.h"

namespace {

constexpr QSize size(640, 360);
constexpr QPoint sloganPlace(142, 116);
constexpr QPoint systemsEnd(624, 338);  // the frame's lower right corner
constexpr int systemsHeight = 34;
constexpr QMargins systemsMargins(12, 4, 12, 0);
constexpr QPoint scalePlace(0, 350);
constexpr QPoint iconPlace(16, 296);

QLabel* placed(QWidget* parent, Label& record, QPoint place) {
  auto* const label = new QLabel(parent);
  bind(label, record);
  label->move(place);
  return label;
}

QLabel* placePicture(QWidget* parent, Label& record, const QString& name, QPoint place) {
  QLabel* const label = placed(parent, record, place);
  label->setPixmap(picture(name));
  label->adjustSize();
  return label;
}

// The frame is as wide as its line of text asks for.
void placeSystems(QWidget* window, FrmSplash& form) {
  auto* const frame = new QGroupBox(window);
  frame->setFlat(true);
  bind(frame, form.Frame1);
  QLabel* const systems = placed(frame, form.Label3, {0, 0});
  const int width = systems->sizeHint().width() + systemsMargins.left() + systemsMargins.right();
  frame->setGeometry(systemsEnd.x() - width, systemsEnd.y() - systemsHeight, width, systemsHeight);
  systems->setAlignment(Qt::AlignCenter);
  systems->setGeometry(frame->rect() - systemsMargins);
}

}  // namespace

QWidget* makeSplashWindow() {
  FrmSplash& form = frmSplash;
  auto* const window = new QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint);
  window->setFixedSize(size);
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(14, 20, 17));
  window->setPalette(dark);
  // As large as the window even if its file is missing: a click anywhere ends the window.
  placePicture(window, form.Picture1, QStringLiteral("splash.png"), {0, 0})->resize(size);
  placePicture(window, form.Picture2, QStringLiteral("icon48.png"), iconPlace);
  placePicture(window, form.Picture3, QStringLiteral("scale.png"), scalePlace)
      ->resize(size.width(), size.height() - scalePlace.y());
  placed(window, form.Label4, sloganPlace);
  placeSystems(window, form);
  auto* const timer = new QTimer(window);
  bind(timer, form.Timer1);
  bindWindow(window, form);
  return window;
}
