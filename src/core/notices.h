// Notices: what no box says. The strip of the main window shows one line at a time, the weightiest
// and of these the newest; it asks nothing and takes no focus.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/wording.h"

// In the order of their weight. Information goes by itself after a while, the others when they are
// withdrawn or closed, unless they are told of something that is over.
enum class NoticeKind { information, warning, trouble };

struct NoticeAction {
  BothTexts caption;
  std::function<void()> run;
};

struct Notice {
  std::string subject;  // what it is about; a newer notice replaces that of the same subject
  NoticeKind kind = NoticeKind::information;
  BothTexts text;
  std::vector<NoticeAction> actions = {};  // at most two
  bool passes = false;                     // goes by itself, whatever its kind
};

// A notice that doesn't go by itself and stands already, in the same words, stays as it is: shown,
// or closed by the user until its words change or it is withdrawn. Only its actions are the new
// ones.
void tellNotice(Notice notice);
// About a text that the plain paste can't take, until it or the other paste took one.
extern const char* const pasteSubject;
void withdrawNotice(const std::string& subject);
// The one that the strip shows; null for none.
const Notice* shownNotice();
// The strip's handlers; no notice stands any more.
void wireNotices();
// The strip in the language of windows.
void nameNoticeButtons();
