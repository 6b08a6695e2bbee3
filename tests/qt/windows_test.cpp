// Every window of the program, in both languages: its own list of controls tells what must be
// bound, named, in order, worded and wholly in sight.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QtTest>
#include <QtWidgets>
#include <map>
#include <set>

#include "changes/differences_window.h"
#include "controls/grid.h"
#include "controls/line.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "editing/address_grid.h"
#include "exchange/print_dialog.h"
#include "frontend/form1_loading.h"
#include "frontend/manual.h"
#include "frontend/qt/look.h"
#include "frontend/qt/qt_desktop.h"
#include "frontend/qt/window_room.h"
#include "frontend/qt/windows/make_window.h"
#include "graphs/dr_graph.h"
#include "graphs/graph_3d_display.h"
#include "platform/files.h"

namespace {

class WindowsTest : public testing::Test {
 protected:
  WindowsTest() { useDesktop(&desk); }
  ~WindowsTest() override {
    end();
    useDesktop(nullptr);
  }
  void end() {
    delete desk.widgetOf(form1());
    discardForm1();
  }
  // Opens each window in turn, the main window with all its panels, and has it looked at.
  void forEachWindow(int english, const std::function<void(Window&, QWidget&)>& look) {
    end();
    editorState = EditorState{};
    editorState.appPath = folder.path().toStdString();
    editorState.english = english;
    editorState.addressEditColumns = 5;
    editorState.addressEditRows = 3;
    loadForm1();
    editorState.imageSize = 1024;
    desk.showWindow(form1());
    for (int tab = form1().TabStrip1.count(); tab > 0; --tab) form1().TabStrip1.userSelect(tab);
    for (Window* window : allWindows()) {
      SCOPED_TRACE(window->name());
      if (window != &form1()) window->unload();  // what another test left open
      if (window == &DR_GRAPH) DISP_3D_Graph();
      if (window != &form1() && window != &DR_GRAPH) openDialog(*window);
      QWidget& widget = *desk.widgetOf(*window);
      ASSERT_TRUE(widget.isVisible());
      QCoreApplication::processEvents();
      look(*window, widget);
      if (window != &form1()) closeDialog(*window);
    }
  }

