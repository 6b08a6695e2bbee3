// The small control records: what the program sets is told but handled by nobody; what the user
// does passes one door that refuses for a disabled control, a closed window and an open box.
#include "platform/controls.h"

#include <gtest/gtest.h>

#include "frontend/headless/headless_desktop.h"
#include "platform/failure.h"
#include "platform/handler.h"

namespace {

struct Panel : Window {
  Panel() : Window("Panel") {
    const auto count = [this] { ++handled; };
    label.onClick = frame.onClick = button.onClick = tabs.onClick = item.onClick = count;
    box.onChange = check.onChange = list.onChange = option.onSelect = count;
    check.onMouseDown = option.onMouseDown = list.onMouseDown = count;
    load();
  }
  // Every gesture once; each runs one handler where it is let in.
  void touchAll() {
    label.userClick();
    frame.userClick();
    button.userClick();
    tabs.userSelect(2);
    item.userPick();
    box.userType("x");
    box.userPaste("y");
    box.userEdit("z");
    check.userMouseDown();
    check.userToggle();
    option.userMouseDown();
    option.userSelect();
    list.userMouseDown();
    list.userSelect(1);
  }
  static constexpr int gestures = 14;
  std::vector<Control*> all() {
    return {&label, &frame, &button, &tabs, &item, &box, &check, &option, &list};
  }
  int handled = 0;
  Label label{*this};
  Frame frame{*this};
  Button button{*this};
  TabStrip tabs{*this, {{"one", ""}, {"two", ""}}};
  MenuItem item{*this, "item"};
  TextBox box{*this, "a"};
  CheckBox check{*this};
  OptionGroup group;
  Option option{*this, group}, other{*this, group};
  ListBox list{*this, {"one", "two"}};
};

class Controls : public testing::Test {
 protected:
  Controls() {
    useDesktop(&desk);
    desk.textAnswers = desk.openAnswers = desk.saveAnswers = desk.folderAnswers = {"x"};
  }
  ~Controls() override { useDesktop(nullptr); }

