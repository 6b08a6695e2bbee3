// Writing back: how each kind of cell is stored, what can't be stored, and the content test.
#include "core/rom_image.h"

#include <algorithm>
#include <cstdint>

#include "support.h"

namespace {

using F = Form1;

constexpr int fill = 0x54;
constexpr int bad = -1;
const std::string mapRefused = "ERROR (Function:SET_MEMORY)";

class RomImageTest : public ProgramTest {
 protected:
  // Two bytes of each kind in an image of 64 equal bytes.
  RomImageTest() {
    startWithMap("TYPE_UNIT\r\nX\r\n" + mapBlock("HIGH_FUEL", "16", 2, 1, 2) +
                 mapBlock("TP_SCALE_FIRE", "44", 2, 1, 2) +
                 mapBlock("RPM_SCALE_FUEL", "48", 2, 1, 2, "50") +
                 mapBlock("VQ_MAP", "12", 1, 1, 2) + mapBlock("ADD_MAP1", "20", 2, 1, 2, "2") +
                 mapBlock("ADD_MAP8", "24", 2, 1, 2, "-3") + mapBlock("K_DATA", "28", 1, 1, 2) +
                 mapBlock("REV1_LIMIT", "32", 1, 1, 2, "12.5") +
                 mapBlock("SPEED4_LIMIT", "36", 1, 1, 1, "1"));
    loadImage(Bytes(64, fill));
  }
};

TEST_F(RomImageTest, EachKindOfCellIsStoredByItsOwnRule) {
  struct Kind {
    int place, bytes;
    Grid F::*grid;  // its first cell
  };
  const Kind kinds[] = {{16, 1, &F::Grid1}, {44, 1, &F::TP_FIRE},  {48, 1, &F::RPM_FUEL},
                        {12, 2, &F::Grid5}, {20, 1, &F::AddGrid1}, {24, 1, &F::AddGrid14}};
  // A place, a text and what is stored; `bad`: a box, and the bytes stay.
  const std::tuple<int, const char*, int> rows[] = {
      {16, "7", 7},       {16, "255.4", 255}, {16, "255.6", bad},    {16, "-1", bad},
      {16, "-0.4", 0},    {16, "", 0},        {16, "12x", 12},       {16, " 2.5", 2},
      {16, "3.5", 4},     {16, "1e2", 100},   {16, "1e99", bad},     {44, "254.5", 254},
      {44, "256", bad},   {48, "99.9", 1},    {48, "12799", 255},    {48, "12800", bad},
      {20, "7", 3},       {20, "511.9", 255}, {20, "-1", bad},       {24, "-7", 2},
      {24, "1", bad},     {12, "258", 0x102}, {12, "65535", 0xFFFF}, {12, "70000", 0x1117},
      {12, "-1", 0xFFFF}, {12, "0.5", 0},     {12, "1e10", bad}};
  for (const auto& [place, text, stored] : rows) {
    SCOPED_TRACE(std::to_string(place) + " " + text);
    editorState.imageSize = 0;
    loadImage(Bytes(64, fill));
    const Kind& kind = *std::ranges::find(kinds, place, &Kind::place);
    Grid& grid = form1().*kind.grid;
    grid.setText(grid.fixedRows(), grid.fixedRows(), text);
    Bytes expected(64, fill);
    for (int i = 0; i < kind.bytes && stored != bad; ++i) {
      const auto last = static_cast<std::size_t>(place + kind.bytes - 1);
      expected.at(last - i) = static_cast<std::uint8_t>(stored >> 8 * i);
    }
    pick("update_bin_file");
    EXPECT_EQ(readBytes("image.bin"), expected);
    EXPECT_EQ(told(), stored == bad ? mapRefused : "");
  }
}

TEST_F(RomImageTest, AFailureLeavesWhatWasWrittenAndTheOtherMapsGoOn) {
  form1().Grid1.setText(1, 1, "1");
  form1().Grid1.setText(1, 2, "300");
  form1().RPM_FUEL.setText(1, 0, "500");
  form1().AddGrid1.setText(1, 1, "8");
  form1().Text1.setText("0102");
  form1().Text4.setText("99999999999");
  form1().Text9.setText("9");
  Bytes expected(64, fill);
  expected[16] = expected[28] = 1;
  expected[49] = 10;
  expected[20] = 4;
  expected[29] = 2;
  EXPECT_EQ(saveImage("saved.bin"), expected);
  EXPECT_EQ(told(), mapRefused + "|ERROR (Function:ANY_SET_MEMORY)");
}

TEST_F(RomImageTest, WhatNeverCouldBeDrawnOrHasNoScaleIsNeverWritten) {
  const Bytes image = patternImage(16);
  useMap("TYPE_UNIT\r\nX\r\n" + mapBlock("ADD_MAP1", "0", 2, 1, 2, "0") +
         mapBlock("REV1_LIMIT", "4", 1, 1, 2, "none"));
  loadImage(image);
  EXPECT_EQ(form1().AddGrid1.text(1, 1) + form1().Text4.text(), "00");
  EXPECT_EQ(saveImage("saved.bin"), image);
  useMap("TYPE_UNIT\r\nX\r\n" + mapBlock("HIGH_FUEL", "12", 4, 4, 16) +
         mapBlock("REG_FUEL", "-4", 4, 4, 16) + mapBlock("K_DATA", "15", 1, 1, 2));
  told();
  pick("update_bin_file");
  EXPECT_EQ(readBytes("saved.bin"), image);
  EXPECT_TRUE(told().ends_with("ERROR (Function:ANY_SET_MEMORY)")) << "one outside the image";
}

TEST_F(RomImageTest, TheContentTestReadsThirtyThreeBytesAndNoneOutside) {
  const std::tuple<std::int32_t, std::size_t, std::size_t, bool> table[] = {
      {100, 200, 15, true},  {100, 200, 16, false},   {100, 200, 99, false},
      {100, 200, 100, true}, {100, 200, 116, true},   {100, 200, 117, false},
      {190, 200, 199, true}, {200, 200, 199, false},  {100, 200, 0, true},
      {-5, 200, 16, false},  {INT32_MIN, 1, 0, true}, {INT32_MAX, 200, 16, false}};
  for (const auto& [probe, size, set, loaded] : table) {
    useMap("TYPE_UNIT\nX\n" + mapBlock("K_DATA", std::to_string(probe), 1, 1, 2));
    editorState.image = Bytes(size);
    editorState.image[set] = 1;
    EXPECT_EQ(isRomLoaded(), loaded) << probe << " " << set;
  }
}

}  // namespace