  QTemporaryDir folder;
  QtDesktop desk;
};

class WindowsInEachLanguage : public WindowsTest, public testing::WithParamInterface<int> {};

// What of a widget, action or timer a record can change, by the property's name.
std::map<std::string, std::string> stateOf(const QObject* object) {
  std::map<std::string, std::string> state;
  const auto put = [&state](const char* name, const QVariant& value) {
    state[name] = value.toString().toStdString();
  };
  const auto* const widget = qobject_cast<const QWidget*>(object);
  const bool isTimer = qobject_cast<const QTimer*>(object);
  const bool isBox = qobject_cast<const QGroupBox*>(object);
  put("enabled", object->property(isTimer ? "active" : "enabled"));
  put("visible", widget ? !widget->isHidden() && widget->updatesEnabled()
                        : object->property("visible").toBool());
  put("caption", object->property(isBox ? "title" : "text"));
  put("text", object->property("text"));
  put("tip", object->property("toolTip"));
  put("name", object->property("accessibleName"));
  put("tick", object->property("checked"));
  put("value", object->property("value"));
  if (const auto* label = qobject_cast<const QLabel*>(object)) {
    put("colour", label->palette().color(QPalette::WindowText));
  } else if (const auto* list = qobject_cast<const QListWidget*>(object)) {
    put("line", list->currentRow());
  } else if (const auto* strip = qobject_cast<const QTabBar*>(object)) {
    put("tab", strip->tabText(0));
    put("tab's tip", strip->tabToolTip(0));
  } else if (const auto* table = qobject_cast<const QTableView*>(object)) {
    put("cell", table->model()->index(0, 0).data());
    put("selection", table->selectionModel()->selectedIndexes().size());
    put("rows", table->model()->rowCount());
    put("width", table->columnWidth(0));
  }
  return state;
}

struct Property {
  std::string name;
  std::function<void()> change;
  std::function<void()> back;
};

// Each property that a record of its kind can change.
std::vector<Property> propertiesOf(Control& control) {
  std::vector<Property> all;
  const auto add = [&all](const char* name, auto now, decltype(now) other, auto set) {
    all.push_back({name, [set, other] { set(other); }, [set, now] { set(now); }});
  };
  const std::string probe = "probe";
  auto* const item = dynamic_cast<MenuItem*>(&control);
  const bool isLine = dynamic_cast<Line*>(&control);
  // Panels of the main window are shown and hidden by their tabs.
  const bool isPanel = dynamic_cast<Frame*>(&control) && &control.window() == &form1();
  if (!isLine) {
    add("enabled", control.enabled(), !control.enabled(), [&](bool on) { control.setEnabled(on); });
  }
  if (dynamic_cast<Timer*>(&control)) return all;
  if (!isPanel) {
    add("visible", control.visible(), !control.visible(), [&](bool on) { control.setVisible(on); });
  }
  if (isLine) return all;
  if (auto* const captioned = dynamic_cast<Captioned*>(&control)) {
    const auto set = [captioned](const std::string& to) { captioned->setCaption(to); };
    if (captioned->caption() != "-") add("caption", captioned->caption(), probe, set);
    if (!item) add("name", captioned->caption(), probe, set);
  } else {
    add("name", control.ownName(), probe, [&](auto& to) { control.setOwnName(to); });
  }
  if (item && item->checked()) add("tick", false, true, [=](bool on) { item->setChecked(on); });
  if (item) return all;
  add("tip", control.toolTip(), probe, [&](auto& to) { control.setToolTip(to); });
  if (auto* const box = dynamic_cast<TextBox*>(&control)) {
    add("text", box->text(), probe, [=](auto& to) { box->setText(to); });
  } else if (auto* const label = dynamic_cast<Label*>(&control)) {
    add("colour", label->colour(), rgb(1, 2, 3), [=](auto& to) { label->setColour(to); });
  } else if (auto* const check = dynamic_cast<CheckBox*>(&control)) {
    add("tick", check->checked(), !check->checked(), [=](bool on) { check->setChecked(on); });
  } else if (auto* const option = dynamic_cast<Option*>(&control)) {
    const Option* const now = option->group().selected();
    add("tick", now, now == option ? nullptr : option,
        [=](auto* to) { option->group().select(to); });
  } else if (auto* const list = dynamic_cast<ListBox*>(&control)) {
    add("line", list->index(), list->index() == 1 ? 2 : 1, [=](int to) { list->setIndex(to); });
  } else if (auto* const strip = dynamic_cast<TabStrip*>(&control)) {
    add("tab", strip->tab(1).caption, probe, [=](auto& to) { strip->setCaption(1, to); });
    add("tab's tip", strip->tab(1).toolTip, probe, [=](auto& t) { strip->setTabToolTip(1, t); });
  } else if (auto* const bar = dynamic_cast<ProgressBar*>(&control)) {
    add("value", bar->value(), 50, [=](int to) { bar->setValue(to); });
    add("visible", bar->value(), 0, [=](int to) { bar->setValue(to); });
  } else if (auto* const grid = dynamic_cast<Grid*>(&control)) {
    const int row = grid->fixedRows(), column = grid->fixedColumns();
    add("cell", grid->text(row, column), probe, [=](auto& t) { grid->setText(row, column, t); });
    const GridSelection first{row, column, row, column};
    const GridSelection whole{row, column, grid->rows() - 1, grid->columns() - 1};
    add("selection", grid->selection(), grid->selection() == whole ? first : whole,
        [=](auto& to) { grid->setSelection(to); });
    add("width", grid->columnWidth(column), 1500, [=](int to) { grid->setColumnWidths(to); });
    add("rows", grid->rows(), 40, [grid, selection = grid->selection()](int to) {
      grid->resize(to, grid->columns());
      grid->setSelection(selection);
    });
  }
  return all;
}

// Changes are shown behind their event, those of a bar at most each 50 milliseconds.
void settle(const Control& control) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
  if (dynamic_cast<const ProgressBar*>(&control)) QTest::qWait(100);
}

