// The single parameters in their boxes: what they show, what may be typed, and what is stored.
#include "core/global_parameters.h"

#include "support.h"

namespace {

constexpr std::size_t place = 0x40;  // of the parameter under test

class GlobalParameters : public ProgramTest {
 protected:
  // A car with one parameter, loaded from `stored` at its place; FF all around.
  void load(ParamId id, int bytes, const std::string& scale, const Bytes& stored) {
    Bytes image(0x100, 0xFF);
    std::copy(stored.begin(), stored.end(), image.begin() + place);
    loadUnder(mapBlock(paramKinds()[id].keyword, "&H40", 0, 0, bytes, scale), image);
  }
  void loadUnder(const std::string& blocks, const Bytes& image) {
    startAnewWithMap("TYPE_UNIT\r\nCAR\r\n" + blocks);
    loadImage(image);
  }
  static TextBox& boxOf(ParamId id) { return form1().*paramKinds()[id].box; }
  Bytes saved(std::size_t count) {
    pick("update_bin_file");
    const Bytes bytes = readBytes("image.bin");
    return {bytes.begin() + place, bytes.begin() + static_cast<std::ptrdiff_t>(place + count)};
  }
};

TEST_F(GlobalParameters, BoxesShowWhatTheImageHolds) {
  struct Case {
    ParamId id;
    int bytes;
    const char* scale;
    Bytes stored;
    const char* text;
  };
  const Case cases[] = {
      {K_DATA, 2, "0", {0x0A, 0xFF}, "0AFF"},
      {ADD_BYTE3, 5, "0", {0, 1, 2, 3, 0xAB}, "00010203AB"},
      {REV2_LIMIT, 2, "12.5", {0x02, 0x08}, "6500"},
      {REV3_LIMIT, 1, "0.3", {10}, "3"},
      {REV4_LIMIT, 3, "1", {1, 0, 1}, "65537"},
      {SPEED1_LIMIT, 4, "1", {0xFF, 0xFF, 0xFF, 0xFE}, "-2"},
      {SPEED2_LIMIT, 4, "0.3", {0xFF, 0xFF, 0xFF, 0xFF}, "-1"},
      {SPEED3_LIMIT, 1, "-2.5", {3}, "-8"},
      {SPEED4_LIMIT, 1, "1e10", {200}, "2000000000000"},
      {SPEED1_LIMIT, 1, "km", {200}, "0"},
      {SPEED4_LIMIT, 5, "1", {1, 2, 3, 4, 5}, "N/A"},
  };
  for (const Case& c : cases) {
    load(c.id, c.bytes, c.scale, c.stored);
    EXPECT_EQ(boxOf(c.id).text(), c.text);
    EXPECT_EQ(boxOf(c.id).takesInput(), c.bytes <= 4 || c.id == ADD_BYTE3) << c.text;
    EXPECT_TRUE(desk.boxes.empty()) << lastBox();
  }
}

// An empty row: a box tells of it and nothing is stored.
TEST_F(GlobalParameters, WhatStandsInABoxIsStored) {
  struct Case {
    ParamId id;
    int bytes;
    const char *scale, *pasted;
    Bytes stored;
  };
  const Bytes kept{1, 2, 3, 4, 5};
  const Case cases[] = {
      {K_DATA, 3, "0", "1GxyA", {0x01, 0x00, 0x0A, 4}},
      {IGN_TIME, 1, "0", "ABC", {0xAB, 2}},
      {ADD_BYTE2, 2, "0", "あ12", {0x00, 0x02, 3}},
      {REV1_LIMIT, 2, "12.5", "6500", {0x02, 0x08, 3}},
      {REV1_LIMIT, 1, "12.5", "6500", {0x20, 2}},
      {REV2_LIMIT, 3, "1", "70000x", {0x01, 0x11, 0x70, 4}},
      {SPEED1_LIMIT, 4, "2", "-3", {0xFF, 0xFF, 0xFF, 0xFE, 5}},
      {SPEED1_LIMIT, 2, "-2.5", "-8", {0, 3, 3}},
      {REV3_LIMIT, 1, "1e30", "5", {0, 2}},
      {SPEED2_LIMIT, 2, "0", "7", {}},
      {SPEED2_LIMIT, 2, "1", "1e400", {}},
      {SPEED3_LIMIT, 4, "0.001", "99999999", {}},
  };
  for (const Case& c : cases) {
    load(c.id, c.bytes, c.scale, kept);
    typeOver(boxOf(c.id), "");
    boxOf(c.id).userPaste(c.pasted);
    const Bytes& expected = c.stored.empty() ? kept : c.stored;
    EXPECT_EQ(saved(expected.size()), expected) << c.pasted;
    EXPECT_EQ(lastBox(), c.stored.empty() ? "ERROR (Function:ANY_SET_MEMORY)" : "") << c.pasted;
  }
}

TEST_F(GlobalParameters, AScaledValueMayChangeByItself) {
  load(SPEED1_LIMIT, 1, "0.3", {10});
  desk.boxAnswers = {BoxAnswer::no};
  pick("load_bin_file");  // the guard writes back and finds the difference
  EXPECT_TRUE(desk.boxAnswers.empty());
  EXPECT_EQ(boxOf(SPEED1_LIMIT).text(), "3");
  EXPECT_EQ(saved(1), Bytes{9});
}

TEST_F(GlobalParameters, KeysAreFilteredInTheScaledBoxesAlone) {
  std::string blocks;
  for (const ParamKind& kind : paramKinds()) blocks += mapBlock(kind.keyword, "&H40", 0, 0, 2, "1");
  loadUnder(blocks, patternImage(0x100));
  for (const ParamKind& kind : paramKinds()) {
    TextBox& box = form1().*kind.box;
    box.userFocus();
    box.userType("a1-2.Z34");
    const bool limited = kind.id == IGN_TIME || kind.id == FB_SWITCH;
    EXPECT_EQ(box.text(), kind.scaled() ? "1234" : limited ? "a1-2" : "a1-2.Z34") << kind.keyword;
    box.userType("\b");
    box.userPaste("x");
    EXPECT_EQ(box.text().back(), 'x') << kind.keyword;
  }
}

TEST_F(GlobalParameters, AbsentOnesAreGreyAndKeepTheirText) {
  loadUnder(mapBlock("K_DATA", "64", 0, 0, 1, "0", "計数") +
                mapBlock("REV1_LIMIT", "66", 0, 0, 1, "2", "\"Fuel cut, upper\""),
            patternImage(0x100));
  for (const ParamKind& kind : paramKinds()) {
    const bool present = kind.id == K_DATA || kind.id == REV1_LIMIT;
    const Label& label = form1().*kind.label;
    TextBox& box = form1().*kind.box;
    EXPECT_EQ(label.colour(), present ? black : rgb(128, 128, 128)) << kind.keyword;
    EXPECT_EQ(box.enabled(), present) << kind.keyword;
    EXPECT_EQ(label.caption() == kind.keyword, !present) << kind.keyword;
    if (!present) typeOver(box, "7");
    EXPECT_EQ(box.text() == "N/A", !present) << kind.keyword;
  }
  EXPECT_EQ(form1().Label6.caption(), "Fuel cut, upper");
  EXPECT_EQ(form1().Text4.toolTip(), "Fuel cut, upper 66:1byte");
  EXPECT_EQ(form1().Label33.caption() + form1().Label26.caption(), "RPMKm/h");
}

TEST_F(GlobalParameters, OneOutsideTheImageEndsTheTailAndLosesNoByte) {
  const Bytes image = patternImage(0x50);
  for (const char* keyword : {"IGN_TIME", "REV1_LIMIT", "SPEED4_LIMIT"}) {
    for (const int bytes : {2, 5, 100, 2147483647}) {
      loadUnder(mapBlock("TP_SCALE_FUEL", "0", 4, 1, 4) + mapBlock("K_DATA", "&H40", 0, 0, 2) +
                    mapBlock(keyword, "&H4F", 0, 0, bytes, "1"),
                image);
      EXPECT_NE(lastBox().find("*ERROR = [9]"), std::string::npos) << keyword << bytes;
      EXPECT_EQ(boxOf(K_DATA).text().size(), 4U);
      EXPECT_EQ(form1().TP_FUEL.text(0, 0), "") << "the boost comes after the parameters";
      for (const MapKind& kind : mapKinds()) EXPECT_TRUE(gridOf(kind).redraw());
      saved(1);
      EXPECT_EQ(lastBox(), "ERROR (Function:ANY_SET_MEMORY)");
      EXPECT_EQ(readBytes("image.bin"), image) << keyword << bytes;
    }
  }
}

}  // namespace
