// The view of a grid under mouse and keys: one selection, the record's; and what it paints.
#include "frontend/qt/grid_view.h"

#include <gtest/gtest.h>

#include <QGridLayout>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <string>
#include <vector>

#include "platform/window.h"

void PrintTo(const GridSelection& s, std::ostream* out) {
  *out << s.row << ',' << s.column << " to " << s.rowSel << ',' << s.columnSel;
}

namespace {

constexpr QPoint cellPixels(29, 16);
constexpr Grid::Look look{white, rgb(64, 64, 64), white};

// A map of 4 rows and 5 columns with its headers, all of it in sight.
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
  static QPoint cell(int row, int column) {
    return {(column - 1) * cellPixels.x() + 14, (row - 1) * cellPixels.y() + 8};
  }
  void click(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, cell(row, column));
  }
  void mouse(QEvent::Type type, QPoint place) {
    QWidget* const target = view.viewport();
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, target->mapToGlobal(place), button, Qt::LeftButton, {});
    QCoreApplication::sendEvent(target, &event);
  }
  void drag(QPoint from, QPoint to) {
    mouse(QEvent::MouseButtonPress, from);
    mouse(QEvent::MouseMove, to);
    mouse(QEvent::MouseButtonRelease, to);
  }
  QColor pixel(QPoint place) { return view.viewport()->grab().toImage().pixelColor(place); }

  Window window{"window"};
  Grid grid{window, 5, 6, 1, 1, look};
  QWidget host;
  GridView view{grid, &host};
};

TEST_F(GridViewTest, AWidthInTwipsIsAWidthInPixels) {
  EXPECT_EQ(view.columnWidth(0), cellPixels.x());
  EXPECT_EQ(view.rowHeight(0), cellPixels.y());
  EXPECT_EQ(view.verticalHeader()->width(), 41);
  EXPECT_EQ(view.viewport()->size(), QSize(5 * 29, 4 * 16)) << "nothing hidden, nothing left over";
}

TEST_F(GridViewTest, KeysMoveAndExtendTheSelection) {
  struct {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    GridSelection expected;
  } const cases[] = {
      {Qt::Key_Right, Qt::NoModifier, {2, 4, 2, 4}},
      {Qt::Key_Left, Qt::NoModifier, {2, 2, 2, 2}},
      {Qt::Key_Up, Qt::NoModifier, {1, 3, 1, 3}},
      {Qt::Key_Down, Qt::NoModifier, {3, 3, 3, 3}},
      {Qt::Key_Home, Qt::NoModifier, {2, 1, 2, 1}},
      {Qt::Key_End, Qt::NoModifier, {2, 5, 2, 5}},
      {Qt::Key_Home, Qt::ControlModifier, {1, 1, 1, 1}},
      {Qt::Key_End, Qt::ControlModifier, {4, 5, 4, 5}},
      {Qt::Key_PageDown, Qt::NoModifier, {4, 3, 4, 3}},
      {Qt::Key_PageUp, Qt::NoModifier, {1, 3, 1, 3}},
      {Qt::Key_Left, Qt::ShiftModifier, {2, 3, 3, 3}},
      {Qt::Key_Right, Qt::ShiftModifier, {2, 3, 3, 5}},
      {Qt::Key_Up, Qt::ShiftModifier, {2, 3, 2, 4}},
      {Qt::Key_Home, Qt::ShiftModifier, {2, 3, 3, 1}},
      {Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier, {2, 3, 4, 5}},
      {Qt::Key_A, Qt::ControlModifier, {1, 1, 4, 5}},
  };
  for (const auto& each : cases) {
    grid.setSelection({2, 3, 3, 4});
    QTest::keyClick(&view, each.key, each.modifiers);
    EXPECT_EQ(grid.selection(), each.expected) << each.key << ' ' << each.modifiers;
  }
}

