// The main window as it stands on the screen: each scale cell beside its row or above its column.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <array>
#include <memory>

#include "core/form1.h"
#include "core/map_display.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/look.h"
#include "frontend/qt/qt_desktop.h"
#include "frontend/qt/window_place.h"
#include "frontend/qt/windows/make_window.h"

namespace {

struct MainWindowTest : testing::Test {
  MainWindowTest() {
    discardForm1();
    setGridLayout();
    window.reset(makeWindow(form1()));
    window->show();
  }
  // The places of a view's first cells in the window, one after another down or across.
  std::vector<std::pair<int, int>> places(const GridView& view, bool down, int count) const {
    std::vector<std::pair<int, int>> found;
    for (int i = 0; i < count; ++i) {
      const QPoint inside =
          down ? QPoint(0, view.rowViewportPosition(i)) : QPoint(view.columnViewportPosition(i), 0);
      const QPoint place = view.viewport()->mapTo(window.get(), inside);
      found.emplace_back(down ? place.y() : place.x(),
                         down ? view.rowHeight(i) : view.columnWidth(i));
    }
    return found;
  }
  GridView& view(const char* name) const {
    return *window->findChild<QStackedWidget*>()->currentWidget()->findChild<GridView*>(name);
  }

  std::unique_ptr<QWidget> window;
};

bool showsItsLast(const GridView& view) {
  const int row = view.model()->rowCount() - 1;
  const int column = view.model()->columnCount() - 1;
  return view.rowViewportPosition(row) + view.rowHeight(row) <= view.viewport()->height() &&
         view.columnViewportPosition(column) + view.columnWidth(column) <= view.viewport()->width();
}

TEST_F(MainWindowTest, EachScaleCellStandsBesideItsRowOrAboveItsColumnAtEverySize) {
  const QSize opening = window->size();
  for (const auto& [tab, map] : {std::pair(1, &form1().Grid1), std::pair(2, &form1().Grid2)}) {
    form1().bringPanelToFront(tab);
    const GridView& cells = view("map");
    const GridView& load = view("load");
    const GridView& speed = view("speed");
    for (const QSize size : {opening, window->minimumSize(), QSize(1900, 1000)}) {
      window->resize(size);
      for (int each = 0; each < 18 * 18; ++each) {
        const int rows = each % 18 + 1;
        const int columns = each / 18 + 1;
        constexpr std::array zooms{100, 75, 130, 300};
        form1().mapZoom.set(zooms[static_cast<std::size_t>(each) % zooms.size()], false);
        map->resize(rows + 1, columns + 1);
        map->setEnabled(each % 3 == 0);
        setGridLayout();
        for (const bool scrolled : {false, true}) {
          QCoreApplication::processEvents();
          const int across = scrolled ? cells.horizontalScrollBar()->maximum() : 0;
          const int down = scrolled ? cells.verticalScrollBar()->maximum() : 0;
          cells.horizontalScrollBar()->setValue(across);
          cells.verticalScrollBar()->setValue(down);
          SCOPED_TRACE(testing::Message()
                       << "tab " << tab << " " << rows << "x" << columns << " scrolled " << across
                       << "," << down << " at " << form1().mapZoom.percent());
          ASSERT_EQ(places(cells, true, std::min(rows, 16)),
                    places(speed, true, std::min(rows, 16)));
          ASSERT_EQ(places(cells, false, std::min(columns, 16)),
                    places(load, false, std::min(columns, 16)));
          if (!scrolled) continue;
          ASSERT_TRUE(showsItsLast(cells) && showsItsLast(load) && showsItsLast(speed));
        }
      }
    }
  }
}

TEST_F(MainWindowTest, MapsFitTheWindowAsLargeAsTheyCanWithoutScrollBars) {
  Zoom& zoom = form1().mapZoom;
  const auto bars = [this] {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    int beyond = 0;
    QWidget* const panel = window->findChild<QStackedWidget*>()->currentWidget();
    for (auto* area : panel->findChildren<QAbstractScrollArea*>()) {
      if (qobject_cast<QHeaderView*>(area)) continue;
      if (form1().frontPanel() == 5 && area == &view("map")) continue;  // its row may scroll
      beyond += area->horizontalScrollBar()->maximum() + area->verticalScrollBar()->maximum();
    }
    return beyond;
  };
  zoom.set(100, true);
  for (const auto& [tab, map] :
       {std::pair(1, &form1().Grid1), {5, &form1().Grid5}, {6, &form1().AddGrid1}}) {
    form1().bringPanelToFront(tab);
    for (const auto& [rows, columns] : {std::pair(17, 17),
                                        {33, 9},
                                        {2, 40},
                                        {513, 513},
                                        {1024, 1024},
                                        {2, 524'288},
                                        {524'288, 2}}) {
      map->resize(rows, columns);
      setGridLayout();
      for (const QSize size : {QSize(1900, 1000), QSize(1060, 680), window->minimumSize()}) {
        SCOPED_TRACE(testing::Message()
                     << "tab " << tab << " " << rows << "x" << columns << " in " << size.width());
        window->resize(size);
        const bool fits = bars() == 0;
        EXPECT_EQ(window->size(), size);
        EXPECT_TRUE(fits || zoom.shown() == Zoom::least) << zoom.shown();
        if (rows * columns > 1000) continue;
        const int shown = zoom.shown();
        zoom.set(shown + 12, false);
        EXPECT_TRUE(shown > Zoom::most - 12 || bars() > 0) << "room was left at " << shown;
        zoom.set(100, true);
      }
      window->grab();
    }
  }
}

TEST_F(MainWindowTest, CtrlWithTheWheelZoomsOverEachPartOfAPanelAndNothingElseDoes) {
  form1().load();
  int turned = 0;
  form1().mapZoom.onTurn = [&turned](int notches) { turned += notches; };
  const auto turn = [&turned](QWidget* over, int angle, Qt::KeyboardModifiers keys) {
    turned = 0;
    QWheelEvent wheel({2, 2}, over->mapToGlobal(QPointF(2, 2)), {}, {0, angle}, {}, keys,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&wheel);  // else nothing hands it on
    qApp->notify(over, &wheel);
    return turned;
  };
  window->resize(500, 300);
  std::vector<QWidget*> parts;
  for (const int tab : {1, 5, 14}) {
    form1().bringPanelToFront(tab);
    QWidget* const panel = window->findChild<QStackedWidget*>()->currentWidget();
    parts.push_back(panel);
    for (auto* area : panel->findChildren<QAbstractScrollArea*>())
      parts.push_back(area->viewport());
    for (auto* line : panel->findChildren<QLineEdit*>()) parts.push_back(line);
    for (auto* label : panel->findChildren<QLabel*>()) parts.push_back(label);
  }
  for (QWidget* part : parts) {
    const char* const name = part->metaObject()->className();
    EXPECT_EQ(turn(part, 240, Qt::ControlModifier), 2) << name;
    EXPECT_EQ(turn(part, -120, Qt::ControlModifier | Qt::ShiftModifier), -1) << name;
    EXPECT_EQ(turn(part, 120, {}), 0) << name;
  }
  EXPECT_EQ(turn(parts[0], 60, Qt::ControlModifier) + turn(parts[0], 60, Qt::ControlModifier), 1);
  form1().setEnabled(false);
  EXPECT_EQ(turn(parts[0], 120, Qt::ControlModifier), 0) << "takes no input";
}

TEST_F(MainWindowTest,
       ASelectedMapCellLightsUpItsScaleCellsAndScalesShowACursorOfTheirOwnOnlyWithFocus) {
  Grid& map = form1().Grid1;
  map.resize(9, 6);
  window->resize(1060, 680);
  form1().RPM_FUEL.setSelection({0, 0, 0, 0});
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  GridView& speed = view("speed");
  GridView& load = view("load");
  // The colour at a cell's side towards the map, and where its own border would run.
  const auto side = [&](const GridView& scale, int row, int column, bool below) {
    const QPoint corner(scale.columnViewportPosition(column) + scale.columnWidth(column) - 2,
                        scale.rowViewportPosition(row) + scale.rowHeight(row) - 2);
    const QPoint middle =
        below ? QPoint(corner.x() - 12, corner.y()) : QPoint(corner.x(), corner.y() - 6);
    return scale.viewport()->grab().toImage().pixelColor(middle * scale.devicePixelRatioF());
  };
  const auto lit = [&] {
    QCoreApplication::processEvents();
    std::string rows, columns;
    for (int row = 0; row < 16; ++row)
      rows += side(speed, row, 0, false) == accentColour ? '1' : '0';
    for (int c = 0; c < 16; ++c) columns += side(load, 0, c, true) == accentColour ? '1' : '0';
    return rows + " " + columns;
  };
  window->findChild<QStackedWidget*>()->setFocus();
  map.setSelection({3, 2, 5, 2});
  EXPECT_EQ(lit(), "0011100000000000 0100000000000000");
  map.setSelection({8, 5, 8, 4});
  EXPECT_EQ(lit(), "0000000100000000 0001100000000000");
  const QImage resting = speed.grab().toImage();
  form1().RPM_FUEL.setFocus();
  EXPECT_NE(speed.grab().toImage(), resting) << "its own cursor";
  map.setFocus();
  EXPECT_EQ(speed.grab().toImage(), resting);
  map.setEnabled(false);
  EXPECT_EQ(lit(), "0000000000000000 0000000000000000");
}

TEST_F(MainWindowTest, TheTabOfAnAbsentMapIsFaintAndHasTheFocusInItsPlace) {
  window->resize(1060, 680);
  auto* const tabs = window->findChild<QTabBar*>();
  const auto shownTab = [tabs](int tab) { return tabs->grab(tabs->tabRect(tab - 1)).toImage(); };
  for (const auto& [tab, map] : {std::pair(3, &form1().Grid3), std::pair(13, &form1().AddGrid14)}) {
    map->setEnabled(false);
    form1().bringPanelToFront(1);
    form1().Grid1.setFocus();
    form1().bringPanelToFront(tab);
    EXPECT_EQ(window->focusWidget(), tabs) << tab;
    const QImage absent = shownTab(tab);
    map->setEnabled(true);
    EXPECT_NE(shownTab(tab), absent) << tab;
  }
}

TEST_F(MainWindowTest, ASecondLineMakesItsTabHigherAndLeavesTheOthersCaptionsAndWidth) {
  auto* const tabs = window->findChild<QTabBar*>();
  const QSize before = tabs->tabRect(7).size();
  const QString caption = tabs->tabText(7);
  const QImage without = tabs->grab(tabs->tabRect(6)).toImage();
  form1().TabStrip1.setSecondLine(8, "Idle");
  EXPECT_GT(tabs->tabRect(7).height(), before.height());
  EXPECT_EQ(tabs->tabRect(7).width(), before.width());
  EXPECT_EQ(tabs->tabText(7), caption);
  EXPECT_EQ(tabs->grab(tabs->tabRect(6)).toImage(), without);
  form1().TabStrip1.setSecondLine(8, std::string(500, 'W'));
  EXPECT_GT(tabs->tabRect(7).width(), before.width());
  EXPECT_LT(tabs->tabRect(7).width(), 200) << "a long one is cut";
  form1().TabStrip1.setSecondLine(8, "");
  EXPECT_EQ(tabs->tabRect(7).size(), before);
}

TEST_F(MainWindowTest,
       FilesDroppedAnywhereOnTheWindowAreHandedOverAsCopiesWithoutHoldingUpTheOther) {
  using Told = std::vector<std::string>;
  Told told;
  form1().load();
  form1().onDrop = [&told](const Told& paths, bool control) {
    told = paths;
    told.push_back(control ? "control" : "");
  };
  QtDesktop desk;
  useDesktop(&desk);
  window.reset();
  window.reset(makeWindow(form1()));
  form1().bringPanelToFront(14);
  window->show();
  QMimeData files, text;
  files.setUrls({QUrl::fromLocalFile("/tmp/日本 車.bin"), QUrl("https://example.org/car.bin")});
  text.setText("/tmp/car.bin");
  const std::string first = QDir::toNativeSeparators("/tmp/日本 車.bin").toStdString();
  QWidget* const box = window->findChild<QLineEdit*>();
  // On the window or a box on it, what is dragged, what the other program allows, Ctrl.
  const std::tuple<QWidget*, QMimeData*, Qt::DropActions, bool, Told> table[] = {
      {window.get(), &files, Qt::CopyAction | Qt::MoveAction, false, {first, "", ""}},
      {window.get(), &files, Qt::CopyAction, true, {first, "", "control"}},
      {window.get(), &files, Qt::MoveAction, false, {}},
      {window.get(), &text, Qt::CopyAction, false, {}},
      {box, &files, Qt::CopyAction, false, {first, "", ""}}};
  for (const auto& [onto, dragged, actions, control, expected] : table) {
    told.clear();
    const auto keys = control ? Qt::ControlModifier : Qt::NoModifier;
    QDragEnterEvent enter({9, 9}, actions, dragged, Qt::LeftButton, keys);
    enter.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(onto, &enter);
    EXPECT_EQ(enter.isAccepted(), !expected.empty());
    if (!enter.isAccepted()) continue;
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
    QDropEvent drop({9, 9}, actions, dragged, Qt::LeftButton, keys);
    QCoreApplication::sendEvent(onto, &drop);
    EXPECT_TRUE(drop.isAccepted() && told.empty()) << "the drop is over before the files are read";
    QCoreApplication::processEvents();
    EXPECT_EQ(told, expected);
  }
  window.reset();
  useDesktop(nullptr);
}

TEST(WindowPlace, ComesBackOnAScreenThatIsThereAndNoLargerThanIt) {
  const QList<QRect> two{{0, 0, 1920, 1040}, {1920, -200, 1280, 1024}};
  const QList<QRect> small{{0, 30, 960, 510}};
  const std::tuple<QRect, QList<QRect>, QRect> table[] = {
      {{10, 20, 1060, 680}, two, {10, 20, 1060, 680}},
      {{2000, -150, 1060, 680}, two, {2000, -150, 1060, 680}},
      {{2000, -150, 1060, 680}, small, {0, 30, 960, 510}},
      {{-5000, 9000, 1060, 680}, two, {0, 360, 1060, 680}},
      {{900, 500, 400, 300}, small, {560, 240, 400, 300}}};
  for (const auto& [wanted, screens, expected] : table) {
    EXPECT_EQ(onScreens(wanted, screens), expected)
        << wanted.x() << " " << wanted.y() << " on " << screens.size();
  }
  QTemporaryDir folder;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
  QtDesktop desk;
  useDesktop(&desk);
  const QRect usual(50, 60, 500, 400);
  const QRect moved(70, 80, 400, 300);
  for (const char* stored : {"", "x 1 2 3", "1 2 3", "1 2 -5 8", "1 2 9999999999 8",
                             "70 80 400 300", "70 80 400 300 maximised"}) {
    desk.storeValue("Main Window", "Place", stored);
    const bool known = std::string(stored).starts_with("70");
    for (int run = 0; run < (known ? 2 : 1); ++run) {
      QWidget window;
      window.setGeometry(usual);
      keepPlace(&window);
      window.show();
      EXPECT_EQ(window.isMaximized(), std::string(stored).ends_with("maximised")) << stored;
      EXPECT_EQ(window.isMaximized() ? window.normalGeometry() : window.geometry(),
                known ? moved : usual)
          << stored << " in run " << run;
      window.hide();
    }
  }
  useDesktop(nullptr);
}

}  // namespace
