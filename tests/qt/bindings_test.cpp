// Widgets bound to records: what the program sets is shown, what the user does enters by the
// record's doors, and what the record refuses is not left standing in the widget.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>
#include <string>
#include <vector>

#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_menu.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/canvas_view.h"
#include "platform/window.h"

namespace {

// A window of widgets. It is made after the records, which must outlive it.
struct Screen {
  explicit Screen(Window& record) : window(record) {}
  // Shows the widgets; the window becomes the active one.
  void show() {
    bindWindow(&top, window);
    top.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&top));
  }
  template <class Widget, class Record>
  Widget* add(Record& record) {
    auto* const widget = new Widget;
    rows->addWidget(widget);
    bind(widget, record);
    return widget;
  }

  Window& window;
  QWidget top;
  QVBoxLayout* rows = new QVBoxLayout(&top);
};

struct BindingsTest : testing::Test {
  BindingsTest() { window.load(); }
  Window window{"window"};
};

TEST_F(BindingsTest, CaptionsShowEveryCharacterAsItIs) {
  Label label{window, "<b> & </b>"};
  Button button{window, "a & b"};
  Screen screen(window);
  auto* const text = screen.add<QLabel>(label);
  auto* const press = screen.add<QPushButton>(button);
  EXPECT_EQ(text->text(), "<b> & </b>");
  EXPECT_EQ(text->textFormat(), Qt::PlainText);
  EXPECT_EQ(press->text(), "a && b");
  label.setCaption("燃料");
  label.setVisible(false);
  button.setEnabled(false);
  EXPECT_EQ(text->text(), QString::fromUtf8("燃料"));
  EXPECT_TRUE(text->isHidden());
  EXPECT_FALSE(press->isEnabled());
}

TEST_F(BindingsTest, ATextBoxTakesWhatItsFilterLetsThrough) {
  TextBox box{window, "12"};
  box.keyFilter = digitKey;
  int changes = 0;
  box.onChange = [&] { ++changes; };
  Screen screen(window);
  auto* const line = screen.add<QLineEdit>(box);
  screen.show();
  line->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(line, "a3.4");
  EXPECT_EQ(box.text(), "34") << "typing replaces the selected text";
  QTest::keyClick(line, Qt::Key_Backspace);
  EXPECT_EQ(box.text(), "3");
  QApplication::clipboard()->setText(QStringLiteral("x9"));
  QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box.text(), "3x9") << "pasting isn't filtered";
  EXPECT_EQ(changes, 4);
  box.setMaxLength(2);
  box.setText("7");
  QTest::keyClicks(line, "89");
  EXPECT_EQ(box.text(), "78");
}

TEST_F(BindingsTest, ATextBoxSelectsItsWholeTextOnFocus) {
  TextBox first{window, "first"};
  TextBox second{window, "second"};
  Screen screen(window);
  auto* const one = screen.add<QLineEdit>(first);
  auto* const other = screen.add<QLineEdit>(second);
  screen.show();
  QTest::mouseClick(other, Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(other->selectedText(), "second");
  EXPECT_EQ(window.focus(), &second);
  first.setFocus();
  EXPECT_TRUE(one->hasFocus());
  EXPECT_EQ(one->selectedText(), "first");
}

TEST_F(BindingsTest, OnlyTheUsersOwnStepAwayLeavesABox) {
  TextBox box{window, "1"};
  TextBox other{window};
  int left = 0;
  box.onLostFocus = [&] { ++left; };
  Screen screen(window);
  auto* const line = screen.add<QLineEdit>(box);
  screen.add<QLineEdit>(other);
  screen.show();
  line->setFocus(Qt::TabFocusReason);
  QWidget dialog;
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  EXPECT_EQ(left, 0);
  screen.top.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&screen.top));
  QTest::keyClick(line, Qt::Key_Tab);
  EXPECT_EQ(left, 1);
  EXPECT_EQ(window.focus(), &other);
}