TEST_F(GridViewTest, TheMouseSelectsInAnyDirection) {
  drag(cell(3, 4), cell(1, 2));
  EXPECT_EQ(grid.selection(), (GridSelection{3, 4, 1, 2}));
  drag(cell(1, 5), cell(4, 1));
  EXPECT_EQ(grid.selection(), (GridSelection{1, 5, 4, 1}));
  drag(cell(2, 2), QPoint(1000, 1000));
  EXPECT_EQ(grid.selection(), (GridSelection{2, 2, 4, 5})) << "beyond the edge";
  click(4, 4);
  click(2, 1, Qt::ShiftModifier);
  EXPECT_EQ(grid.selection(), (GridSelection{4, 4, 2, 1}));
}

TEST_F(GridViewTest, HeadersSelectWholeRowsAndColumns) {
  QWidget* const across = view.horizontalHeader()->viewport();
  QWidget* const down = view.verticalHeader()->viewport();
  QTest::mouseClick(across, Qt::LeftButton, {}, QPoint(29 + 14, 8));
  EXPECT_EQ(grid.selection(), (GridSelection{1, 2, 4, 2}));
  QTest::mouseClick(down, Qt::LeftButton, {}, QPoint(20, 2 * 16 + 8));
  EXPECT_EQ(grid.selection(), (GridSelection{3, 1, 3, 5}));
  QTest::mouseClick(view.childAt(10, 8), Qt::LeftButton);
  EXPECT_EQ(grid.selection(), (GridSelection{1, 1, 4, 5})) << "the corner";
}

TEST_F(GridViewTest, ARightPressKeepsASelectionThatItHits) {
  std::vector<GridSelection> seen;
  grid.onMouseDown = [&](MouseButton button) {
    if (button == MouseButton::right) seen.push_back(grid.selection());
  };
  grid.setSelection({1, 1, 2, 2});
  QTest::mousePress(view.viewport(), Qt::RightButton, {}, cell(2, 1));
  QTest::mousePress(view.viewport(), Qt::RightButton, {}, cell(4, 4));
  const std::vector<GridSelection> expected{{1, 1, 2, 2}, {4, 4, 4, 4}};
  EXPECT_EQ(seen, expected);
}

TEST_F(GridViewTest, CharactersGoToTheRecordAndOneReleaseEndsAHeldKey) {
  std::u32string typed;
  int releases = 0;
  grid.onKey = [&](char32_t key) { typed += key; };
  grid.onKeyUp = [&] { ++releases; };
  QTest::keyPress(&view, '+');
  QKeyEvent repeatedRelease(QEvent::KeyRelease, Qt::Key_Plus, {}, QStringLiteral("+"), true);
  QCoreApplication::sendEvent(&view, &repeatedRelease);
  EXPECT_EQ(releases, 0);
  QTest::keyRelease(&view, '+');
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_EQ(typed, U"+");
  EXPECT_EQ(releases, 4) << "any key counts, Ctrl and Escape as well";
}

TEST_F(GridViewTest, ADoubleClickOrF2EditsTheCurrentCell) {
  std::vector<int> edited;
  grid.onDoubleClick = [&] { edited.push_back(grid.row() * 10 + grid.column()); };
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, cell(3, 2));
  QTest::mouseDClick(view.viewport(), Qt::RightButton, {}, cell(1, 1));
  grid.setSelection({4, 5, 4, 5});
  QTest::keyClick(&view, Qt::Key_F2);
  QTest::keyClick(&view, Qt::Key_Return);
  EXPECT_EQ(edited, (std::vector<int>{32, 45, 45}));
}

TEST_F(GridViewTest, AGridThatTakesNoInputKeepsItsSelection) {
  grid.setSelection({1, 1, 2, 2});
  window.setEnabled(false);
  click(4, 4);
  QTest::keyClick(&view, Qt::Key_Down);
  EXPECT_EQ(grid.selection(), (GridSelection{1, 1, 2, 2}));
}