  HeadlessDesktop desk;
};

TEST_F(Controls, EveryDoorRefusesUnlessControlAndWindowTakeInput) {
  for (const std::string obstacle : {"none", "controls", "window", "closed"}) {
    Panel panel;
    for (Control* each : panel.all()) each->setEnabled(obstacle != "controls");
    panel.setEnabled(obstacle != "window");
    if (obstacle == "closed") panel.unload();
    panel.touchAll();
    const bool open = obstacle == "none";
    EXPECT_EQ(panel.handled, open ? Panel::gestures : 0) << obstacle;
    EXPECT_EQ(panel.box.text(), open ? "z" : "a") << obstacle;
    EXPECT_EQ(panel.tabs.selected() + panel.check.checked() + panel.option.selected() +
                  panel.list.index(),
              open ? 5 : 0)
        << obstacle;
  }
}

TEST_F(Controls, NoDoorOpensBehindAQuestionOfAnyKind) {
  Panel panel;
  int asked = 0;
  desk.whileAsking = [&] {
    ++asked;
    panel.touchAll();
  };
  desktop().showBox({});
  desktop().askText({});
  desktop().chooseFileToOpen({});
  desktop().chooseFileToSave({});
  desktop().chooseFolder("");
  EXPECT_EQ(asked, 5);
  EXPECT_EQ(panel.handled, 0);
}

TEST_F(Controls, TheProgramsChangesAreToldOnceAndRunNoHandler) {
  Panel panel;
  int told = 0;
  for (Control* each : panel.all()) each->observer = [&told](const Change&) { ++told; };
  panel.check.setChecked(true);
  panel.check.setChecked(true);
  EXPECT_EQ(told, 1) << "the same value again is no change";
  panel.box.setText("b");
  panel.list.selectText("two");
  panel.group.select(&panel.option);
  panel.tabs.setCaption(1, "ONE");
  panel.label.setColour(white);
  EXPECT_EQ(told, 6);
  EXPECT_EQ(panel.handled, 0);
  panel.list.selectText("three");
  EXPECT_EQ(panel.list.text(), "");
  panel.group.select(&panel.other);
  EXPECT_FALSE(panel.option.selected());
}

TEST_F(Controls, TypingGoesThroughFilterAndLimitAndPastingThroughTheLimit) {
  struct Row {
    const char* before;
    int start, length, limit;
    bool digitsOnly;
    const char* typed;
    const char* pasted;
    const char* after;
  };
  const Row table[] = {
      {"", 0, 0, 0, true, "a1-b2.", "", "12"},        {"", 0, 0, 0, true, "", "a1b2", "a1b2"},
      {"1234", 0, 4, 0, true, "9", "", "9"},          {"1234", 0, 4, 0, true, "x", "", "1234"},
      {"1234", 1, 2, 0, false, "\b", "", "14"},       {"1234", 4, 0, 0, true, "\b\b5", "", "125"},
      {"1234", 0, 0, 0, false, "\b", "", "1234"},     {"1234", 4, 0, 4, false, "5", "6", "1234"},
      {"1234", 1, 2, 4, false, "", "abcdef", "1ab4"}, {"", 0, 0, 2, false, "日本語", "", "日本"},
      {"日本語", 2, 0, 0, false, "\b", "", "日語"},   {"12", 9, 9, 0, false, "3", "", "123"}};
  for (const Row& row : table) {
    Panel panel;
    panel.box.setText(row.before);
    panel.box.setMaxLength(row.limit);
    if (row.digitsOnly) panel.box.keyFilter = digitKey;
    panel.box.userSelect(row.start, row.length);
    panel.box.userType(row.typed);
    if (*row.pasted) panel.box.userPaste(row.pasted);
    EXPECT_EQ(panel.box.text(), row.after) << row.before << " " << row.typed << row.pasted;
  }
}

TEST_F(Controls, FocusSelectsTheTextAndMovesOnce) {
  Panel panel;
  TextBox second(panel, "x");
  std::string events;
  panel.box.onGotFocus = [&] { events += "1+"; };
  panel.box.onLostFocus = [&] { events += "1-"; };
  second.onGotFocus = [&] { events += "2+"; };
  panel.box.setText("地図12");
  panel.box.userFocus();
  panel.box.userFocus();
  EXPECT_EQ(panel.box.selectionLength(), 4);
  second.setEnabled(false);
  second.userFocus();
  second.setFocus();
  EXPECT_EQ(panel.focus(), &panel.box);
  second.setEnabled(true);
  second.setFocus();
  second.userLeave();
  EXPECT_EQ(events, "1+1-2+");
  EXPECT_EQ(panel.focus(), nullptr);
}

TEST_F(Controls, AWindowClosesByItsCloseBoxOrItsButtons) {
  for (const auto& [obstacles, expected] :
       {std::pair(3, "handler"), std::pair(2, "close"), std::pair(1, "cancel"), std::pair(0, "")}) {
    Panel dialog;
    std::string done;
    dialog.button.onClick = [&] { done += "cancel"; };
    Button close(dialog);
    close.onClick = [&] { done += "close"; };
    if (obstacles >= 3) dialog.onClose = [&] { done += "handler"; };
    if (obstacles >= 2) dialog.closeButton = &close;
    if (obstacles >= 1) dialog.cancelButton = &dialog.button;
    dialog.userClose();
    EXPECT_EQ(done, expected);
    dialog.userEnter();
    dialog.userEscape();
    EXPECT_EQ(done, std::string(expected) + (obstacles >= 1 ? "cancel" : ""));
    dialog.unload();
    dialog.userClose();
    EXPECT_EQ(done, std::string(expected) + (obstacles >= 1 ? "cancel" : ""));
  }
}

TEST_F(Controls, LoadActivateAndUnloadRunOnceEachAndTimersOnlyInBetween) {
  Window dialog("Form8");
  Button first(dialog);
  Timer timer(dialog, 4500);
  dialog.firstFocus = &first;
  std::string events;
  dialog.onLoad = [&] { events += "L"; };
  dialog.onActivate = [&] { events += "A"; };
  dialog.onUnload = [&] { events += "U"; };
  timer.onTimer = [&] { events += "t"; };
  for (int i = 0; i < 2; ++i) dialog.userActivate();
  for (int i = 0; i < 2; ++i) dialog.load();
  for (int i = 0; i < 2; ++i) dialog.userActivate();
  EXPECT_EQ(dialog.focus(), &first);
  timer.fire();
  timer.restart(50);
  timer.fire();
  timer.setEnabled(false);
  timer.fire();
  timer.restart(50);
  for (int i = 0; i < 2; ++i) dialog.unload();
  timer.fire();
  EXPECT_EQ(events, "LAtU");
}

TEST_F(Controls, HiddenMenuEntriesCannotBePicked) {
  Panel panel;
  MenuItem& entry = panel.item.add(std::make_unique<MenuItem>(panel, "entry"));
  entry.onClick = panel.item.onClick;
  entry.setVisible(false);
  entry.userPick();
  EXPECT_EQ(panel.handled, 0);
  entry.setVisible(true);
  panel.item.find("entry")->userPick();
  EXPECT_EQ(panel.handled, 1);
  EXPECT_EQ(panel.item.find("missing"), nullptr);
}

TEST_F(Controls, AFailureThatNobodyCaughtEndsItsGestureAlone) {
  Panel panel;
  panel.button.onClick = [] { throw Failure(badSubscript); };
  panel.item.onClick = [] { throw std::bad_alloc(); };
  EXPECT_THROW(panel.button.userClick(), Failure);
  std::vector<int> told;
  onEscapedFailure = [&told](int number) { told.push_back(number); };
  panel.touchAll();
  onEscapedFailure = nullptr;
  EXPECT_EQ(told, (std::vector<int>{badSubscript, outOfMemory}));
  EXPECT_EQ(panel.handled, Panel::gestures - 2);
}

}  // namespace
