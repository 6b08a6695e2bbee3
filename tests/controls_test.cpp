// The small control records: what the program sets is told but handled by nobody; what the user
// does passes one door that refuses for a disabled control, a closed window and an open box.
#include "controls/controls.h"

#include <gtest/gtest.h>

#include "controls/handler.h"
#include "frontend/headless/headless_desktop.h"
#include "panel.h"
#include "platform/failure.h"

namespace {

struct Controls : testing::Test {
  Controls() { useDesktop(&desk); }
  ~Controls() override { useDesktop(nullptr); }
  // Every gesture once.
  void touchAll() {
    panel.label.userClick();
    panel.frame.userClick();
    panel.ok.userClick();
    panel.strip.userSelect(2);
    panel.item.userPick();
    panel.box.userEdit("x", TextBox::By::keys);
    panel.box.userEdit("z");
    panel.check.userMouseDown();
    panel.check.userToggle();
    panel.second.userMouseDown();
    panel.second.userSelect();
    panel.list.userMouseDown();
    panel.list.userSelect(1);
    panel.grid.userSelect({2, 2, 2, 2});
    panel.grid.userDoubleClick();
    panel.grid.userKey(U'+');
    panel.grid.userKeyUp();
    panel.grid.userMouseDown(MouseButton::right);
  }
  HeadlessDesktop desk;
  Panel panel;
};

TEST_F(Controls, EveryDoorRefusesUnlessControlAndWindowTakeInputAndNoQuestionStandsOpen) {
  Control* const all[] = {&panel.label, &panel.frame, &panel.ok,     &panel.strip, &panel.item,
                          &panel.box,   &panel.check, &panel.second, &panel.list,  &panel.grid};
  desk.textAnswers = desk.openAnswers = desk.saveAnswers = desk.folderAnswers = {"x"};
  desk.whileAsking = [this] { touchAll(); };
  desktop().showBox({});
  desktop().askText({});
  desktop().chooseFileToOpen({});
  desktop().chooseFileToSave({});
  desktop().chooseFolder("");
  panel.unload();
  touchAll();
  panel.load();
  panel.setEnabled(false);
  touchAll();
  panel.setEnabled(true);
  for (Control* each : all) each->setEnabled(false);
  touchAll();
  EXPECT_EQ(panel.told + panel.box.text() + panel.grid.clip(), "12");
  for (Control* each : all) each->setEnabled(true);
  panel.item.setVisible(false);  // a hidden entry can't be picked
  touchAll();
  EXPECT_EQ(panel.told,
            "label frame ok tab2 text text off changed on press second press line1 "
            "double k43 up right ");
  EXPECT_EQ(panel.box.text(), "z");
  EXPECT_TRUE(panel.second.selected() && panel.grid.row() == 2);
}

TEST_F(Controls, TypingGoesThroughFilterAndLimitAndPastingThroughTheLimit) {
  constexpr auto keys = TextBox::By::keys, other = TextBox::By::other;
  const std::tuple<const char*, int, const char*, TextBox::By, const char*> table[] = {
      {"12", 0, "12a", keys, "12"},
      {"12", 0, "1.2", keys, "12"},
      {"12", 0, "x", keys, "12"},
      {"12", 0, "9", keys, "9"},
      {"1234", 0, "12534", keys, "12534"},
      {"12", 0, "1a2", other, "1a2"},
      {"12", 0, "", keys, ""},
      {"1234", 4, "12345", keys, "1234"},
      {"1234", 4, "1ab14", other, "1ab4"},
      {"", 2, "日本語", other, "日本"},
      {"日本語", 0, "日語", keys, "日語"},
      {"123456", 4, "13456", keys, "13456"},
      {"123456", 4, "1293456", keys, "123456"}};
  panel.box.keyFilter = digitKey;
  for (const auto& [before, limit, made, by, after] : table) {
    panel.box.setText(before);
    panel.box.setMaxLength(limit);
    panel.box.userEdit(made, by);
    EXPECT_EQ(panel.box.text(), after) << before << " " << made;
  }
}

TEST_F(Controls, AFailureThatNobodyCaughtEndsItsGestureAlone) {
  panel.label.onClick = [] { throw Failure(badSubscript); };
  panel.grid.onKeyUp = [] { throw std::bad_alloc(); };
  EXPECT_THROW(panel.label.userClick(), Failure);
  onEscapedFailure = [this](int number) { panel.told += std::to_string(number) + ' '; };
  touchAll();
  onEscapedFailure = nullptr;
  EXPECT_TRUE(panel.told.starts_with("9 frame ok ") && panel.told.ends_with("k43 7 right "));
}

}  // namespace
