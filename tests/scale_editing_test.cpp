// The load and engine-speed scales under the user's hands, and the boost row that follows them.
#include "core/map_display.h"
#include "support.h"

namespace {

class ScaleEditing : public ProgramTest {
 protected:
  // Steps of 50 for the fuel map's engine speeds and of 30 for the ignition map's.
  void load() {
    startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("TP_SCALE_FUEL", "&H40", 8, 1, 8) +
                 mapBlock("TP_SCALE_FIRE", "&H48", 8, 1, 8) +
                 mapBlock("RPM_SCALE_FUEL", "&H50", 8, 1, 8, "50") +
                 mapBlock("RPM_SCALE_FIRE", "&H58", 8, 1, 8, "30") +
                 mapBlock("TTP_MAX", "&H60", 4, 1, 4));
    Bytes bytes(0x100);
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i);
    loadImage(bytes);
  }
  void reload(const std::string& name) {
    desk.openAnswers.push_back(path(name));
    pick("load_bin_file");
  }
  std::string boost(const Grid& grid) const {
    std::string row;
    for (int c = 1; c <= 8; ++c) row += grid.text(0, c) + ' ';
    return row;
  }
  Form1& form = form1();
};

TEST_F(ScaleEditing, EntriesAreLimitedByTheScaleTheyBelongTo) {
  load();
  const char* const range = "Data?\r\n\r\nFor a size of data that I can set up, 0 - 255";
  const char* const bare = "Data?\r\n\r\n";
  struct Case {
    Grid& grid;
    int row, column;
    const char *answer, *text, *question;
  };
  const Case cases[] = {
      {form.TP_FUEL, 1, 2, "300", "255", range},
      {form.TP_FIRE, 1, 2, "-1", "0", range},
      {form.TP_FIRE, 1, 8, "12.5", "12", range},
      {form.RPM_FUEL, 0, 0, "1234", "1234", bare},
      {form.RPM_FUEL, 7, 0, "99999", "99999", bare},
      {form.RPM_FIRE, 3, 0, "-30", "0", bare},
      {form.RPM_FIRE, 3, 0, "1e30", "2147483647", bare},
      {form.RPM_FIRE, 3, 0, "", "2147483647", bare},
      {form.TP_FUEL, 1, 1, "fast", "64", range},
  };
  for (const Case& c : cases) {
    enterCell(c.grid, c.row, c.column, c.answer);
    EXPECT_EQ(c.grid.text(c.row, c.column), c.text) << c.answer;
    EXPECT_EQ(desk.prompts.back().text, c.question);
    EXPECT_FALSE(c.grid.painted(c.row, c.column));
  }
  editorState.english = 0;
  enterCell(form.RPM_FUEL, 0, 0, "");
  EXPECT_EQ(desk.prompts.back().text, "データは？\r\n\r\n");
  EXPECT_EQ(desk.prompts.back().title, "データ変更");
  drag(form.RPM_FUEL, 12, 0, 12, 0);
  form.RPM_FUEL.userDoubleClick();  // below the scale's eight values
}

TEST_F(ScaleEditing, StepsFollowEachScalesOwnStepAndLimit) {
  load();
  struct Case {
    Grid& grid;
    int row;
    const char *before, *raised, *lowered;
  };
  const Case cases[] = {
      {form.TP_FUEL, 1, "255", "255", "254"},
      {form.TP_FIRE, 1, "0", "1", "0"},
      {form.TP_FUEL, 1, "", "1", "0"},
      {form.TP_FUEL, 1, "300", "255", "299"},
      {form.RPM_FUEL, 2, "14950", "15000", "14900"},
      {form.RPM_FUEL, 2, "15000", "15000", "14950"},
      {form.RPM_FUEL, 2, "30", "80", "0"},
      {form.RPM_FIRE, 2, "30", "60", "0"},
      {form.RPM_FIRE, 2, "14980", "15000", "14950"},
      {form.RPM_FUEL, 2, "20000", "15000", "19950"},
      {form.RPM_FUEL, 2, "99.5", "150", "50"},
  };
  for (const Case& c : cases) {
    const int column = c.grid.fixedColumns();
    drag(c.grid, c.row, column, c.row, column);
    for (const bool up : {true, false}) {
      c.grid.setText(c.row, column, c.before);
      c.grid.userKey(up ? '+' : '-');
      EXPECT_EQ(c.grid.text(c.row, column), up ? c.raised : c.lowered) << c.before;
    }
  }
  editorState.addressMap.map(RPM_SCALE_FUEL).scale = -50;
  form.RPM_FUEL.setText(2, 0, "30");
  form.RPM_FUEL.userKey('+');
  EXPECT_EQ(form.RPM_FUEL.text(2, 0), "-20");
}

