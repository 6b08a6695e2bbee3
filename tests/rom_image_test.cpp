// Writing back: how each kind of cell and parameter is stored, what can't be stored, and the
// content test.
#include "core/rom_image.h"

#include "support.h"

namespace {

using F = Form1;

constexpr int fill = 0x54;
constexpr int refused = -1;
const std::string mapRefused = "ERROR (Function:SET_MEMORY)";
const std::string paramRefused = "ERROR (Function:ANY_SET_MEMORY)";

class RomImageTest : public ProgramTest {
 protected:
  // Two bytes of each kind in an image of 64 equal bytes.
  RomImageTest() {
    startWithMap("TYPE_UNIT\r\nX\r\n" + mapBlock("HIGH_FUEL", "0", 2, 1, 2) +
                 mapBlock("TP_SCALE_FIRE", "4", 2, 1, 2) +
                 mapBlock("RPM_SCALE_FUEL", "8", 2, 1, 2, "50") +
                 mapBlock("VQ_MAP", "12", 1, 1, 2) + mapBlock("ADD_MAP1", "20", 2, 1, 2, "2") +
                 mapBlock("ADD_MAP8", "24", 2, 1, 2, "-3") + mapBlock("K_DATA", "28", 1, 1, 2) +
                 mapBlock("REV1_LIMIT", "32", 1, 1, 2, "12.5") +
                 mapBlock("SPEED4_LIMIT", "36", 1, 1, 1, "1"));
    loadImage(Bytes(64, fill));
  }
};

TEST_F(RomImageTest, EachKindOfCellIsStoredByItsOwnRule) {
  struct Row {
    Grid F::*grid;
    std::size_t place;
    const char* text;
    int stored;  // `refused`: a box, and the byte stays
  };
  const Row table[] = {{&F::Grid1, 0, "7", 7},
                       {&F::Grid1, 0, "255.4", 255},
                       {&F::Grid1, 0, "255.6", refused},
                       {&F::Grid1, 0, "-1", refused},
                       {&F::Grid1, 0, "-0.4", 0},
                       {&F::Grid1, 0, "", 0},
                       {&F::Grid1, 0, "12x", 12},
                       {&F::Grid1, 0, " 2.5", 2},
                       {&F::Grid1, 0, "3.5", 4},
                       {&F::Grid1, 0, "1e2", 100},
                       {&F::Grid1, 0, "1e99", refused},
                       {&F::TP_FIRE, 4, "254.5", 254},
                       {&F::TP_FIRE, 4, "256", refused},
                       {&F::RPM_FUEL, 8, "99.9", 1},
                       {&F::RPM_FUEL, 8, "12799", 255},
                       {&F::RPM_FUEL, 8, "12800", refused},
                       {&F::AddGrid1, 20, "7", 3},
                       {&F::AddGrid1, 20, "511.9", 255},
                       {&F::AddGrid1, 20, "-1", refused},
                       {&F::AddGrid14, 24, "-7", 2},
                       {&F::AddGrid14, 24, "1", refused}};
  for (const Row& row : table) {
    Grid& grid = form1().*row.grid;
    const int first = grid.fixedRows();
    const std::string before = grid.text(first, first);
    grid.setText(first, first, row.text);
    pick("update_bin_file");
    const bool good = row.stored != refused;
    EXPECT_EQ(readBytes("image.bin").at(row.place), good ? row.stored : fill) << row.text;
    EXPECT_EQ(told(), good ? "" : mapRefused) << row.text;
    EXPECT_TRUE(grid.visible() && grid.redraw());
    grid.setText(first, first, before);
    writeBackAll();
  }
}

TEST_F(RomImageTest, WordsAndParametersAreStoredAsHexadecimalDigits) {
  struct Row {
    TextBox F::*box;  // null: the airflow cell
    std::size_t place;
    const char* text;
    int stored;
  };
  const Row table[] = {{nullptr, 12, "258", 0x0102},
                       {nullptr, 12, "65535", 0xFFFF},
                       {nullptr, 12, "70000", 0x1117},
                       {nullptr, 12, "-1", 0xFFFF},
                       {nullptr, 12, "0.5", 0},
                       {nullptr, 12, "9999999999", refused},
                       {&F::Text1, 28, "1f40", 0x1F40},
                       {&F::Text1, 28, "1", 0x0100},
                       {&F::Text1, 28, "", 0},
                       {&F::Text1, 28, "G112", 0x0012},
                       {&F::Text1, 28, "12345678", 0x1234},
                       {&F::Text1, 28, "１234", 0x0034},
                       {&F::Text4, 32, "6512.4", 520},
                       {&F::Text4, 32, "-12.5", 0xFFFF},
                       {&F::Text4, 32, "9999999999", 0x2FAF},
                       {&F::Text4, 32, "99999999999", refused},
                       {&F::Text9, 36, "256", 0x10 << 8 | fill}};
  for (const Row& row : table) {
    Form1& form = form1();
    const std::string before = row.box ? (form.*row.box).text() : form.Grid5.text(1, 1);
    const auto set = [&](const std::string& text) {
      row.box ? (form.*row.box).setText(text) : form.Grid5.setText(1, 1, text);
    };
    set(row.text);
    pick("update_bin_file");
    const Bytes saved = readBytes("image.bin");
    const bool good = row.stored != refused;
    EXPECT_EQ(saved.at(row.place) << 8 | saved.at(row.place + 1),
              good ? row.stored : fill << 8 | fill)
        << row.text;
    EXPECT_EQ(told(), good ? "" : row.box ? paramRefused : mapRefused) << row.text;
    set(before);
    writeBackAll();
  }
}

TEST_F(RomImageTest, AFailureLeavesWhatWasWrittenAndTheOtherMapsGoOn) {
  form1().Grid1.setText(1, 1, "1");
  form1().Grid1.setText(1, 2, "300");
  form1().AddGrid1.setText(1, 1, "8");
  form1().Text1.setText("0102");
  form1().Text4.setText("99999999999");
  form1().Text9.setText("9");
  Bytes expected(64, fill);
  expected[0] = expected[28] = 1;
  expected[20] = 4;
  expected[29] = 2;
  EXPECT_EQ(saveImage("saved.bin"), expected);
  EXPECT_EQ(told(), mapRefused + "|" + paramRefused);
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
  pick("update_bin_file");
  EXPECT_EQ(readBytes("saved.bin"), image);
}

TEST_F(RomImageTest, UnknownMapNumbersAreToldInTheLanguage) {
  Set_Memory(1, 1, 0, 1, 22);
  editorState.english = 0;
  Set_Memory(1, 1, 0, 1, -1);
  EXPECT_EQ(told(),
            "There is an exception for a parameter of Set_Memory.|"
            "Set_Memoryのパラメーターに例外がある。");
}

TEST_F(RomImageTest, TheContentTestReadsThirtyThreeBytesAndNoneOutside) {
  struct Row {
    std::int32_t probe;
    std::size_t size, set;
    bool loaded;
  };
  const Row table[] = {
      {100, 200, 0, true},    {100, 200, 15, true},      {100, 200, 16, false},
      {100, 200, 99, false},  {100, 200, 100, true},     {100, 200, 116, true},
      {100, 200, 117, false}, {190, 200, 199, true},     {200, 200, 199, false},
      {-5, 200, 16, false},   {-2147483647, 1, 0, true}, {2147483647, 200, 16, false}};
  for (const Row& row : table) {
    editorState.image = Bytes(row.size);
    editorState.image[row.set] = 1;
    editorState.probeAddress = row.probe;
    EXPECT_EQ(isRomLoaded(), row.loaded) << row.probe << " " << row.set;
  }
}

}  // namespace
