#include "core/notices.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "core/form1.h"

namespace {

constexpr int informationMilliseconds = 8000;

std::vector<Notice> notices;  // the newest last

void show() {
  Form1& form = form1();
  const Notice* const notice = shownNotice();
  Button* const buttons[] = {&form.noticeAction1, &form.noticeAction2};
  for (std::size_t i = 0; i < std::size(buttons); ++i) {
    const bool used = notice && i < notice->actions.size();
    buttons[i]->setVisible(used);
    if (used) buttons[i]->setCaption(captionedBoth(notice->actions[i].caption));
  }
  form.noticeText.setVisible(false);  // another sign stands before another text
  form.noticeText.setToolTip(notice ? captionedBoth(notice->text) : "");
  if (notice) form.noticeText.setCaption(captionedBoth(notice->text));
  form.noticeClose.setVisible(notice);
  form.noticeText.setVisible(notice);
  form.noticeTimer.setEnabled(false);
  if (notice && notice->kind == NoticeKind::information) {
    form.noticeTimer.restart(informationMilliseconds);
  }
}

void closeNotice() {
  if (const Notice* const notice = shownNotice()) withdrawNotice(std::string(notice->subject));
}

void runAction(std::size_t number) {
  const Notice* const notice = shownNotice();
  if (!notice || number >= notice->actions.size()) return;
  const std::function<void()> run = notice->actions[number].run;
  run();
}

}  // namespace

const Notice* shownNotice() {
  const auto weightiest =
      std::max_element(notices.rbegin(), notices.rend(),
                       [](const Notice& a, const Notice& b) { return a.kind < b.kind; });
  return weightiest == notices.rend() ? nullptr : &*weightiest;
}

void tellNotice(Notice notice) {
  std::erase_if(notices, [&](const Notice& each) { return each.subject == notice.subject; });
  notices.push_back(std::move(notice));
  show();
}

void withdrawNotice(const std::string& subject) {
  if (std::erase_if(notices, [&](const Notice& each) { return each.subject == subject; })) show();
}

void wireNotices() {
  Form1& form = form1();
  notices.clear();
  form.noticeAction1.setCaption(captioned({"実行", "Do it"}));
  form.noticeAction2.setCaption(captioned({"無視", "Ignore"}));
  form.noticeAction1.onClick = [] { runAction(0); };
  form.noticeAction2.onClick = [] { runAction(1); };
  form.noticeClose.setCaption(captioned({"閉じる", "Close"}));
  form.noticeClose.onClick = closeNotice;
  form.noticeTimer.onTimer = closeNotice;
  show();
}