// The objects that show each control of a window: those that bear the control's mark, or that go
// with the control where it can bear none.
std::map<Control*, QList<QObject*>> bindings(const Window& window, const QWidget& widget) {
  const QList<QObject*> parts = widget.findChildren<QObject*>();
  std::map<Control*, QList<QObject*>> found;
  std::map<QString, Control*> marked;
  std::vector<std::function<void()>> restore;
  for (Control* control : window.controls()) {
    if (dynamic_cast<Line*>(control) || dynamic_cast<Timer*>(control)) {
      const Property property = propertiesOf(*control).back();
      const auto change = [&](QObject* part) {
        const auto before = stateOf(part);
        property.change();
        const bool reached = stateOf(part) != before;
        property.back();
        return reached;
      };
      std::ranges::copy_if(parts, std::back_inserter(found[control]), change);
      continue;
    }
    const std::string mark = '#' + std::to_string(marked.size());
    marked[QString::fromStdString(mark)] = control;
    auto* const item = dynamic_cast<MenuItem*>(control);
    const auto put = [item, control](const std::string& text) {
      item ? item->setCaption(text) : control->setToolTip(text);
    };
    restore.push_back([put, former = item ? item->caption() : control->toolTip()] { put(former); });
    put(mark);
    settle(*control);
  }
  for (QObject* part : parts) {
    const auto at = marked.find(part->property("toolTip").toString());
    if (at != marked.end()) found[at->second] << part;
  }
  for (const auto& each : restore) each();
  return found;
}

TEST_P(WindowsInEachLanguage, EachRecordIsBoundToOneWidgetAndEachOfItsPropertiesReachesIt) {
  forEachWindow(GetParam(), [](Window& window, QWidget& widget) {
    auto bound = bindings(window, widget);
    QSet<const QObject*> alive;
    int number = 0;
    for (Control* control : window.controls()) {
      SCOPED_TRACE(testing::Message() << "control " << number++ << " " << control->spokenName());
      if (control == &form1().menuBar || control == &form6.menuBar) continue;  // the bar itself
      ASSERT_EQ(bound[control].size(), 1);
      const QObject* const object = bound[control].front();
      alive << object;
      auto* const bar = dynamic_cast<ProgressBar*>(control);
      if (bar) bar->setValue(1);  // an idle one is out of sight
      control->setVisible(true);
      settle(*control);
      const auto* const label = qobject_cast<const QLabel*>(object);
      const bool picture = label && !label->pixmap().isNull();
      const auto before = stateOf(object);
      for (const Property& property : propertiesOf(*control)) {
        if (picture && (property.name == "caption" || property.name == "name")) continue;
        property.change();
        settle(*control);
        EXPECT_NE(stateOf(object)[property.name], before.at(property.name)) << property.name;
        property.back();
        settle(*control);
        EXPECT_EQ(stateOf(object), before) << property.name;
      }
    }
    for (const QWidget* each : widget.findChildren<QWidget*>()) {
      const bool shows =
          qobject_cast<const QLabel*>(each) || qobject_cast<const QLineEdit*>(each) ||
          qobject_cast<const QPushButton*>(each) || qobject_cast<const QTableView*>(each);
      EXPECT_TRUE(!shows || alive.contains(each)) << "no record's: " << stateOf(each)["caption"];
    }
    window.setCaption("probe");
    EXPECT_EQ(widget.windowTitle(), "probe");
  });
}

// Of a canvas that scrolls the part in sight.
QRect placeOf(const QWidget* widget) {
  const QRect inParent = widget->geometry() & widget->parentWidget()->rect();
  return {widget->parentWidget()->mapTo(widget->window(), inParent.topLeft()), inParent.size()};
}

std::vector<QWidget*> fieldsOf(QWidget& window) {
  std::vector<QWidget*> fields;
  for (QWidget* each = window.nextInFocusChain(); each != &window;
       each = each->nextInFocusChain()) {
    if (each->focusPolicy() & Qt::TabFocus) fields.push_back(each);
  }
  return fields;
}

