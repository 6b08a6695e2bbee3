// Widgets bound to records: what the program sets is shown, what the user does enters by the
// record's doors, and what the record refuses is not left standing in the widget.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QtTest>
#include <QtWidgets>

#include "../panel.h"
#include "controls/mark_meaning.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_menu.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/canvas_view.h"

namespace {

// The widgets are made after their records.
struct BindingsTest : testing::Test {
  BindingsTest() {
    record.group.select(&record.first);
    record.list.setIndex(0);
    record.setCaption("title");
    rows->addWidget(canvas);
    bindWindow(&top, record);
    top.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&top));
  }
  template <class Widget, class Record>
  Widget* bound(Record& control) {
    auto* const widget = new Widget;
    rows->addWidget(widget);
    bind(widget, control);
    return widget;
  }

  Panel record;
  QWidget top;
  QVBoxLayout* rows = new QVBoxLayout(&top);
  QPushButton* ok = bound<QPushButton>(record.ok);
  QLineEdit* box = bound<QLineEdit>(record.box);
  QLineEdit* other = bound<QLineEdit>(record.other);
  QCheckBox* check = bound<QCheckBox>(record.check);
  QRadioButton* first = bound<QRadioButton>(record.first);
  QRadioButton* second = bound<QRadioButton>(record.second);
  QListWidget* list = bound<QListWidget>(record.list);
  QTabBar* strip = bound<QTabBar>(record.strip);
  CanvasView* canvas = new CanvasView(record.canvas);
};

TEST_F(BindingsTest, ATextBoxTakesWhatItsFilterLetsThrough) {
  record.box.keyFilter = digitKey;
  box->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(box, "a3.4");
  EXPECT_EQ(record.box.text(), "34") << "typing replaces the selected text";
  QTest::keyClick(box, Qt::Key_Backspace);
  QApplication::clipboard()->setText("x9");
  QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(record.box.text(), "3x9") << "pasting isn't filtered";
  EXPECT_EQ(record.told, "text text text text ");
  QKeyEvent alt(QEvent::KeyPress, Qt::Key_7, Qt::AltModifier, "7");
  QCoreApplication::sendEvent(box, &alt);
  EXPECT_EQ(record.box.text(), "3x9") << "Alt is for menus";
  markMeaning = [](Mark mark) { return mark == Mark::differs ? "differs" : ""; };
  record.box.setMark(Mark::differs);
  EXPECT_TRUE(box->accessibleDescription().startsWith("differs"));
  QTest::keyClick(box, Qt::Key_Home);
  QTest::keyClicks(box, "12");
  EXPECT_EQ(record.box.text(), "123x9") << "the cursor stays where the user types";
  record.box.setMaxLength(4);
  record.box.setText(std::string(70000, '7'));
  QTest::keyClick(box, Qt::Key_Home);
  QTest::keyClick(box, Qt::Key_Delete);
  EXPECT_EQ(record.box.text().size(), 69999U) << "long digits are never cut";
}

TEST_F(BindingsTest, FocusSelectsTheTextAndOnlyTheUsersOwnStepAwayLeavesABox) {
  QTest::mouseClick(box, Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(box->selectedText(), "12");
  QWidget dialog;
  for (QWidget* window : {&dialog, &top}) {
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }
  EXPECT_EQ(record.focus(), &record.box);
  QTest::keyClick(box, Qt::Key_Tab);
  EXPECT_EQ(record.focus(), &record.other);
  EXPECT_EQ(record.told, "left ");
}

TEST_F(BindingsTest, ARefusedChoiceIsNotLeftStanding) {
  const auto chosen = [this] {
    check->click();
    second->click();
    list->setCurrentRow(2);
    strip->setCurrentIndex(1);
    QCoreApplication::processEvents();
    return std::vector<int>{check->isChecked(), first->isChecked(), second->isChecked(),
                            list->currentRow(), strip->currentIndex()};
  };
  record.setEnabled(false);
  EXPECT_EQ(chosen(), (std::vector{0, 1, 0, 0, 0}));
  record.setEnabled(true);
  EXPECT_EQ(chosen(), (std::vector{1, 0, 1, 2, 1}));
  EXPECT_EQ(record.told, "changed on second line2 tab2 ");
  QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(1).center());
  EXPECT_TRUE(record.told.ends_with(" tab2 tab2 ")) << "a click on the tab in force tells too";
}

TEST_F(BindingsTest, AMenuShowsItsItemsAlsoThoseThatComeLater) {
  const auto item = [this](const char* caption, const char* shortcut = "") {
    return std::make_unique<MenuItem>(record, caption, caption, shortcut);
  };
  MenuItem root{record, "root"};
  MenuItem& file = root.add(item("File"));
  file.add(item("Save", "Ctrl+S")).onClick = record.ok.onClick;
  QMenuBar bar;
  bind(&bar, root);
  file.add(item("-"));
  MenuItem& recent = file.add(item("/tmp/a&b.bin"));
  const QList<QAction*> actions = menuOf(file, &bar)->actions();
  ASSERT_EQ(actions.size(), 3);
  EXPECT_EQ(actions[0]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_S));
  EXPECT_EQ(actions[2]->text(), "/tmp/a&&b.bin");
  recent.setChecked(true);
  EXPECT_TRUE(actions[2]->isCheckable() && actions[2]->isChecked() && !actions[0]->isCheckable());
  file.onOpen = record.says("opens");
  emit menuOf(file, &bar)->aboutToShow();
  EXPECT_EQ(std::exchange(record.told, ""), "opens ");
  recent.setVisible(false);
  EXPECT_FALSE(actions[2]->isVisible());
  for (const bool open : {true, false}) {
    record.setEnabled(open);
    actions[0]->trigger();
  }
  EXPECT_EQ(record.told, "ok ") << "a window that takes no input runs no command";
}

TEST_F(BindingsTest, ACanvasIsReadOutByItsCaptionsAndTellsEachRepeatAndOneRelease) {
  record.canvas.nameAfter({&record.label});
  record.canvas.describeBy({&record.frame});
  record.label.setCaption("Fuel");
  record.frame.setCaption("600 rpm\n12");
  QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(canvas);
  EXPECT_EQ(spoken.role(), QAccessible::Canvas);
  EXPECT_EQ(spoken.text(QAccessible::Name) + spoken.text(QAccessible::Description),
            "Fuel600 rpm 12");
  const auto send = [this](QEvent::Type type, bool repeated) {
    QKeyEvent event(type, Qt::Key_Plus, {}, "+", repeated);
    QCoreApplication::sendEvent(canvas, &event);
  };
  canvas->setFocus();
  send(QEvent::KeyPress, false);
  send(QEvent::KeyRelease, true);
  send(QEvent::KeyPress, true);
  send(QEvent::KeyRelease, false);
  EXPECT_TRUE(QTest::qWaitFor([this] { return record.told.ends_with("u43 "); }));
  QTest::keyPress(canvas, Qt::Key_Left);
  canvas->clearFocus();
  EXPECT_EQ(record.told, "d43 k43 d43 k43 u43 d37 u37 ") << "the loss of focus ends a held key";
}

TEST_F(BindingsTest, AWindowsKeysAndCloseBoxReachItsButtons) {
  box->setFocus();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    QTest::keyClick(top.windowHandle(), key);
  }
  top.close();
  EXPECT_EQ(record.told, "key ok key cancel cancel ");
  EXPECT_TRUE(top.isVisible()) << "the record alone takes a window away";
}

}  // namespace