TEST_F(GridViewTest, CellsShowTheirColoursAndTheSelectionStandsOut) {
  grid.setSelection({4, 5, 4, 5});
  grid.setCell(1, 1, "", rgb(255, 0, 0));
  grid.setCell(1, 2, "", rgb(0, 0, 255));
  EXPECT_EQ(pixel(cell(1, 1)), QColor(255, 0, 0));
  EXPECT_EQ(pixel(cell(1, 2)), QColor(0, 0, 255));
  EXPECT_EQ(pixel(cell(2, 2)), QColor(255, 255, 255));
  EXPECT_EQ(pixel({28, 8}), QColor(64, 64, 64)) << "the line between two cells";
  grid.setSelection({1, 1, 1, 2});
  EXPECT_EQ(pixel(cell(1, 1)), QColor(255, 0, 0)) << "the current cell keeps its colour";
  EXPECT_GT(pixel(cell(1, 2)).lightness(), QColor(0, 0, 255).lightness() + 50);
}

TEST_F(GridViewTest, ASizeBetweenTwoPaintsIsNeverReadOutside) {
  grid.resize(2, 2);
  view.viewport()->grab();
  view.verticalHeader()->grab();
  grid.resize(40, 60);
  view.applyChanges();
  grid.resize(0, 0);
  view.viewport()->grab();
  view.applyChanges();
  view.grab();
  QTest::keyClick(&view, Qt::Key_Down);
  EXPECT_EQ(view.model()->rowCount(), 0);
}

TEST_F(GridViewTest, HidingWithinOneEventDoesNotShow) {
  {
    const GridPause pause(grid, GridPause::Hide::yes);
    EXPECT_TRUE(view.isVisible());
  }
  QCoreApplication::processEvents();
  EXPECT_TRUE(view.isVisible());
  grid.setVisible(false);
  QCoreApplication::processEvents();
  EXPECT_FALSE(view.isVisible());
}

TEST_F(GridViewTest, ScalesScrollWithTheirMapInEachSizeOfTheWindow) {
  grid.resize(41, 41);
  Grid load{window, 2, 17, 1, 1, {}};
  Grid speed{window, 16, 1, 0, 0, {}};
  for (Grid* scale : {&load, &speed}) scale->setColumnWidths(430);
  load.setColumnWidth(0, 620);
  QWidget panel;
  auto* const cells = new QGridLayout(&panel);
  auto* const loadView = new GridView(load);
  auto* const speedView = new GridView(speed);
  auto* const map = new GridView(grid);
  loadView->followColumnsOf(map);
  speedView->followRowsOf(map);
  cells->addWidget(loadView, 0, 1);
  cells->addWidget(speedView, 1, 0, Qt::AlignTop);
  cells->addWidget(map, 1, 1);
  panel.show();
  const auto expectAligned = [&](const char* when) {
    QCoreApplication::processEvents();
    EXPECT_EQ(loadView->columnViewportPosition(9), map->columnViewportPosition(9)) << when;
    EXPECT_EQ(speedView->rowViewportPosition(9), map->rowViewportPosition(9)) << when;
  };
  panel.resize(900, 500);
  expectAligned("at first");
  map->horizontalScrollBar()->setValue(map->horizontalScrollBar()->maximum());
  map->verticalScrollBar()->setValue(map->verticalScrollBar()->maximum());
  expectAligned("at the end");
  const int place = map->verticalScrollBar()->value();
  EXPECT_GT(place, 16 * 16 - 100) << "further than the scale itself could scroll";
  for (const QSize size : {QSize(500, 300), QSize(1200, 600), QSize(400, 200)}) {
    panel.resize(size);
    expectAligned("in another size");
  }
  EXPECT_GT(map->verticalScrollBar()->value(), 0) << "the map keeps its place";
  loadView->horizontalScrollBar()->setValue(11);
  EXPECT_EQ(map->horizontalScrollBar()->value(), 11);
  expectAligned("after the scale was scrolled");
}

}  // namespace