TEST_P(WindowsInEachLanguage, EachFieldHasANameOfItsOwnAndNoMarkupIsReadOut) {
  forEachWindow(GetParam(), [](Window&, QWidget& widget) {
    std::set<QString> names;
    for (QWidget* field : fieldsOf(widget)) {
      const QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(field);
      const QString name = spoken.text(QAccessible::Name);
      SCOPED_TRACE(name.toStdString() + " " + field->metaObject()->className());
      EXPECT_FALSE(name.trimmed().isEmpty());
      EXPECT_TRUE(names.insert(name).second) << "another field is called the same";
      EXPECT_FALSE((name + spoken.text(QAccessible::Description)).contains('<'));
    }
  });
}

TEST_P(WindowsInEachLanguage, TheTabKeyGoesAsTheLayoutReads) {
  forEachWindow(GetParam(), [](Window& window, QWidget& widget) {
    const bool main = &window == &form1();
    for (int tab = 1; tab <= (main ? form1().TabStrip1.count() : 1); ++tab) {
      if (main) form1().TabStrip1.userSelect(tab);
      std::vector<QWidget*> passed;
      for (QWidget* field : fieldsOf(widget)) {
        if (!field->isVisible()) continue;
        const QRect here = placeOf(field);
        for (const QWidget* each : passed) {
          const QRect before = placeOf(each);
          EXPECT_TRUE(here.left() > before.right() || here.top() > before.bottom())
              << field->accessibleName().toStdString() << " comes behind "
              << each->accessibleName().toStdString();
        }
        passed.push_back(field);
      }
    }
  });
}

// The captions with a mark before a letter that lie in sight; what Enter and Escape do needs none.
std::string letterless(const Window& window, QWidget& widget) {
  std::string without;
  std::set<QString> taken;
  for (const QWidget* each : widget.findChildren<QWidget*>()) {
    const auto* const label = qobject_cast<const QLabel*>(each);
    const auto* const button = qobject_cast<const QAbstractButton*>(each);
    const bool leads = (label && label->buddy()) || (button && !button->text().isEmpty());
    if (!leads || !each->isVisible()) continue;
    const QString text = each->property("text").toString();
    const qsizetype mark = text.indexOf(QRegularExpression("&[^&]"));
    if (mark >= 0) {
      EXPECT_TRUE(taken.insert(text.mid(mark + 1, 1).toUpper()).second) << text.toStdString();
    } else if (text != "OK" && text != "CANCEL" && text[0] < u'\u00FF') {
      without += window.name() + ' ' + text.toStdString() + '|';
    }
  }
  return without;
}

TEST_F(WindowsTest, LettersLeadToTheFieldsOfADialogAndF1ToItsPlaceInTheManual) {
  std::string without;
  std::vector<std::string> manuals;
  for (const char* name : {"/manual_en.html", "/manual_ja.html"}) {
    const std::vector<std::uint8_t> bytes = readFile(std::string(MANUAL_FOLDER) + name);
    manuals.emplace_back(bytes.begin(), bytes.end());
  }
  forEachWindow(1, [&](Window& window, QWidget& widget) {
    std::string asked;
    onHelp = [&asked](const Window& of) { asked = manualPlace(of); };
    QTest::keyClick(&widget, Qt::Key_F1);
    // Without a screen no window beside the main one becomes the active one.
    if (&window == &differencesWindow) asked = manualPlace(window);
    for (const std::string& manual : manuals) {
      EXPECT_NE(manual.find(" id=\"" + asked + "\""), std::string::npos) << asked;
    }
    if (&window != &form1()) without += letterless(window, widget);
  });
  onHelp = openManual;
  EXPECT_EQ(without,
            "Form5 CLOSE|oddeven Load ODD/EVEN Files|oddeven CLOSE|Differences Go "
            "there|Differences Close|EarlierStates Load|EarlierStates "
            "Close|AnyForm Load|AnyForm Cancel|Print Preview|")
      << "what Enter and Escape do";
}

