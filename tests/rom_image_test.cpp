// Writing back: how each kind of cell and parameter is stored, what can't be stored, and the
// content test.
#include "core/rom_image.h"

#include <filesystem>

#include "support.h"

namespace {

class RomImageTest : public ProgramTest {
 protected:
  // Two bytes of each kind in an image of `size` bytes of &H54.
  void loadKinds(std::size_t size = 64) {
    startWithMap(
        "TYPE_UNIT\r\nX\r\n" + mapBlock("HIGH_FUEL", "0", 2, 1, 2) +
        mapBlock("TP_SCALE_FIRE", "4", 2, 1, 2) + mapBlock("RPM_SCALE_FUEL", "8", 2, 1, 2, "50") +
        mapBlock("VQ_MAP", "12", 1, 1, 2) + mapBlock("AF_LIMIT", "16", 2, 1, 2) +
        mapBlock("ADD_MAP1", "20", 2, 1, 2, "2") + mapBlock("ADD_MAP8", "24", 2, 1, 2, "-3") +
        mapBlock("K_DATA", "28", 1, 1, 2) + mapBlock("REV1_LIMIT", "32", 1, 1, 2, "12.5") +
        mapBlock("SPEED4_LIMIT", "36", 1, 1, 1, "1"));
    loadImage(Bytes(size, 0x54));
    ASSERT_TRUE(desk.boxes.empty()) << lastBox();
  }
  // What the save left at `place`.
  int savedWord(std::size_t place) {
    desk.boxes.clear();
    const Bytes saved = saveImage("saved.bin");
    std::filesystem::remove(path("saved.bin"));
    return saved.at(place) << 8 | saved.at(place + 1);
  }
  std::vector<std::string> boxes() const {
    std::vector<std::string> texts;
    for (const MessageBox& box : desk.boxes) texts.push_back(box.text);
    return texts;
  }
};

constexpr int refused = -1;

TEST_F(RomImageTest, EachKindOfCellIsStoredByItsOwnRule) {
  struct Row {
    Grid Form1::*grid;
    std::size_t place;
    const char* text;
    int stored;  // `refused`: a box, and the bytes stay
  };
  using F = Form1;
  const Row table[] = {
      {&F::Grid1, 0, "7", 7},
      {&F::Grid1, 0, "255.4", 255},
      {&F::Grid1, 0, "255.6", refused},
      {&F::Grid1, 0, "256", refused},
      {&F::Grid1, 0, "-1", refused},
      {&F::Grid1, 0, "-0.4", 0},
      {&F::Grid1, 0, "", 0},
      {&F::Grid1, 0, "x", 0},
      {&F::Grid1, 0, "12x", 12},
      {&F::Grid1, 0, " 2.5", 2},
      {&F::Grid1, 0, "3.5", 4},
      {&F::Grid1, 0, "1e2", 100},
      {&F::Grid1, 0, "99999999999", refused},
      {&F::TP_FIRE, 4, "254.5", 254},
      {&F::TP_FIRE, 4, "256", refused},
      {&F::RPM_FUEL, 8, "99.9", 1},
      {&F::RPM_FUEL, 8, "12799", 255},
      {&F::RPM_FUEL, 8, "12800", refused},
      {&F::Grid8, 16, "9", 9},
      {&F::AddGrid1, 20, "7", 3},
      {&F::AddGrid1, 20, "511.9", 255},
      {&F::AddGrid1, 20, "512", refused},
      {&F::AddGrid1, 20, "-1", refused},
      {&F::AddGrid14, 24, "-7", 2},
      {&F::AddGrid14, 24, "1", refused},
  };
  loadKinds();
  for (const Row& row : table) {
    Grid& grid = form1().*row.grid;
    const bool rpm = &grid == &form1().RPM_FUEL;
    const int place = rpm ? 0 : 1;
    const std::string before = grid.text(place, place);
    grid.setText(place, place, row.text);
    const bool good = row.stored != refused;
    EXPECT_EQ(savedWord(row.place), (good ? row.stored : 0x54) << 8 | 0x54) << row.text;
    EXPECT_EQ(boxes(), good ? std::vector<std::string>{}
                            : std::vector<std::string>{"ERROR (Function:SET_MEMORY)"})
        << row.text;
    EXPECT_TRUE(grid.visible() && grid.redraw());
    grid.setText(place, place, before);
    writeBackAll();
  }
}

TEST_F(RomImageTest, AirflowWordsAndParametersAreStoredAsHexadecimalDigits) {
  struct Row {
    TextBox Form1::*box;  // null: the airflow cell
    std::size_t place;
    const char* text;
    int stored;
  };
  using F = Form1;
  const Row table[] = {
      {nullptr, 12, "258", 0x0102},
      {nullptr, 12, "65535", 0xFFFF},
      {nullptr, 12, "70000", 0x1117},
      {nullptr, 12, "-1", 0xFFFF},
      {nullptr, 12, "0.5", 0},
      {nullptr, 12, "9999999999", refused},
      {&F::Text1, 28, "1F40", 0x1F40},
      {&F::Text1, 28, "1f4", 0x1F04},
      {&F::Text1, 28, "1", 0x0100},
      {&F::Text1, 28, "", 0},
      {&F::Text1, 28, "G112", 0x0012},
      {&F::Text1, 28, "1G-1", 0x0100},
      {&F::Text1, 28, "12345678", 0x1234},
      {&F::Text1, 28, "１234", 0x0034},
      {&F::Text4, 32, "6500", 520},
      {&F::Text4, 32, "6512.4", 520},
      {&F::Text4, 32, "-12.5", 0xFFFF},
      {&F::Text4, 32, "9999999999", 0x2FAF},
      {&F::Text4, 32, "99999999999", refused},
      {&F::Text4, 32, "N/A", 0},
      {&F::Text9, 36, "77", 77 << 8 | 0x54},
      {&F::Text9, 36, "256", 0x10 << 8 | 0x54},
  };
  loadKinds();
  for (const Row& row : table) {
    Form1& form = form1();
    const std::string before = row.box ? (form.*row.box).text() : form.Grid5.text(1, 1);
    const auto set = [&](const std::string& text) {
      row.box ? (form.*row.box).setText(text) : form.Grid5.setText(1, 1, text);
    };
    set(row.text);
    const bool good = row.stored != refused;
    EXPECT_EQ(savedWord(row.place), good ? row.stored : 0x5454) << row.text;
    EXPECT_EQ(desk.boxes.size(), good ? 0U : 1U) << row.text;
    EXPECT_TRUE(good || lastBox() == (row.box ? "ERROR (Function:ANY_SET_MEMORY)"
                                              : "ERROR (Function:SET_MEMORY)"));
    set(before);
    writeBackAll();
  }
}

TEST_F(RomImageTest, AFailureLeavesWhatWasWrittenAndTheOtherMapsGoOn) {
  loadKinds();
  form1().Grid1.setText(1, 1, "1");
  form1().Grid1.setText(1, 2, "300");
  form1().AddGrid1.setText(1, 1, "8");
  form1().Text4.setText("99999999999");
  form1().Text1.setText("0102");
  form1().Text9.setText("9");
  Bytes expected(64, 0x54);
  expected[0] = 1;
  expected[20] = 4;
  expected[28] = 1;
  expected[29] = 2;
  EXPECT_EQ(saveImage("saved.bin"), expected);
  EXPECT_EQ(boxes(), (std::vector<std::string>{"ERROR (Function:SET_MEMORY)",
                                               "ERROR (Function:ANY_SET_MEMORY)"}));
}

TEST_F(RomImageTest, ZeroScalesAreToldAndStoreNothing) {
  startWithMap("TYPE_UNIT\r\nX\r\n" + mapBlock("ADD_MAP1", "0", 2, 1, 2, "0") +
               mapBlock("REV1_LIMIT", "4", 1, 1, 2, "none"));
  const Bytes image = patternImage(16);
  loadImage(image);
  EXPECT_EQ(form1().AddGrid1.text(1, 1) + form1().Text4.text(), "00");
  EXPECT_EQ(saveImage("saved.bin"), image);
  EXPECT_EQ(boxes(), (std::vector<std::string>{"ERROR (Function:SET_MEMORY)",
                                               "ERROR (Function:ANY_SET_MEMORY)"}));
}

TEST_F(RomImageTest, WhatNeverCouldBeDrawnIsNeverWritten) {
  startWithMap("TYPE_UNIT\r\nX\r\n" + mapBlock("HIGH_FUEL", "12", 4, 4, 16) +
               mapBlock("REG_FUEL", "-4", 4, 4, 16) + mapBlock("K_DATA", "15", 1, 1, 2));
  const Bytes image = patternImage(16);
  loadImage(image);
  EXPECT_EQ(boxes(),
            (std::vector<std::string>{"ERROR (Function:MAP_DRAW)", "ERROR (Function:MAP_DRAW)",
                                      "*ERROR = [9]　Ill. DATA? image.bin"}));
  EXPECT_EQ(saveImage("saved.bin"), image);
}

TEST_F(RomImageTest, AnyImageComesBackUnchanged) {
  startWithMap(smallMap());
  for (std::uint32_t seed = 1; seed <= 50; ++seed) {
    const Bytes image = patternImage(0x250 + seed, seed);
    loadImage(image);
    pick("update_bin_file");
    Bytes expected = image;
    // 12.5 times an odd number is shown without its half, which costs one on the way back.
    const int limit = image[0x30] << 8 | image[0x31];
    const int kept = limit * 25 / 2 * 2 / 25;
    expected[0x30] = static_cast<std::uint8_t>(kept >> 8);
    expected[0x31] = static_cast<std::uint8_t>(kept);
    ASSERT_EQ(readBytes("image.bin"), expected) << seed;
    pick("update_bin_file");
    ASSERT_EQ(readBytes("image.bin"), expected) << "and stays so";
  }
  EXPECT_TRUE(desk.boxes.empty()) << lastBox();
}

TEST_F(RomImageTest, UnknownMapNumbersAreTold) {
  start();
  for (const int id : {0, 22, -1}) {
    editorState.english = 0;
    Set_Memory(1, 1, 0, 1, id);
    EXPECT_EQ(lastBox(), "Set_Memoryのパラメーターに例外がある。");
    editorState.english = 1;
    Set_Memory(1, 1, 0, 1, id);
    EXPECT_EQ(lastBox(), "There is an exception for a parameter of Set_Memory.");
  }
}

TEST_F(RomImageTest, TheContentTestReadsThirtyThreeBytesAndNoneOutside) {
  struct Row {
    std::int32_t probe;
    std::size_t size;
    std::size_t set;
    bool loaded;
  };
  const Row table[] = {
      {100, 200, 0, true},      {100, 200, 15, true},  {100, 200, 16, false},
      {100, 200, 99, false},    {100, 200, 100, true}, {100, 200, 116, true},
      {100, 200, 117, false},   {190, 200, 199, true}, {200, 200, 199, false},
      {-5, 200, 11, true},      {-5, 200, 16, false},  {2147483647, 200, 16, false},
      {-2147483647, 1, 0, true}};
  for (const Row& row : table) {
    editorState.image = Bytes(row.size);
    editorState.image[row.set] = 1;
    editorState.probeAddress = row.probe;
    EXPECT_EQ(isRomLoaded(), row.loaded) << row.probe << " " << row.set;
  }
  editorState.image.clear();
  EXPECT_FALSE(isRomLoaded());
}

}  // namespace
