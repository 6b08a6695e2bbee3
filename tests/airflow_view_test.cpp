// The airflow map's curve below its grid, and when it follows the grid.
#include "core/airflow_view.h"

#include "support.h"

namespace {

constexpr Colour lineGreen = rgb(0, 96, 0);
constexpr Colour tickYellow = rgb(255, 255, 128);
constexpr std::size_t meshItems = 1 + 15 + 34;  // outline, horizontal and vertical lines

class AirflowView : public ProgramTest {
 protected:
  // A car whose airflow map holds the words 0, 65535, 290 and 29000.
  AirflowView() {
    startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("VQ_MAP", "&H4", 1, 1, 9));
    Bytes bytes = {1, 1, 1, 1, 0, 0, 255, 255, 1, 34, 113, 72};
    bytes.resize(0x200);
    loadImage(bytes);
  }
  const std::vector<CanvasItem>& items() const { return form1().Picture2.items(); }
  // The curve's items: a line and a tick for each point, a bar for the last.
  std::vector<CanvasItem> curve() const { return {items().begin() + meshItems, items().end()}; }
};

TEST_F(AirflowView, DrawsFrameMeshAndACurveOfTicks) {
  ASSERT_GT(items().size(), meshItems);
  const auto line = CanvasItem::line;
  EXPECT_EQ(items()[0], (CanvasItem{CanvasItem::outline, rgb(0, 128, 0), 2, 2, 563, 235}));
  EXPECT_EQ(items()[15], (CanvasItem{line, lineGreen, 18, 11, 546, 11}));
  EXPECT_EQ(items()[49], (CanvasItem{line, lineGreen, 546, 2, 546, 235}));
  EXPECT_EQ(curve(), (std::vector<CanvasItem>{{line, lineGreen, 26, 235, 34, 9},
                                              {line, tickYellow, 26, 234, 26, 236},
                                              {line, lineGreen, 34, 9, 42, 234},
                                              {line, tickYellow, 34, 8, 34, 10},
                                              {line, lineGreen, 42, 234, 50, 135},
                                              {line, tickYellow, 42, 233, 42, 235},
                                              {CanvasItem::bar, tickYellow, 50, 134, 50, 136}}));
  for (const int length : {2147483647, -2, 0}) drawAirflowView(form1().Grid5, length);
  EXPECT_EQ(curve().size(), 1U);
  form1().Grid5.setText(1, 3, "1e400");
  drawAirflowView(form1().Grid5, 8);
  EXPECT_EQ(items().back().y1, -1) << "nothing is drawn from an impossible value on";
}

TEST_F(AirflowView, FollowsItsGrid) {
  Grid& grid = form1().Grid5;
  const auto heightOfSecond = [this] { return 235 - curve()[2].y1; };
  enterCell(grid, 1, 2, "2900");
  EXPECT_EQ(heightOfSecond(), 10);
  grid.setText(1, 2, "5800");
  grid.userKeyUp();
  EXPECT_EQ(heightOfSecond(), 20);
}

}  // namespace