TEST_F(BindingsTest, ARefusedChoiceIsNotLeftStanding) {
  CheckBox check{window};
  OptionGroup group;
  Option first{window, group};
  Option second{window, group};
  ListBox list{window, {"1", "2", "3"}};
  TabStrip strip{window, {{"a", ""}, {"b", ""}}};
  group.select(&first);
  list.setIndex(0);
  Screen screen(window);
  auto* const box = screen.add<QCheckBox>(check);
  auto* const one = screen.add<QRadioButton>(first);
  auto* const other = screen.add<QRadioButton>(second);
  auto* const lines = screen.add<QListWidget>(list);
  auto* const tabs = screen.add<QTabBar>(strip);
  const auto chooseAll = [&] {
    box->click();
    other->click();
    lines->setCurrentRow(2);
    tabs->setCurrentIndex(1);
    QCoreApplication::processEvents();
  };
  window.setEnabled(false);
  chooseAll();
  EXPECT_FALSE(box->isChecked());
  EXPECT_TRUE(one->isChecked());
  EXPECT_EQ(lines->currentRow(), 0);
  EXPECT_EQ(tabs->currentIndex(), 0);
  window.setEnabled(true);
  chooseAll();
  EXPECT_TRUE(check.checked() && second.selected() && !first.selected());
  EXPECT_EQ(list.index(), 2);
  EXPECT_EQ(strip.selected(), 2);
  group.select(nullptr);
  EXPECT_FALSE(one->isChecked() || other->isChecked());
}

TEST_F(BindingsTest, APressIsToldBeforeTheChangeItBrings) {
  CheckBox check{window};
  std::string told;
  check.onMouseDown = [&] { told += check.checked() ? "on " : "off "; };
  check.onChange = [&] { told += check.checked() ? "changed on" : "changed off"; };
  Screen screen(window);
  auto* const box = screen.add<QCheckBox>(check);
  screen.show();
  QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
  EXPECT_EQ(told, "off changed on");
}

TEST_F(BindingsTest, AClickOnTheTabInForceIsTold) {
  TabStrip strip{window, {{"first", "tip"}, {"second & last", ""}}};
  std::vector<int> told;
  strip.onClick = [&] { told.push_back(strip.selected()); };
  Screen screen(window);
  auto* const tabs = screen.add<QTabBar>(strip);
  screen.show();
  for (const int tab : {0, 1, 1}) {
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center());
  }
  EXPECT_EQ(told, (std::vector<int>{1, 2, 2}));
  EXPECT_EQ(tabs->tabText(1), "second && last");
  EXPECT_EQ(tabs->tabToolTip(0), "tip");
}

std::unique_ptr<MenuItem> item(Window& window, const char* name, const char* caption,
                               const char* shortcut = "") {
  return std::make_unique<MenuItem>(window, name, caption, shortcut);
}

TEST_F(BindingsTest, AMenuShowsItsItemsAlsoThoseThatComeLater) {
  MenuItem root{window, "root"};
  MenuItem& file = root.add(item(window, "file", "File"));
  MenuItem& save = file.add(item(window, "save", "Save", "Ctrl+S"));
  int saved = 0;
  save.onClick = [&] { ++saved; };
  QMenuBar bar;
  bind(&bar, root);
  file.add(item(window, "line", "-"));
  MenuItem& recent = file.add(item(window, "recent", "/tmp/a&b.bin"));
  QMenu* const menu = menuOf(file, &bar);
  ASSERT_EQ(menu->actions().size(), 3);
  QAction* const action = menu->actions().at(0);
  EXPECT_EQ(action->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_S));
  EXPECT_TRUE(menu->actions().at(1)->isSeparator());
  EXPECT_EQ(menu->actions().at(2)->text(), "/tmp/a&&b.bin");
  recent.setVisible(false);
  EXPECT_FALSE(menu->actions().at(2)->isVisible());
  action->trigger();
  window.setEnabled(false);
  action->trigger();
  EXPECT_EQ(saved, 1) << "a window that takes no input runs no command";
}

