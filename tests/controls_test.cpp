// The small control records: what the program sets is told but handled by nobody; what the user
// does passes one door that refuses for a disabled control, a closed window and an open box.
#include "platform/controls.h"

#include <gtest/gtest.h>

#include "frontend/headless/headless_desktop.h"

namespace {

class Controls : public testing::Test {
 protected:
  Controls() {
    useDesktop(&desk);
    window.load();
  }
  ~Controls() override { useDesktop(nullptr); }

  HeadlessDesktop desk;
  Window window{"Form9"};
};

struct Panel : Window {
  Panel() : Window("Panel") {
    const auto count = [this] { ++handled; };
    label.onClick = frame.onClick = button.onClick = tabs.onClick = item.onClick = count;
    box.onChange = check.onChange = list.onChange = count;
    option.onSelect = count;
    check.onMouseDown = option.onMouseDown = list.onMouseDown = count;
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
  void forAll(const std::function<void(Control&)>& act) {
    for (Control* each : std::initializer_list<Control*>{&label, &frame, &button, &tabs, &item,
                                                         &box, &check, &option, &list}) {
      act(*each);
    }
  }
  int handled = 0;
  Label label{*this, "a"};
  Frame frame{*this, "a"};
  Button button{*this, "a"};
  TabStrip tabs{*this, {{"one", ""}, {"two", ""}}};
  MenuItem item{*this, "item"};
  TextBox box{*this, "a"};
  CheckBox check{*this};
  OptionGroup group;
  Option option{*this, group};
  Option other{*this, group};
  ListBox list{*this, {"one", "two"}};
};

TEST_F(Controls, EveryDoorRefusesUnlessControlAndWindowTakeInput) {
  struct Row {
    const char* name;
    std::function<void(Panel&)> obstacle;
    bool passes;
  };
  const Row table[] = {
      {"nothing", [](Panel&) {}, true},
      {"each control disabled",
       [](Panel& panel) { panel.forAll([](Control& each) { each.setEnabled(false); }); }, false},
      {"window disabled", [](Panel& panel) { panel.setEnabled(false); }, false},
      {"window closed", [](Panel& panel) { panel.unload(); }, false},
      {"enabled again",
       [](Panel& panel) {
         panel.setEnabled(false);
         panel.setEnabled(true);
       },
       true}};
  for (const Row& row : table) {
    Panel panel;
    panel.load();
    row.obstacle(panel);
    panel.touchAll();
    EXPECT_EQ(panel.handled, row.passes ? Panel::gestures : 0) << row.name;
    EXPECT_EQ(panel.box.text(), row.passes ? "z" : "a") << row.name;
    EXPECT_EQ(panel.tabs.selected() == 2 && panel.check.checked() && panel.option.selected() &&
                  panel.list.index() == 1,
              row.passes)
        << row.name;
  }
}

TEST_F(Controls, NoDoorOpensBehindAQuestionOfAnyKind) {
  Panel panel;
  panel.load();
  int asked = 0;
  desk.whileAsking = [&] {
    ++asked;
    panel.touchAll();
  };
  desk.textAnswers = desk.openAnswers = desk.saveAnswers = desk.folderAnswers = {"x"};
  desktop().showBox({});
  desktop().askText({});
  desktop().chooseFileToOpen({});
  desktop().chooseFileToSave({});
  desktop().chooseFolder("");
  EXPECT_EQ(asked, 5);
  EXPECT_EQ(panel.handled, 0);
  desk.whileAsking = nullptr;
  panel.touchAll();
  EXPECT_EQ(panel.handled, Panel::gestures);
}

TEST_F(Controls, TheProgramsChangesAreToldOnceAndRunNoHandler) {
  Panel panel;
  panel.load();
  int told = 0;
  panel.forAll([&](Control& each) { each.observer = [&told](const Change&) { ++told; }; });
  panel.check.setChecked(true);
  panel.check.setChecked(true);
  EXPECT_EQ(std::exchange(told, 0), 1) << "the same value again is no change";
  panel.box.setText("b");
  panel.list.selectText("two");
  panel.group.select(&panel.option);
  panel.tabs.setCaption(1, "ONE");
  panel.label.setColour(white);
  EXPECT_EQ(told, 5);
  EXPECT_EQ(panel.handled, 0);
  panel.list.selectText("three");
  EXPECT_EQ(panel.list.index(), -1);
  EXPECT_EQ(panel.list.text(), "");
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
      {"", 0, 0, 0, true, "a1-b2.", "", "12"},    {"", 0, 0, 0, true, "", "a1b2", "a1b2"},
      {"1234", 0, 4, 0, true, "9", "", "9"},      {"1234", 0, 4, 0, true, "x", "", "1234"},
      {"1234", 1, 2, 0, false, "\b", "", "14"},   {"1234", 4, 0, 0, true, "\b\b5", "", "125"},
      {"1234", 0, 0, 0, false, "\b", "", "1234"}, {"12", 2, 0, 4, false, "345", "", "1234"},
      {"1234", 4, 0, 4, false, "5", "6", "1234"}, {"1234", 1, 2, 4, false, "", "abcdef", "1ab4"},
      {"", 0, 0, 2, false, "日本語", "", "日本"}, {"日本語", 2, 0, 0, false, "\b", "", "日語"},
      {"12", 9, 9, 0, false, "3", "", "123"},
  };
  for (const Row& row : table) {
    TextBox box(window, row.before);
    box.setMaxLength(row.limit);
    if (row.digitsOnly) box.keyFilter = digitKey;
    box.userSelect(row.start, row.length);
    box.userType(row.typed);
    if (*row.pasted) box.userPaste(row.pasted);
    EXPECT_EQ(box.text(), row.after) << row.before << " " << row.typed << row.pasted;
  }
}

TEST_F(Controls, FocusSelectsTheTextAndMovesOnce) {
  TextBox first(window, "地図12");
  TextBox second(window, "x");
  std::string events;
  first.onGotFocus = [&] { events += "1+"; };
  first.onLostFocus = [&] { events += "1-"; };
  second.onGotFocus = [&] { events += "2+"; };
  first.userFocus();
  first.userFocus();
  EXPECT_EQ(first.selectionLength(), 4);
  first.userType("7");
  EXPECT_EQ(first.text(), "7");
  second.setEnabled(false);
  second.userFocus();
  second.setFocus();
  EXPECT_EQ(window.focus(), &first);
  second.setEnabled(true);
  second.setFocus();
  second.userLeave();
  EXPECT_EQ(events, "1+1-2+");
  EXPECT_EQ(window.focus(), nullptr);
}

TEST_F(Controls, OneOptionOfAGroupIsSelected) {
  OptionGroup group;
  Option a(window, group), b(window, group);
  int chosen = 0;
  a.onSelect = b.onSelect = [&] { ++chosen; };
  EXPECT_EQ(group.selected(), nullptr);
  a.userSelect();
  a.userSelect();
  b.userSelect();
  EXPECT_EQ(group.selected(), &b);
  EXPECT_FALSE(a.selected());
  EXPECT_EQ(chosen, 2) << "the selected one again is no change";
}

TEST_F(Controls, AWindowClosesByItsCloseBoxOrItsButtons) {
  struct Row {
    bool onClose, closeButton, cancelButton;
    const char* expected;
  };
  for (const Row& row : {Row{true, true, true, "handler"}, Row{false, true, true, "close"},
                         Row{false, false, true, "cancel"}, Row{false, false, false, ""}}) {
    Window dialog("Form8");
    std::string done;
    Button close(dialog), cancel(dialog);
    close.onClick = [&] { done += "close"; };
    cancel.onClick = [&] { done += "cancel"; };
    if (row.onClose) dialog.onClose = [&] { done += "handler"; };
    if (row.closeButton) dialog.closeButton = &close;
    if (row.cancelButton) dialog.cancelButton = &cancel;
    dialog.userClose();
    EXPECT_EQ(done, "") << "not loaded";
    dialog.load();
    dialog.userClose();
    EXPECT_EQ(done, row.expected);
    dialog.userEnter();
    dialog.userEscape();
    EXPECT_EQ(done, std::string(row.expected) + (row.cancelButton ? "cancel" : ""));
  }
}

TEST_F(Controls, LoadActivateAndUnloadRunOnceEach) {
  Window dialog("Form8");
  Button first(dialog);
  dialog.firstFocus = &first;
  std::string events;
  dialog.onLoad = [&] { events += "L"; };
  dialog.onActivate = [&] { events += "A"; };
  dialog.onUnload = [&] { events += "U"; };
  dialog.userActivate();
  dialog.load();
  dialog.load();
  dialog.userActivate();
  dialog.userActivate();
  EXPECT_EQ(dialog.focus(), &first);
  dialog.unload();
  dialog.unload();
  EXPECT_EQ(events, "LAU");
  dialog.load();
  EXPECT_EQ(dialog.focus(), nullptr);
}

TEST_F(Controls, ATimerFiresOnlyWhileItRuns) {
  Timer timer(window, 4500);
  int fired = 0;
  timer.onTimer = [&] { ++fired; };
  timer.fire();
  timer.restart(50);
  timer.fire();
  EXPECT_EQ(timer.interval(), 50);
  timer.setEnabled(false);
  timer.fire();
  timer.restart(50);
  window.unload();
  timer.fire();
  EXPECT_EQ(fired, 1);
}

TEST_F(Controls, HiddenMenuEntriesCannotBePicked) {
  MenuItem menu(window, "menu");
  MenuItem& entry = menu.add(std::make_unique<MenuItem>(window, "entry", "Entry", "Ctrl+E"));
  int picked = 0;
  entry.onClick = [&] { ++picked; };
  entry.setVisible(false);
  entry.userPick();
  entry.setVisible(true);
  menu.find("entry")->userPick();
  EXPECT_EQ(picked, 1);
  EXPECT_EQ(menu.find("missing"), nullptr);
}

}  // namespace
