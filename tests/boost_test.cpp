// The boost that each load stands for: the formula's single-precision order, the two rows and the
// command that refreshes them.
#include "calc/boost.h"

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
  static void setEngine(int displacement, int injectorSize, int cylinders) {
    editorState.displacement = displacement;
    editorState.injectorSize = injectorSize;
    editorState.cylinders = cylinders;
  }
  std::string rows() const { return rowText(fuel, 0, 5) + "| " + rowText(fire, 0, 5); }
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
  const struct {
    int displacement, injectorSize, cylinders, tp;
    const char* text;
  } cases[] = {
      {2000, 370, 4, 64, "-0.15"},    {1863, 370, 3, 200, "1.18"}, {810, 720, 3, 250, "11.39"},
      {1863, 370, 8, 225, "5.63"},    {4554, 550, 8, 210, "2.75"}, {2000, 370, 4, 0, "-1.03"},
      {1, 1, 2147483647, 0, "-1.03"}, {2000, 370, 4, 75, "0.00"},  {2000, 370, 0, 64, ""},
      {2000, 0, 4, 64, ""},           {0, 370, 4, 64, ""}};
  for (const auto& each : cases) {
    setEngine(each.displacement, each.injectorSize, each.cylinders);
    std::string text;
    trapFailure([&] { text = formatFixed(boostFromTp(each.tp), 2); });
    EXPECT_EQ(text, each.text) << each.displacement << ' ' << each.tp;
  }
}

TEST_F(Boost, RowsStandAfterALoadAloneAndTheCommandRefreshesThemInTheLanguage) {
  recalculateOld();
  EXPECT_EQ(told(), "ROM DATA reads and been crowded, a calculation of boost aren't possible.");
  EXPECT_EQ(rows(), "old old old old old | old old old old old ");
  loadImage(bytes);
  EXPECT_EQ(rows(), "Boost -1.03 -0.81 -0.59 -0.37 | Boost -0.15 0.07 0.29 0.51 ");
  EXPECT_EQ(saveImage("same.bin"), bytes);
  std::vector<std::string> words;
  Label& label = form1().Label13;
  label.observer = [&](const Change&) { words.push_back(label.caption() + "/" + fuel.text(0, 0)); };
  editorState.english = 0;
  recalculateOld();
  EXPECT_EQ(words, (std::vector<std::string>{"BOOST CALC./old", "/加給圧"}));
  EXPECT_EQ(rows(), "加給圧 -1.03 -0.81 -0.59 -0.37 | 加給圧 -0.15 0.07 0.29 0.51 ");
  label.observer = nullptr;
}

TEST_F(Boost, AFailureEndsItSilentlyWhereItStands) {
  struct Case {
    const char* cell;  // the third TP value
    int cylinders, injectorSize;
    std::string fuelRow, fireRow;
  };
  const char* const untouched = "old old old old old ";
  const char* const begun = "old -1.03 -0.81 old old ";
  const char* const done = "Boost -0.15 0.07 0.29 0.51 ";
  loadImage(bytes);
  for (const Case& c :
       {Case{"32", 0, 370, untouched, untouched}, Case{"32", 4, 0, untouched, untouched},
        Case{"", 4, 370, begun, untouched}, Case{"12x", 4, 370, begun, untouched},
        Case{"1e400", 4, 370, begun, untouched},
        Case{"12.5", 4, 370, "Boost -1.03 -0.81 -0.87 -0.37 ", done},
        Case{"300", 4, 370, "Boost -1.03 -0.81 3.11 -0.37 ", done},
        Case{"-32", 4, 370, "Boost -1.03 -0.81 -1.48 -0.37 ", done}}) {
    setEngine(1998, c.injectorSize, c.cylinders);
    fuel.setText(1, 3, c.cell);
    recalculateOld();
    EXPECT_EQ(rows(), c.fuelRow + "| " + c.fireRow) << c.cell;
    EXPECT_TRUE(fuel.redraw() && fire.redraw());
  }
  EXPECT_TRUE(desk.boxes.empty());
}

}  // namespace
