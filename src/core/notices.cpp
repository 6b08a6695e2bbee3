#include "core/notices.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "core/form1.h"

const char* const pasteSubject = "paste";

namespace {

constexpr int passingMilliseconds = 8000;

struct Standing {
  Notice notice;
  bool closed = false;
};

std::vector<Standing> standing;  // the newest last

std::vector<Standing>::iterator find(const std::string& subject) {
  return std::find_if(standing.begin(), standing.end(),
                      [&](const Standing& each) { return each.notice.subject == subject; });
}

bool goesByItself(const Notice& notice) {
  return notice.passes || notice.kind == NoticeKind::information;
}

bool saysTheSame(const Notice& one, const Notice& other) {
  return one.kind == other.kind && one.text == other.text;
}

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
  if (notice && goesByItself(*notice)) {
    form.noticeTimer.restart(passingMilliseconds);
  }
}

// Information is over; what still holds must not come back by being told once more.
void closeNotice() {
  const Notice* const notice = shownNotice();
  if (!notice) return;
  const auto shown = find(notice->subject);
  if (goesByItself(*notice)) {
    standing.erase(shown);
  } else {
    shown->closed = true;
  }
  show();
}

void runAction(std::size_t number) {
  const Notice* const notice = shownNotice();
  if (!notice || number >= notice->actions.size()) return;
  const std::function<void()> run = notice->actions[number].run;
  run();
}

}  // namespace

const Notice* shownNotice() {
  const Notice* weightiest = nullptr;
  for (const Standing& each : standing) {
    if (each.closed || (weightiest && each.notice.kind < weightiest->kind)) continue;
    weightiest = &each.notice;
  }
  return weightiest;
}

void tellNotice(Notice notice) {
  const auto former = find(notice.subject);
  if (former != standing.end()) {
    if (!goesByItself(notice) && saysTheSame(former->notice, notice)) {
      former->notice.actions = std::move(notice.actions);
      return;
    }
    standing.erase(former);
  }
  standing.push_back({std::move(notice)});
  show();
}

void withdrawNotice(const std::string& subject) {
  const auto told = find(subject);
  if (told == standing.end()) return;
  standing.erase(told);
  show();
}

void nameNoticeButtons() {
  Form1& form = form1();
  form.noticeAction1.setCaption(captioned({"実行", "Do it"}));
  form.noticeAction2.setCaption(captioned({"無視", "Ignore"}));
  form.noticeClose.setCaption(captioned({"閉じる", "Close"}));
  show();
}

void wireNotices() {
  Form1& form = form1();
  standing.clear();
  form.noticeAction1.onClick = [] { runAction(0); };
  form.noticeAction2.onClick = [] { runAction(1); };
  form.noticeClose.onClick = closeNotice;
  form.noticeTimer.onTimer = closeNotice;
  nameNoticeButtons();
}
