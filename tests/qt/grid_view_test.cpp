// The view of a grid under mouse and keys: one selection, the record's.
#include "frontend/qt/grid_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QtTest>
#include <QtWidgets>

#include "controls/window.h"
#include "frontend/qt/bind_menu.h"

namespace {

// A map of 4 rows and 5 columns with its headers, all of it in sight; a cell is 29 pixels by 16.
struct GridViewTest : testing::Test {
  GridViewTest() {
    window.load();
    grid.setColumnWidths(430);
    grid.setColumnWidth(0, 620);
    view.applyChanges();
    view.resize(view.sizeHint());
    host.resize(600, 400);
    host.show();
  }
  // The selection's row, column, rowSel and columnSel as four digits.
  int corners() const {
    return ((grid.row() * 10 + grid.column()) * 10 + grid.rowSel()) * 10 + grid.columnSel();
  }
  static QPoint cell(int row, int column) { return {column * 29 - 15, row * 16 - 8}; }
  void mouse(QEvent::Type type, QPoint place) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, cells->mapToGlobal(place), button, Qt::LeftButton, {});
    QCoreApplication::sendEvent(cells, &event);
  }
  int dragged(QPoint from, QPoint to) {
    mouse(QEvent::MouseButtonPress, from);
    mouse(QEvent::MouseMove, to);
    mouse(QEvent::MouseButtonRelease, to);
    return corners();
  }
  int clicked(QWidget* widget, QPoint place, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(widget, Qt::LeftButton, modifiers, place);
    return corners();
  }

  Window window{"window"};
  Grid grid{window, 5, 6, 1, 1, {white, rgb(64, 64, 64)}};
  QWidget host;
  GridView view{grid, &host};
  QWidget* cells = view.viewport();
};

TEST_F(GridViewTest, KeysMoveAndExtendTheSelection) {
  const std::pair<const char*, int> cases[] = {
      {"Right", 2424},       {"Left", 2222},     {"Up", 1313},         {"Down", 3333},
      {"Home", 2121},        {"End", 2525},      {"PgDown", 4343},     {"PgUp", 1313},
      {"Ctrl+Home", 1111},   {"Ctrl+End", 4545}, {"Ctrl+A", 1145},     {"Shift+Left", 2333},
      {"Shift+Right", 2335}, {"Shift+Up", 2324}, {"Shift+Home", 2331}, {"Ctrl+Shift+End", 2345}};
  for (const auto& [keys, expected] : cases) {
    grid.setSelection({2, 3, 3, 4});
    const QKeyCombination pressed = QKeySequence(keys)[0];
    QTest::keyClick(&view, pressed.key(), pressed.keyboardModifiers());
    EXPECT_EQ(corners(), expected) << keys;
  }
}

TEST_F(GridViewTest, TheMouseSelectsCellsInAnyDirectionAndWholeRowsAndColumns) {
  EXPECT_EQ(dragged(cell(3, 4), cell(1, 2)), 3412);
  EXPECT_EQ(dragged(cell(1, 5), cell(4, 1)), 1541);
  EXPECT_EQ(dragged(cell(2, 2), {1000, 1000}), 2245) << "beyond the edge";
  EXPECT_EQ(clicked(cells, cell(4, 4)), 4444);
  EXPECT_EQ(clicked(cells, cell(2, 1), Qt::ShiftModifier), 4421);
  EXPECT_EQ(clicked(view.horizontalHeader()->viewport(), cell(1, 2)), 1242);
  EXPECT_EQ(clicked(view.verticalHeader()->viewport(), cell(3, 1)), 3135);
  EXPECT_EQ(clicked(view.childAt(10, 8), {}), 1145) << "the corner";
  grid.setSelection({1, 1, 2, 2});
  QTest::mousePress(cells, Qt::RightButton, {}, cell(4, 4));
  EXPECT_EQ(corners(), 1122) << "without a menu a right press keeps the selection";
  std::vector<int> seen;
  grid.onMouseDown = [&](MouseButton) { seen.push_back(corners()); };
  QTest::mousePress(cells, Qt::RightButton, {}, cell(2, 1));
  QTest::mousePress(cells, Qt::RightButton, {}, cell(4, 4));
  EXPECT_EQ(seen, (std::vector{1122, 4444})) << "a right press keeps a selection that it hits";
  QTest::mousePress(cells, Qt::RightButton, {}, cell(4, 5) + QPoint(100, 100));
  EXPECT_EQ(corners(), 4444) << "nor does one beside the cells move it";
  QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, cells->mapToGlobal(QPoint(1, 1)));
  grid.setSelection({2, 3, 2, 3});
  QPoint place;
  grid.onMouseDown = [&](MouseButton) { place = cells->mapFromGlobal(menuPlace()); };
  QCoreApplication::sendEvent(&view, &menuKey);
  EXPECT_LT((place - cell(2, 3)).manhattanLength(), 30) << "the menu opens at the cell";
  grid.setSelection({4, 4, 4, 4});
  window.setEnabled(false);
  EXPECT_EQ(clicked(cells, cell(1, 1)), 4444) << "takes no input";
}

