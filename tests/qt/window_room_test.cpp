// Windows on a small screen: nothing is covered that a scroll bar could show.
#include "frontend/qt/window_room.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "core/form1.h"
#include "editing/address_grid.h"
#include "frontend/qt/qt_desktop.h"

namespace {

const QWidget* openWindow() {
  for (const QWidget* each : QApplication::topLevelWidgets()) {
    if (each->isVisible() && each->objectName() == QLatin1String("Form6")) return each;
  }
  return nullptr;
}

// The screen has 800 x 800 pixels.
TEST(WindowRoomTest, TheAddressEditorShowsAllOfAStretchThatFitsAlsoAtItsFirstOpening) {
  form6.centreOn(form1());
  const std::pair<int, int> stretches[] = {{64, 8}, {3, 64}, {64, 64}, {3, 5}, {64, 8}};
  for (const bool anew : {true, false}) {
    QtDesktop desk;
    for (const auto& [rows, columns] : stretches) {
      std::optional<QtDesktop> fresh;
      QtDesktop& desktop = anew ? fresh.emplace() : desk;
      form6.load();
      form6.eGrid.resize(rows + 1, columns + 1);
      form6.eGrid.setColumnWidths(430);
      desktop.showWindow(form6);
      const QWidget* const window = openWindow();
      ASSERT_TRUE(window);
      QTest::qWait(50);
      const auto* const grid = window->findChild<QTableView*>();
      SCOPED_TRACE(testing::Message() << rows << " x " << columns << " anew " << anew);
      EXPECT_EQ(grid->verticalScrollBar()->maximum() > 0, rows == 64);
      EXPECT_EQ(grid->horizontalScrollBar()->maximum() > 0, columns == 64);
      EXPECT_EQ(window->size().boundedTo(roomFor(window)), window->size());
      desktop.hideWindow(form6);
    }
  }
}

}  // namespace
