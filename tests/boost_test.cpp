// The boost that each load stands for: the formula's single-precision order, the two rows and the
// command that refreshes them.
#include "core/boost.h"

#include "platform/failure.h"
#include "platform/numbers.h"
#include "support.h"

namespace {

class Boost : public ProgramTest {
 protected:
  Boost() : bytes{0, 16, 32, 48, 64, 80, 96, 112} {
    startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("TP_SCALE_FUEL", "0", 4, 1, 4) +
                 mapBlock("TP_SCALE_FIRE", "4", 4, 1, 4));
    bytes.resize(0x100, 1);
  }
  std::string rows() const {
    std::string texts;
    for (int c = 0; c < 10; ++c) texts += (c < 5 ? fuel : fire).text(0, c % 5) + ' ';
    return texts;
  }
  void recalculateOld() {
    for (Grid* grid : {&fuel, &fire}) {
      for (int c = 0; c <= 4; ++c) grid->setText(0, c, "old");
    }
    pick("TP_BST_RECAL");
  }
  Bytes bytes;
  Grid& fuel = form1().TP_FUEL;
  Grid& fire = form1().TP_FIRE;
};

// The expected texts were worked out step by step outside this program. In double precision
// throughout rows 3 and 4 end in 8 and 2, in single precision throughout row 5 ends in 4; row 2
// ends in 9 where the product with 60000 alone stays in double precision.
TEST_F(Boost, IsRoundedToSinglePrecisionAtEachStep) {
  const std::tuple<int, int, int, int, const char*> cases[] = {
      {2000, 370, 4, 64, "-0.15"},    {1863, 370, 3, 200, "1.18"}, {810, 720, 3, 250, "11.39"},
      {1863, 370, 8, 225, "5.63"},    {4554, 550, 8, 210, "2.75"}, {2000, 370, 4, 0, "-1.03"},
      {1, 1, 2147483647, 0, "-1.03"}, {2000, 370, 4, 75, "0.00"},  {2000, 370, 0, 64, ""},
      {2000, 0, 4, 64, ""},           {0, 370, 4, 64, ""}};
  for (const auto& [displacement, injectorSize, cylinders, tp, expected] : cases) {
    editorState.displacement = displacement;
    editorState.injectorSize = injectorSize;
    editorState.cylinders = cylinders;
    std::string text;
    trapFailure([&text, load = tp] { text = formatFixed(boostFromTp(load), 2); });
    EXPECT_EQ(text, expected) << displacement << ' ' << tp;
  }
}

TEST_F(Boost, RowsStandAfterALoadAloneAndTheCommandRefreshesThemInTheLanguage) {
  recalculateOld();
  EXPECT_EQ(rows(), "old old old old old old old old old old ") << "no image yet";
  loadImage(bytes);
  EXPECT_EQ(rows(), "Boost -1.03 -0.81 -0.59 -0.37 Boost -0.15 0.07 0.29 0.51 ");
  EXPECT_EQ(saveImage("same.bin"), bytes);
  editorState.english = 0;
  recalculateOld();
  EXPECT_EQ(rows(), "加給圧 -1.03 -0.81 -0.59 -0.37 加給圧 -0.15 0.07 0.29 0.51 ");
  fuel.setText(1, 3, "12x");
  recalculateOld();
  EXPECT_EQ(rows(), "old -1.03 -0.81 old old old old old old old ");
}

}  // namespace