TEST_F(GridViewTest, ZoomedCellsAreHitAndDraggedWhereTheyAreSeen) {
  for (const int percent : {75, 200, 300}) {
    view.setZoom(percent);
    host.resize(600 * percent / 100, 400 * percent / 100);
    view.resize(view.sizeHint());
    EXPECT_EQ(view.contentSize(), view.contentSizeAt(percent));
    const auto at = [percent](int row, int column) { return cell(row, column) * percent / 100; };
    EXPECT_EQ(dragged(at(3, 4), at(1, 2)), 3412) << percent;
    EXPECT_EQ(clicked(cells, at(4, 5)), 4545) << percent;
    EXPECT_EQ(clicked(view.horizontalHeader()->viewport(), at(1, 2)), 1242) << percent;
  }
}

TEST_F(GridViewTest, CharactersReleasesAndEditsReachTheRecord) {
  std::string told;
  grid.onKey = [&](char32_t key) { told += static_cast<char>(key); };
  grid.onKeyUp = [&] { told += "^"; };
  grid.onDoubleClick = [&] { told += std::to_string(grid.row() * 10 + grid.column()); };
  QTest::keyPress(&view, '+');
  QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Plus, {}, "+", true);
  QCoreApplication::sendEvent(&view, &repeated);
  EXPECT_EQ(told, "+");
  QTest::keyRelease(&view, '+');
  QTest::mouseDClick(cells, Qt::LeftButton, {}, cell(3, 2));
  QTest::mouseDClick(cells, Qt::RightButton, {}, cell(1, 1));
  grid.setSelection({4, 5, 4, 5});
  QTest::keyClick(&view, Qt::Key_F2);
  QTest::keyClick(&view, Qt::Key_Return);
  EXPECT_EQ(told, "+^3245^45^");
}

TEST_F(GridViewTest, CellsAndTheSelectionAreReadOut) {
  QAccessibleTableInterface& table =
      *QAccessible::queryAccessibleInterface(&view)->tableInterface();
  const auto spoken = [&] { return table.cellAt(1, 2)->text(QAccessible::Name).toStdString(); };
  grid.setText(2, 3, "7");
  EXPECT_EQ(spoken(), "2, 3: 7") << "numbers where the headers are empty";
  grid.setText(2, 0, "1010");
  grid.setText(0, 3, "+2");
  grid.rowMeaning = [](int row) { return std::to_string(row * 450); };
  EXPECT_EQ(spoken(), "1010 (900), +2: 7");
  grid.setSelection({2, 3, 4, 4});
  view.applyChanges();
  EXPECT_EQ(table.selectedCellCount(), 6);
  EXPECT_TRUE(table.cellAt(1, 2)->state().selected && !table.cellAt(0, 2)->state().selected);
}

TEST_F(GridViewTest, ChangesAreShownBehindTheirEventAndNeverReadOutside) {
  for (const auto& [rows, columns] : {std::pair(2, 2), std::pair(40, 60), std::pair(0, 0)}) {
    grid.resize(rows, columns);
    cells->grab();
    view.verticalHeader()->grab();
    view.applyChanges();
  }
  view.grab();
  QTest::keyClick(&view, Qt::Key_Down);
  EXPECT_EQ(view.model()->rowCount(), 0);
  grid.setVisible(false);
  EXPECT_TRUE(view.isVisible());
  QCoreApplication::processEvents();
  EXPECT_FALSE(view.isVisible());
}

}  // namespace