// Whether a widget has less room than its text needs.
bool clips(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    if (!label->pixmap().isNull() || label->text().isEmpty()) return false;
    if (label->wordWrap()) return label->heightForWidth(label->width()) > label->height();
    return !QRect({}, label->size()).contains(QRect({}, label->sizeHint()));
  }
  if (const auto* strip = qobject_cast<const QTabBar*>(&widget)) {
    return !strip->rect().contains(strip->tabRect(strip->count() - 1));
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    return line->fontMetrics().horizontalAdvance(line->text()) > line->width() - 8;
  }
  if (const auto* list = qobject_cast<const QListWidget*>(&widget)) {
    return list->sizeHintForColumn(0) > list->viewport()->width();
  }
  const bool captioned =
      !widget.property("text").toString().isEmpty() || qobject_cast<const QGroupBox*>(&widget);
  return captioned && !QRect({}, widget.size()).contains(QRect({}, widget.minimumSizeHint()));
}

TEST_P(WindowsInEachLanguage, NothingIsClippedAndNoWindowIsLargerThanTheScreen) {
  forEachWindow(GetParam(), [](Window& window, QWidget& widget) {
    EXPECT_EQ(widget.size().boundedTo(roomFor(&widget)), widget.size());
    for (int tab = 1; tab <= (&window == &form1() ? form1().TabStrip1.count() : 1); ++tab) {
      if (&window == &form1()) form1().TabStrip1.userSelect(tab);
      QCoreApplication::processEvents();
      for (const QWidget* each : widget.findChildren<QWidget*>()) {
        const bool text = qobject_cast<const QLabel*>(each) ||
                          qobject_cast<const QLineEdit*>(each) ||
                          qobject_cast<const QAbstractButton*>(each);
        if (!each->isVisible()) continue;
        EXPECT_FALSE(clips(*each)) << stateOf(each)["caption"];
        if (!text) continue;
        EXPECT_TRUE(each->parentWidget()->rect().contains(each->geometry()))
            << stateOf(each)["caption"];
      }
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Languages, WindowsInEachLanguage, testing::Values(0, 1));

// The colour that fills most of a part of the window. On a button, whose ground has many shades,
// the text alone may have more of its own.
QColor groundOf(const QImage& window, const QRect& place, const QColor& ink) {
  const QRect part = QRectF(QPointF(place.topLeft()) * window.devicePixelRatio(),
                            QSizeF(place.size()) * window.devicePixelRatio())
                         .toRect() &
                     window.rect();
  std::map<QRgb, int> counts;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) ++counts[window.pixel(x, y)];
  }
  if (counts[ink.rgb()] < part.width() * part.height() / 2) counts.erase(ink.rgb());
  return std::ranges::max_element(counts, {}, &std::pair<const QRgb, int>::second)->first;
}

TEST_F(WindowsTest, TextsStandOutInEachWindowWhateverTheDesktopsPaletteIs) {
  QPalette contrastBlack(Qt::black, Qt::black), contrastWhite(Qt::white, Qt::white);
  contrastBlack.setColor(QPalette::Highlight, Qt::yellow);
  const QPalette light = QApplication::palette();
  // Set while the windows stand, as by a desktop that changes.
  const QPalette dark = paletteFor(QPalette(QColor(40, 40, 40)), QPalette(QColor(40, 40, 40)));
  for (const QPalette& palette :
       {light, dark, paletteFor(contrastBlack, light), paletteFor(contrastWhite, light)}) {
    QApplication::setPalette(palette);
    forEachWindow(1, [&](Window& window, QWidget& widget) {
      const QImage seen = widget.grab().toImage();
      for (const QWidget* each : widget.findChildren<QWidget*>()) {
        const auto* const label = qobject_cast<const QLabel*>(each);
        const bool edits = qobject_cast<const QLineEdit*>(each);
        const bool shows = edits || (label && label->pixmap().isNull()) ||
                           qobject_cast<const QAbstractButton*>(each);
        const QString text = each->property("text").toString();
        if (!shows || !each->isVisible() || !each->isEnabled() || text.isEmpty()) continue;
        const auto role = edits ? QPalette::Text : each->foregroundRole();
        const QColor ink = each->palette().color(role);
        // Given colours stay as they are.
        if (label && ink != palette.color(role) && ink != palette.color(QPalette::Link)) continue;
        const int edge = qobject_cast<const QPushButton*>(each) ? 4 : 0;
        const QRect place = placeOf(each).adjusted(edge, edge, -edge, -edge);
        if (place.isEmpty()) continue;
        EXPECT_GE(contrast(ink, groundOf(seen, place, ink)), 4.5)
            << window.name() << ' ' << text.toStdString() << " on "
            << palette.color(QPalette::Window).name().toStdString();
      }
    });
  }
  QApplication::setPalette(light);
}

bool isJapanese(const std::string& text) {
  return std::ranges::any_of(QString::fromStdString(text),
                             [](QChar c) { return c >= u'\u3000' && c != u'☞' && c != u'☜'; });
}

TEST_F(WindowsTest, CaptionsAreFilledAndDifferBetweenTheLanguages) {
  std::map<std::string, std::vector<std::string>> japanese;
  std::set<std::string> same, empty;
  for (const int english : {0, 1}) {
    forEachWindow(english, [&](Window& window, QWidget&) {
      if (&window == &form1()) return;
      std::vector<std::string> texts{window.caption()};
      for (Control* control : window.controls()) {
        // What a car's maps are called is the car's.
        const bool map = &window == &printDialog && dynamic_cast<CheckBox*>(control);
        if (map || !dynamic_cast<Captioned*>(control)) continue;
        texts.push_back(control->spokenName());
      }
      for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i].empty()) empty.insert(window.name() + ' ' + std::to_string(i));
        if (english == 0) continue;
        EXPECT_FALSE(isJapanese(texts[i])) << texts[i];
        if (texts[i] == japanese[window.name()][i]) same.insert(texts[i]);
      }
      japanese[window.name()] = texts;
    });
  }
  const auto joined = [](const std::set<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) all += isAbsolutePath(text) ? "" : text + '|';
    return all;
  };
  EXPECT_EQ(
      joined(same),
      "|+ Key assign|- Key assign|3D GRAPH EDIT|3D Graph Parameters|CANCEL|CLOSE|Every cell of "
      "the map, exactly as you mean it.|File Format|File Format Binary|File Format "
      "IntelHEX|For Windows9x/Me/WindowsNT4.0/W2K/XP|Grid Backcolor rate|Language|Language "
      "English?|OK|ROM size (Kbit)|Support SITE|TARGET &H0000  X:5  Y:3|Version "
      "1.98.48E|X|Y|cc|min                  TP value                  max|");
  EXPECT_EQ(
      joined(empty),
      "D2_GRAPH 0|D2_GRAPH 1|DR_GRAPH 1|DR_GRAPH 13|DR_GRAPH 2|DR_GRAPH 3|DR_GRAPH 4|DR_GRAPH 7|"
      "DR_GRAPH 9|Form6 1|frmAbout 5|frmAbout 6|frmAbout 7|frmSplash 0|frmSplash 1|frmSplash "
      "2|frmSplash 3|frmSplash 4|")
      << "pictures, read-outs, and what English writes in one line";
}

TEST_F(WindowsTest, TheAddressEditorShowsAllOfAStretchThatFitsAtEachOpening) {
  for (const auto& [rows, columns] : {std::pair(64, 8), {3, 64}, {64, 64}, {3, 5}}) {
    QtDesktop fresh;
    for (int opening = 0; opening < 2; ++opening) {
      SCOPED_TRACE(testing::Message() << rows << " x " << columns << " opened " << opening);
      form6.load();
      form6.eGrid.resize(rows + 1, columns + 1);
      form6.eGrid.setColumnWidths(430);
      fresh.showWindow(form6);
      QTest::qWait(50);
      const QWidget& window = *fresh.widgetOf(form6);
      const auto* const grid = window.findChild<QTableView*>();
      EXPECT_EQ(grid->verticalScrollBar()->maximum() > 0, rows == 64);
      EXPECT_EQ(grid->horizontalScrollBar()->maximum() > 0, columns == 64);
      EXPECT_EQ(window.size().boundedTo(roomFor(&window)), window.size());
      fresh.hideWindow(form6);
    }
  }
}

}  // namespace