TEST_F(ScaleEditing, TheBoostRowsFollowEveryEntryAtOnce) {
  load();
  const std::string fire = boost(form.TP_FIRE);
  form.TP_FIRE.setText(0, 1, "stale");
  enterCell(form.TP_FUEL, 1, 1, "0");
  EXPECT_EQ(form.TP_FUEL.text(0, 1), "-1.03");
  EXPECT_EQ(boost(form.TP_FIRE), fire);
  form.TP_FIRE.setText(0, 1, "stale");
  for (const char* answer : {"", "no number"}) enterCell(form.TP_FUEL, 1, 1, answer);
  enterCell(form.RPM_FUEL, 1, 0, "700");
  EXPECT_EQ(form.TP_FIRE.text(0, 1), "stale");
}

TEST_F(ScaleEditing, AKeyOnASelectionRefreshesTheBoostRowsOnce) {
  load();
  const std::string before = boost(form.TP_FUEL);
  drag(form.TP_FUEL, 1, 5, 1, 3);
  int fire = 0;
  const auto press = [&](char32_t key) {
    fire = repaintsOf(form.TP_FIRE, [&] {
      const int fuel = repaintsOf(form.TP_FUEL, [&] { form.TP_FUEL.userKey(key); });
      EXPECT_EQ(fuel, key == '*' ? 0 : 1) << static_cast<char>(key);
    });
  };
  press('*');
  EXPECT_EQ(fire, 0);
  EXPECT_EQ(boost(form.TP_FUEL), before);
  press('+');
  EXPECT_EQ(fire, 1);
  EXPECT_NE(boost(form.TP_FUEL), before);
  EXPECT_EQ(form.TP_FUEL.text(1, 3), "67");
  EXPECT_EQ(form.TP_FUEL.selection(), (GridSelection{1, 5, 1, 3}));
  press('-');
  EXPECT_EQ(boost(form.TP_FUEL), before);
  editorState.minusKey = "+";
  drag(form.TP_FUEL, 1, 1, 1, 1);
  form.TP_FUEL.userKey('+');
  EXPECT_EQ(boost(form.TP_FUEL), before);
}

TEST_F(ScaleEditing, AnEngineSpeedBetweenTwoStepsIsStoredRoundedDown) {
  load();
  enterCell(form.RPM_FUEL, 4, 0, "1234");
  enterCell(form.RPM_FIRE, 4, 0, "1234");
  const Bytes saved = saveImage("scaled.bin");
  EXPECT_EQ(saved[0x54], 24);
  EXPECT_EQ(saved[0x5C], 41);
  EXPECT_EQ(form.RPM_FUEL.text(4, 0), "1234");
  reload("scaled.bin");
  EXPECT_EQ(form.RPM_FUEL.text(4, 0), "1200");
  EXPECT_EQ(form.RPM_FIRE.text(4, 0), "1230");
}

TEST_F(ScaleEditing, WhatNoByteHoldsIsToldAndTheOtherMapsAreStored) {
  struct Case {
    Grid Form1::*grid;
    int row;
    const char* text;
  };
  const Case cases[] = {{&Form1::RPM_FUEL, 2, "12800"}, {&Form1::RPM_FUEL, 2, "-1"},
                        {&Form1::RPM_FUEL, 2, "1e400"}, {&Form1::TP_FUEL, 1, "255.6"},
                        {&Form1::TP_FUEL, 1, "256"},    {&Form1::TP_FUEL, 1, "-1"}};
  load();
  const Bytes original = editorState.image;
  int number = 0;
  for (const Case& c : cases) {
    Grid& grid = form.*c.grid;
    const std::string before = grid.text(c.row, grid.fixedColumns());
    grid.setText(c.row, grid.fixedColumns(), c.text);
    enterCell(form.Grid7, 1, 1, std::to_string(++number));
    desk.boxes.clear();
    pick("update_bin_file");
    ASSERT_EQ(desk.boxes.size(), 1U) << c.text;
    EXPECT_EQ(lastBox(), "ERROR (Function:SET_MEMORY)");
    EXPECT_EQ(readBytes("image.bin")[0x60], number);
    EXPECT_TRUE(grid.visible() && grid.redraw());
    grid.setText(c.row, grid.fixedColumns(), before);
  }
  enterCell(form.Grid7, 1, 1, "96");
  EXPECT_EQ(saveImage("mended.bin"), original);
}

}  // namespace
