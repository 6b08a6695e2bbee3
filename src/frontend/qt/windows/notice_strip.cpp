#include "frontend/qt/windows/notice_strip.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

#include "core/form1.h"
#include "core/notices.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/event_tap.h"
#include "frontend/qt/windows/dialog_parts.h"

namespace {

QPushButton* noticeButton(Button& record) {
  auto* const button = new QPushButton;
  bind(button, record);
  button->setFocusPolicy(Qt::TabFocus);
  QSizePolicy policy = button->sizePolicy();
  policy.setRetainSizeWhenHidden(false);
  button->setSizePolicy(policy);
  return button;
}

QStyle::StandardPixmap signOf(NoticeKind kind) {
  if (kind == NoticeKind::trouble) return QStyle::SP_MessageBoxCritical;
  return kind == NoticeKind::warning ? QStyle::SP_MessageBoxWarning
                                     : QStyle::SP_MessageBoxInformation;
}

}  // namespace

QWidget* makeNoticeStrip() {
  Form1& form = form1();
  auto* const strip = new QFrame;
  strip->setFrameShape(QFrame::StyledPanel);
  auto* const line = new QHBoxLayout(strip);
  line->setContentsMargins(8, 3, 4, 3);
  auto* const sign = new QWidget;
  QLabel* const text = lineFor(form.noticeText);
  line->addWidget(sign);
  line->addWidget(text, 1);
  for (Button* button : {&form.noticeAction1, &form.noticeAction2, &form.noticeClose}) {
    line->addWidget(noticeButton(*button));
  }
  bind(new QTimer(strip), form.noticeTimer);
  const int size = text->fontMetrics().height();
  sign->setFixedSize(size, size);
  tapEvents(sign, [sign, size](QEvent* event) {
    const Notice* const notice = shownNotice();
    if (event->type() != QEvent::Paint || !notice) return false;
    QPainter(sign).drawPixmap(sign->rect(),
                              sign->style()->standardIcon(signOf(notice->kind)).pixmap(size, size));
    return true;
  });
  const auto show = [strip, sign] {
    strip->setVisible(shownNotice());
    sign->update();
  };
  tapEvents(text, [show](QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::ShowToParent || type == QEvent::HideToParent) show();
    return false;
  });
  show();
  return strip;
}