TEST_F(BindingsTest, ACanvasTellsEachRepeatAndOneRelease) {
  Canvas canvas{window, 40, 30};
  std::string told;
  canvas.onKeyDown = [&](int key) { told += "d" + std::to_string(key) + ' '; };
  canvas.onKey = [&](char32_t key) { told += "k" + std::to_string(key) + ' '; };
  canvas.onKeyUp = [&](int key) { told += "u" + std::to_string(key) + ' '; };
  Screen screen(window);
  auto* const view = new CanvasView(canvas);
  screen.rows->addWidget(view);
  screen.rows->addWidget(new QPushButton);
  screen.show();
  view->setFocus();
  const auto send = [view](QEvent::Type type, int key, const char* text, bool repeated) {
    QKeyEvent event(type, key, {}, QString::fromLatin1(text), repeated);
    QCoreApplication::sendEvent(view, &event);
  };
  send(QEvent::KeyPress, Qt::Key_Plus, "+", false);
  send(QEvent::KeyRelease, Qt::Key_Plus, "+", true);
  send(QEvent::KeyPress, Qt::Key_Plus, "+", true);
  send(QEvent::KeyRelease, Qt::Key_Plus, "+", false);
  EXPECT_TRUE(QTest::qWaitFor([&] { return told.find('u') != std::string::npos; }));
  send(QEvent::KeyPress, Qt::Key_Left, "", false);
  EXPECT_TRUE(view->hasFocus());
  view->clearFocus();
  EXPECT_EQ(told, "d43 k43 d43 k43 u43 d37 u37 ") << "a key held at the loss of focus ends there";
}

TEST_F(BindingsTest, ACanvasPaintsItsListAtTheRightPixels) {
  Canvas canvas{window, 40, 30};
  CanvasView view(canvas);
  view.show();
  canvas.drawLine(2, 3, 20, 3, rgb(0, 255, 0));
  canvas.drawBar(5, 10, 7, 12, rgb(255, 255, 0));
  canvas.drawOutline(10, 10, 30, 20, rgb(0, 0, 255));
  canvas.repaint();
  const QImage image = view.grab().toImage();
  struct {
    int x, y;
    QColor colour;
  } const pixels[] = {
      {2, 3, QColor(0, 255, 0)}, {19, 3, QColor(0, 255, 0)},   {10, 2, Qt::black},
      {10, 4, Qt::black},        {5, 10, QColor(255, 255, 0)}, {7, 12, QColor(255, 255, 0)},
      {8, 12, Qt::black},        {10, 10, QColor(0, 0, 255)},  {30, 20, QColor(0, 0, 255)},
      {20, 15, Qt::black},       {31, 15, Qt::black},
  };
  for (const auto& each : pixels) {
    EXPECT_EQ(image.pixelColor(each.x, each.y), each.colour) << each.x << ',' << each.y;
  }
}

TEST_F(BindingsTest, AWindowsKeysAndCloseBoxReachItsButtons) {
  Button ok{window};
  Button cancel{window};
  window.defaultButton = &ok;
  window.cancelButton = &cancel;
  std::string told;
  ok.onClick = [&] { told += "ok "; };
  cancel.onClick = [&] { told += "cancel "; };
  window.onKey = [&] { told += "key "; };
  TextBox box{window};
  Screen screen(window);
  auto* const line = screen.add<QLineEdit>(box);
  window.setCaption("title");
  screen.show();
  EXPECT_EQ(screen.top.windowTitle(), "title");
  line->setFocus();
  QTest::keyClick(screen.top.windowHandle(), Qt::Key_Return);
  QTest::keyClick(screen.top.windowHandle(), Qt::Key_Escape);
  EXPECT_EQ(told, "key ok key cancel ");
  screen.top.close();
  EXPECT_EQ(told, "key ok key cancel cancel ");
  EXPECT_TRUE(screen.top.isVisible()) << "the record alone takes a window away";
}

TEST_F(BindingsTest, AProgressBarShowsTheLastOfManyValues) {
  ProgressBar progress{window};
  Screen screen(window);
  auto* const bar = screen.add<QProgressBar>(progress);
  screen.show();
  for (int i = 0; i <= 100; ++i) progress.setValue(i);
  EXPECT_TRUE(QTest::qWaitFor([bar] { return bar->value() == 100; }, 1000));
}

TEST_F(BindingsTest, ATimerRunsWhileItIsEnabled) {
  Timer timer{window, 5};
  int fired = 0;
  timer.onTimer = [&] {
    ++fired;
    timer.setEnabled(false);
  };
  QTimer clock;
  bind(&clock, timer);
  QTest::qWait(30);
  EXPECT_EQ(fired, 0);
  timer.restart(5);
  EXPECT_TRUE(QTest::qWaitFor([&] { return fired > 0; }, 1000));
  QTest::qWait(30);
  EXPECT_EQ(fired, 1);
}

}  // namespace
