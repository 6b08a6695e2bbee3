// Address map files: items, numbers, blocks and their effects, the menu command, and files that no
// model ever had.
#include "core/address_map.h"

#include <algorithm>
#include <filesystem>
#include <random>

#include "support.h"

namespace {

namespace fs = std::filesystem;

class AddressMapFile : public ProgramTest {
 protected:
  void choose(const std::string& name) {
    desk.boxes.clear();
    desk.openAnswers.push_back(path(name));
    pick("load_map_addr");
  }
  void chooseText(const std::string& text) {
    writeText("chosen.adr", text);
    choose("chosen.adr");
  }
  static std::string joinedItems() {
    std::string all;
    for (int i = 0; i < editorState.lineCount; ++i) {
      all += editorState.lines[static_cast<std::size_t>(i)] + "|";
    }
    return all;
  }
  static std::string block(const std::string& keyword, const std::string& address,
                           const std::string& columns, const std::string& rows,
                           const std::string& bytes) {
    return keyword + "\n" + address + "\n" + columns + "\n" + rows + "\n" + bytes +
           "\n1\ncaption\n";
  }
  // How many maps and parameters are enabled.
  static int enabledControls() {
    int count = 0;
    for (const MapKind& kind : mapKinds()) count += gridOf(kind).enabled();
    for (const ParamKind& kind : paramKinds()) count += (form1().*kind.box).enabled();
    return count;
  }
  bool badValueTold() const {
    return std::ranges::count(desk.boxes, badValue(), &MessageBox::text) == 1;
  }
  static std::string badValue() { return "ERROR (Function:SET_MAP_ADDR)"; }
};

TEST_F(AddressMapFile, SplitsIntoItems) {
  struct Row {
    const char* text;
    const char* items;
  };
  const Row table[] = {
      {"a,b\r\nc", "a|b|c|"},
      {"a\rb\nc\r\n", "a|b|c|"},
      {"a\n\nb", "a||b|"},
      {"a,\nb", "a||b|"},
      {"\t  a b \t ,c", "a b|c|"},
      {"# a comment\na", "a|"},
      {"# a comment, with a comma\na", "with a comma|a|"},
      {"a # b", "a # b|"},
      {"\"a, b\" dropped, c", "a, b|c|"},
      {"\" a \"", " a |"},
      {"\"open, to the end\nb", "open, to the end|b|"},
      {"\"#quoted\",b", "b|"},
      {"a\"b\"", "a\"b\"|"},
      {"\xEF\xBB\xBF"
       "a",
       "a|"},
      {"", ""},
      {"#", ""},
      {"\n", "|"},
  };
  start();
  for (const Row& row : table) {
    writeBytes("items.adr", {row.text, row.text + std::string_view(row.text).size()});
    choose("items.adr");
    EXPECT_EQ(joinedItems(), row.items) << row.text;
  }
}

TEST_F(AddressMapFile, EachKeywordEnablesItsControlAlone) {
  struct Row {
    const char* keyword;
    Grid Form1::*grid;
    Frame Form1::*frame;
    Label Form1::*label;
    int tab;
  };
  using F = Form1;
  const Row table[] = {{"HIGH_FUEL", &F::Grid1, &F::Frame1, nullptr, 1},
                       {"HIGH_FIRE", &F::Grid2, &F::Frame2, nullptr, 2},
                       {"REG_FUEL", &F::Grid3, &F::Frame3, nullptr, 3},
                       {"REG_FIRE", &F::Grid4, &F::Frame4, nullptr, 4},
                       {"VQ_MAP", &F::Grid5, &F::Frame5, nullptr, 5},
                       {"TP_SCALE_FUEL", &F::TP_FUEL, nullptr, nullptr, 0},
                       {"TP_SCALE_FIRE", &F::TP_FIRE, nullptr, nullptr, 0},
                       {"RPM_SCALE_FUEL", &F::RPM_FUEL, nullptr, nullptr, 0},
                       {"RPM_SCALE_FIRE", &F::RPM_FIRE, nullptr, nullptr, 0},
                       {"TTP_MAX", &F::Grid7, nullptr, &F::Label12, 0},
                       {"TTP_MIN", &F::Grid6, nullptr, &F::Label11, 0},
                       {"AF_LIMIT", &F::Grid8, nullptr, &F::Label2, 0},
                       {"ADD_FUEL", &F::Grid9, nullptr, &F::Label18, 0},
                       {"ADD_MAP1", &F::AddGrid1, &F::Frame6, nullptr, 6},
                       {"ADD_MAP2", &F::AddGrid2, &F::Frame8, nullptr, 7},
                       {"ADD_MAP3", &F::AddGrid3, &F::Frame9, nullptr, 8},
                       {"ADD_MAP4", &F::AddGrid4, &F::Frame10, nullptr, 9},
                       {"ADD_MAP5", &F::AddGrid11, &F::Frame11, nullptr, 10},
                       {"ADD_MAP6", &F::AddGrid12, &F::Frame12, nullptr, 11},
                       {"ADD_MAP7", &F::AddGrid13, &F::Frame13, nullptr, 12},
                       {"ADD_MAP8", &F::AddGrid14, &F::Frame14, nullptr, 13}};
  start();
  for (const Row& row : table) {
    Grid& grid = form1().*row.grid;
    const int rowsBefore = grid.rows();
    chooseText("TYPE_UNIT\nX\n" + mapBlock(row.keyword, "&H1A0", 5, 3, 20, "1", "\"名前, it\""));
    EXPECT_TRUE(desk.boxes.empty());
    EXPECT_EQ(enabledControls(), 1) << row.keyword;
    EXPECT_TRUE(grid.enabled());
    if (row.frame) {
      EXPECT_EQ((form1().*row.frame).caption(), "名前, it");
      EXPECT_EQ(form1().TabStrip1.tab(row.tab).toolTip, "名前, it");
    } else if (row.label) {
      EXPECT_EQ((form1().*row.label).caption(), "名前, it");
      EXPECT_EQ(grid.toolTip(), "名前, it &H1A0:20byte");
    }
    const bool airflow = &grid == &form1().Grid5;
    const bool fixed = !row.frame && !row.label;
    EXPECT_EQ(grid.rows(), airflow ? 2 : fixed ? rowsBefore : 4) << row.keyword;
    EXPECT_TRUE(fixed || grid.columns() == (airflow ? 11 : 6)) << row.keyword;
  }
}

TEST_F(AddressMapFile, EachParameterGetsCaptionToolTipAndColour) {
  struct Row {
    const char* keyword;
    TextBox Form1::*box;
    Label Form1::*label;
    int maxLength;
  };
  using F = Form1;
  const Row table[] = {
      {"K_DATA", &F::Text1, &F::Label3, 0},        {"IGN_TIME", &F::Text2, &F::Label4, 4},
      {"FB_SWITCH", &F::Text3, &F::Label5, 4},     {"REV1_LIMIT", &F::Text4, &F::Label6, 0},
      {"REV2_LIMIT", &F::Text5, &F::Label7, 0},    {"REV3_LIMIT", &F::Text10, &F::Label24, 0},
      {"REV4_LIMIT", &F::Text11, &F::Label25, 0},  {"SPEED1_LIMIT", &F::Text6, &F::Label8, 0},
      {"SPEED2_LIMIT", &F::Text7, &F::Label9, 0},  {"SPEED3_LIMIT", &F::Text8, &F::Label10, 0},
      {"SPEED4_LIMIT", &F::Text9, &F::Label23, 0}, {"ADD_BYTE1", &F::Text12, &F::addText1, 0},
      {"ADD_BYTE2", &F::Text13, &F::addText2, 0},  {"ADD_BYTE3", &F::Text14, &F::addText3, 0}};
  start();
  for (const Row& row : table) {
    TextBox& box = form1().*row.box;
    const Label& label = form1().*row.label;
    chooseText(mapBlock(row.keyword, "416", 1, 1, 2, "no number", "Limit"));
    EXPECT_TRUE(desk.boxes.empty());
    EXPECT_EQ(enabledControls(), 1) << row.keyword;
    EXPECT_TRUE(box.enabled());
    EXPECT_EQ(box.toolTip(), "Limit 416:2byte");
    EXPECT_EQ(box.maxLength(), row.maxLength) << row.keyword;
    EXPECT_EQ(label.caption(), "Limit");
    EXPECT_EQ(label.colour(), black);
    chooseText("");
    EXPECT_FALSE(box.enabled());
    EXPECT_EQ(box.toolTip(), "");
    EXPECT_EQ(label.colour(), rgb(128, 128, 128));
  }
}

TEST_F(AddressMapFile, NumbersOfABlock) {
  struct Row {
    const char* address;
    bool good;
    std::int32_t value;
  };
  const Row table[] = {{"256", true, 256},
                       {"&H100", true, 256},
                       {"&hff", true, 255},
                       {"2.5", true, 2},
                       {"3.5", true, 4},
                       {"1e2", true, 100},
                       {"-1", true, -1},
                       {"&HFFFFFFFF", true, -1},
                       {"2147483647", true, 2147483647},
                       {"-2147483648", true, INT32_MIN},
                       {"2147483648", false, 0},
                       {"99999999999", false, 0},
                       {"&H123456789", false, 0},
                       {"&H", false, 0},
                       {"", false, 0},
                       {"x", false, 0},
                       {"1 2", false, 0},
                       {"0x10", false, 0}};
  start();
  for (const Row& row : table) {
    chooseText(block("K_DATA", row.address, "1", "1", "2"));
    EXPECT_EQ(lastBox(), row.good ? "" : badValue()) << row.address;
    EXPECT_EQ(editorState.addressMap.param(K_DATA).present(), row.good) << row.address;
    EXPECT_TRUE(!row.good || editorState.probeAddress == row.value) << row.address;
  }
}

TEST_F(AddressMapFile, SizesBeyondAllReasonStopTheParseAndLoseNothing) {
  struct Row {
    const char* columns;
    const char* rows;
    bool good;
  };
  const Row table[] = {{"16", "16", true},
                       {"0", "0", true},
                       {"0", "5", true},
                       {"5", "0", true},

                       {"1024", "1023", false},
                       {"2147483647", "0", false},
                       {"0", "2147483647", false},
                       {"-1", "5", false},
                       {"5", "-2147483648", false},
                       {"2147483647", "2147483647", false},
                       {"99999999999", "1", false}};
  startWithMap(smallMap());
  const Bytes image = patternImage(64);
  const Bytes large = patternImage(1 << 20);
  for (const Row& row : table) {
    for (const char* keyword : {"HIGH_FUEL", "TTP_MIN", "ADD_MAP3"}) {
      chooseText("TYPE_UNIT\nX\n" + mapBlock("ADD_MAP4", "0", 2, 2, 4, "1") +
                 block(keyword, "16", row.columns, row.rows, "1"));
      EXPECT_EQ(badValueTold(), !row.good) << row.columns << " x " << row.rows;
      EXPECT_EQ(form1().AddGrid4.enabled(), row.good) << "later keywords stay absent";
      loadImage(image);
      EXPECT_EQ(saveImage("saved.bin"), image);
      fs::remove(path("saved.bin"));
    }
  }
  for (const char* bytes : {"-2147483648", "2147483647", "99999999999", "3000000"}) {
    chooseText("TYPE_UNIT\nX\n" + block("VQ_MAP", "16", "8", "1", bytes));
    EXPECT_TRUE(badValueTold()) << bytes;
  }
  loadImage(large);
  chooseText("TYPE_UNIT\nX\n" + block("HIGH_FUEL", "16", "1023", "1023", "1"));
  EXPECT_EQ(form1().Grid1.text(1023, 1023), std::to_string(large[16 + 1023 * 1023 - 1]));
}

TEST_F(AddressMapFile, KeywordsStandWhereTheyStand) {
  start();
  struct Row {
    const char* name;
    std::string text;
    const char* expected;  // grids enabled, then HIGH_FUEL's address
    bool good;
  };
  const std::string high = mapBlock("HIGH_FUEL", "16", 2, 2, 4);
  const Row table[] = {
      {"twice: the last stands", high + mapBlock("HIGH_FUEL", "32", 2, 2, 4), "1 32", true},
      {"bytes 0: absent", mapBlock("HIGH_FUEL", "16", 2, 2, 0), "0 16", true},
      {"lower case", mapBlock("high_fuel", "16", 2, 2, 4), "0 0", true},
      {"part of an item", mapBlock("HIGH_FUEL x", "16", 2, 2, 4), "0 0", true},
      {"a caption that is a keyword",
       mapBlock("REG_FUEL", "16", 2, 2, 4, "0", "HIGH_FUEL") + "64\n2\n2\n4\n0\nc", "2 64", true},
      {"one line, commas", "HIGH_FUEL, &H1000, 16, 16, 256, 0, Fuel map", "1 4096", true},
      {"comments between", "HIGH_FUEL\n# address\n16\n#\n2\n2\n4\n0\nc", "1 16", true},
      {"no caption line: # is the caption", "HIGH_FUEL\n16\n2\n2\n4\n0\n", "1 16", true},
      {"no bytes line", "HIGH_FUEL\n16\n2\n2\n", "0 16", false},
      {"a later keyword's error keeps the earlier ones", high + "TTP_MAX\nx\n", "1 16", false},
      {"an earlier keyword's error drops the later ones",
       "HIGH_FIRE\nx\n" + mapBlock("TTP_MAX", "16", 2, 2, 4) + high, "1 16", false},
      {"past the last item", std::string(999, '\n') + "a\nHIGH_FUEL", "0 0", false},
      {"NULs", std::string("HIGH\0_FUEL\n", 11) + high + std::string(5, '\0'), "1 16", true},
  };
  for (const Row& row : table) {
    editorState.addressMap = {};
    chooseText(row.text);
    EXPECT_EQ(lastBox(), row.good ? "" : badValue()) << row.name;
    EXPECT_EQ(std::to_string(enabledControls()) + " " +
                  std::to_string(editorState.addressMap.map(HIGH_FUEL).address),
              row.expected)
        << row.name;
  }
}

TEST_F(AddressMapFile, FilesThatCannotBeReadKeepTheFormerMap) {
  startWithMap(smallMap());
  writeText("error.log", "");
  writeText("long.adr", "TYPE_UNIT,X" + std::string(1001, '\n'));
  fs::create_directory(path("folder.adr"));
  writeBytes("big.adr", patternImage(2 << 20));
  struct Row {
    const char* name;
    const char* number;
  };
  for (const Row& row : {Row{"long.adr", "9"}, Row{"folder.adr", "75"}, Row{"gone.adr", "53"},
                         Row{"no/folder.adr", "76"}, Row{"big.adr", "9"}}) {
    choose(row.name);
    EXPECT_EQ(lastBox(), "*ERROR = [" + std::string(row.number) +
                             "]\r\n\r\nReading of an address file went wrong."
                             "\r\n\r\nPlease read again from a menu after starting. "
                             "\r\n\r\nFrom next time, it could start to usual.");
    EXPECT_EQ(desk.boxes.back().title, "Detected error.This error is not fatal.");
    const std::string log = readText("error.log");
    EXPECT_NE(log.find("ADR File読み込み  " + std::string(row.number) + " "), log.npos);
    EXPECT_EQ(editorState.addressFilePath, path(row.name));
    EXPECT_EQ(form1().Label1.caption(), "SMALL");
    EXPECT_TRUE(form1().Grid1.enabled());
    EXPECT_EQ(readText("zelkova.ini"), firstSettings("map.adr"));
    EXPECT_FALSE(desk.busy);
  }
  desk.boxes.clear();
  writeText("just.adr", "TYPE_UNIT,X" + std::string(1000, '\n'));
  choose("just.adr");
  EXPECT_TRUE(desk.boxes.empty()) << "1001 items fit";
  desk.openAnswers.push_back("");
  pick("load_map_addr");
  EXPECT_EQ(form1().Label1.caption(), "X") << "Cancel changes nothing";
  EXPECT_EQ(desk.openDialogs.back().filter, "Address Map (*.adr)|*.adr");
  EXPECT_EQ(desk.openDialogs.back().title,
            "The address information by the model is read. (*.adr file)");
  EXPECT_EQ(desk.openDialogs.back().fileName, path("just.adr"));
}

TEST_F(AddressMapFile, NothingOfTheFormerFileSurvivesOnAbsentEntries) {
  startWithMap(smallMap() + mapBlock("ADD_MAP8", "16", 2, 2, 4, "1", "Last") +
               mapBlock("K_DATA", "16", 2, 2, 4, "1", "K"));
  EXPECT_EQ(form1().Frame14.caption(), "Last");
  chooseText(mapBlock("HIGH_FUEL", "16", 2, 2, 4));
  EXPECT_EQ(form1().Frame14.caption(), "ADD Map8");
  EXPECT_EQ(form1().Text1.toolTip(), "");
  EXPECT_EQ(form1().Label1.caption(), "Please load an address map(*.adr) first. ");
  pick("load_bin_file");
  EXPECT_TRUE(lastBox().starts_with("An address file reads")) << "no TYPE_UNIT, no image";
}

TEST_F(AddressMapFile, AnotherMapOverALoadedImageKeepsEditsAndShowsItself) {
  startWithMap(smallMap());
  const Bytes image = patternImage(0x300);
  loadImage(image);
  form1().Grid1.setText(1, 1, "77");
  chooseText("TYPE_UNIT\nNEXT\n" + mapBlock("REG_FIRE", "&HFF", 3, 1, 3));
  EXPECT_EQ(form1().Grid4.text(1, 2), "77");
  EXPECT_EQ(form1().Grid1.text(1, 1), "");
  EXPECT_EQ(form1().Text1.text(), "N/A");
  EXPECT_EQ(form1().TP_FUEL.text(0, 0), "Boost");
  Bytes edited = image;
  edited[0x100] = 77;
  EXPECT_EQ(saveImage("saved.bin"), edited);
}

TEST_F(AddressMapFile, RandomAndDamagedFilesNeverHarmTheImage) {
  startWithMap(smallMap());
  const Bytes image = patternImage(0x400);
  loadImage(image);
  std::mt19937 random(7);
  // A whole scale, so that every value comes back as it was.
  std::string good = smallMap();
  good.erase(good.find(".5"), 2);
  for (int trial = 0; trial < 300; ++trial) {
    Bytes bytes(random() % 4096);
    if (trial % 2 == 0) {
      for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    } else {
      bytes.assign(good.begin(), good.end());
      for (int i = 0; i < 3; ++i) {
        bytes[random() % bytes.size()] =
            static_cast<std::uint8_t>("0123456789&H-,\n\"#"[random() % 17]);
      }
    }
    writeBytes("random.adr", bytes);
    choose("random.adr");
    ASSERT_EQ(editorState.image, image) << trial;
  }
  EXPECT_EQ(saveImage("saved.bin"), image);
}

}  // namespace
