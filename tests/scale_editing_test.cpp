// The load and engine-speed scales under the user's hands, and the boost row that follows them.
#include <numeric>

#include "support.h"

namespace {

class ScaleEditing : public ProgramTest {
 protected:
  // Steps of 50 for the fuel map's engine speeds and of 30 for the ignition map's; the bytes count.
  void load() {
    startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("TP_SCALE_FUEL", "&H40", 8, 1, 8) +
                 mapBlock("TP_SCALE_FIRE", "&H48", 8, 1, 8) +
                 mapBlock("RPM_SCALE_FUEL", "&H50", 8, 1, 8, "50") +
                 mapBlock("RPM_SCALE_FIRE", "&H58", 8, 1, 8, "30"));
    Bytes bytes(0x100);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
    loadImage(bytes);
  }
  std::string boost(const Grid& grid) const { return rowText(grid, 0, 9); }
  Grid &tpFuel = form1().TP_FUEL, &tpFire = form1().TP_FIRE;
  Grid &fuel = form1().RPM_FUEL, &fire = form1().RPM_FIRE;
};

TEST_F(ScaleEditing, EntriesAreLimitedByTheScaleTheyBelongTo) {
  load();
  struct Case {
    Grid& grid;
    int row, column;
    const char *answer, *text;
  };
  for (const auto& [grid, row, column, answer, text] :
       {Case{tpFuel, 1, 2, "300", "255"}, Case{tpFire, 1, 2, "-1", "0"},
        Case{tpFire, 1, 8, "12.5", "12"}, Case{tpFuel, 1, 1, "fast", "64"},
        Case{fuel, 0, 0, "1234", "1234"}, Case{fuel, 7, 0, "99999", "99999"},
        Case{fire, 3, 0, "-30", "0"}, Case{fire, 3, 0, "1e30", "2147483647"},
        Case{fire, 3, 0, "", "2147483647"}}) {
    enterCell(grid, row, column, answer);
    EXPECT_EQ(grid.text(row, column), text) << answer;
    EXPECT_EQ(desk.prompts.back().text,
              std::string("Data?\r\n\r\n") +
                  (row == 1 ? "For a size of data that I can set up, 0 - 255" : ""));
    EXPECT_FALSE(grid.painted(row, column));
  }
  drag(fuel, 12, 0, 12, 0);
  fuel.userDoubleClick();  // below the scale's eight values
}

TEST_F(ScaleEditing, StepsFollowEachScalesOwnStepAndLimit) {
  load();
  struct Case {
    Grid& grid;
    int row;
    const char *before, *raised, *lowered;
  };
  for (const auto& [grid, row, before, raised, lowered] :
       {Case{tpFuel, 1, "255", "255", "254"}, Case{tpFire, 1, "0", "1", "0"},
        Case{tpFuel, 1, "", "1", "0"}, Case{tpFuel, 1, "300", "255", "299"},
        Case{fuel, 2, "14950", "15000", "14900"}, Case{fuel, 2, "15000", "15000", "14950"},
        Case{fuel, 2, "30", "80", "0"}, Case{fire, 2, "30", "60", "0"},
        Case{fire, 2, "14980", "15000", "14950"}, Case{fuel, 2, "20000", "15000", "19950"},
        Case{fuel, 2, "99.5", "150", "50"}}) {
    const int column = grid.fixedColumns();
    drag(grid, row, column, row, column);
    for (const char key : {'+', '-'}) {
      grid.setText(row, column, before);
      grid.userKey(static_cast<char32_t>(key));
      EXPECT_EQ(grid.text(row, column), key == '+' ? raised : lowered) << before;
    }
  }
  editorState.addressMap.map(RPM_SCALE_FUEL).scale = -50;
  fuel.setText(2, 0, "30");
  fuel.userKey('+');
  EXPECT_EQ(fuel.text(2, 0), "-20");
}

TEST_F(ScaleEditing, TheBoostRowsFollowEveryEntryAtOnce) {
  load();
  const std::string before = boost(tpFire);
  tpFire.setText(0, 1, "stale");
  enterCell(tpFuel, 1, 1, "0");
  EXPECT_EQ(tpFuel.text(0, 1), "-1.03");
  EXPECT_EQ(boost(tpFire), before);
  tpFire.setText(0, 1, "stale");
  for (const char* answer : {"", "no number"}) enterCell(tpFuel, 1, 1, answer);
  enterCell(fuel, 1, 0, "700");
  EXPECT_EQ(tpFire.text(0, 1), "stale");
}

TEST_F(ScaleEditing, AKeyOnASelectionRefreshesTheBoostRowsOnce) {
  load();
  const std::string before = boost(tpFuel);
  const auto repaints = [&](Grid& grid, char32_t key) {
    return repaintsOf(grid, [&] { tpFuel.userKey(key); });
  };
  drag(tpFuel, 1, 5, 1, 3);
  EXPECT_EQ(repaints(tpFire, '*') + repaints(tpFuel, '*'), 0);
  EXPECT_EQ(boost(tpFuel), before);
  EXPECT_EQ(repaints(tpFire, '+'), 1);
  EXPECT_NE(boost(tpFuel), before);
  EXPECT_EQ(tpFuel.text(1, 3), "67");
  EXPECT_EQ(tpFuel.selection(), (GridSelection{1, 5, 1, 3}));
  EXPECT_EQ(repaints(tpFuel, '-'), 1);
  EXPECT_EQ(boost(tpFuel), before);
  editorState.minusKey = "+";
  tpFuel.userKey('+');
  EXPECT_EQ(boost(tpFuel), before);
}

TEST_F(ScaleEditing, AnEngineSpeedBetweenTwoStepsIsStoredRoundedDown) {
  load();
  enterCell(fuel, 4, 0, "1234");
  enterCell(fire, 4, 0, "1234");
  const Bytes saved = saveImage("scaled.bin");
  EXPECT_EQ(saved[0x54], 24);
  EXPECT_EQ(saved[0x5C], 41);
  EXPECT_EQ(fuel.text(4, 0), "1234");
  pickFile("load_bin_file", "scaled.bin");
  EXPECT_EQ(fuel.text(4, 0), "1200");
  EXPECT_EQ(fire.text(4, 0), "1230");
}

}  // namespace
