// Address map files: items, numbers, blocks and their effects, the menu command, and files that no
// model ever had.
#include "core/address_map.h"

#include <filesystem>
#include <random>

#include "support.h"

namespace {

using F = Form1;

class AddressMapFile : public ProgramTest {
 protected:
  AddressMapFile() { startWithMap(smallMap()); }
  static std::string block(const std::string& keyword, const std::string& address,
                           const std::string& columns, const std::string& rows,
                           const std::string& bytes) {
    return keyword + "," + address + "," + columns + "," + rows + "," + bytes + ",1,caption\n";
  }
  // How many maps and parameters are enabled.
  static int enabled() {
    int count = 0;
    for (const MapKind& kind : mapKinds()) count += gridOf(kind).enabled();
    for (const ParamKind& kind : paramKinds()) count += (form1().*kind.box).enabled();
    return count;
  }
  static constexpr const char* badValue = "ERROR (Function:SET_MAP_ADDR)";
};

TEST_F(AddressMapFile, SplitsIntoItems) {
  const std::pair<const char*, const char*> table[] = {
      {"a,b\r\nc", "a|b|c|"},
      {"a\rb\n\nc\r\n", "a|b||c|"},
      {"a,\nb", "a||b|"},
      {"\t  a b \t ,c", "a b|c|"},
      {"# a comment\na # b", "a # b|"},
      {"# a comment, with a comma\na", "with a comma|a|"},
      {"\"a, b\" dropped, c", "a, b|c|"},
      {"\" a \"", " a |"},
      {"\"open, to the end\nb", "open, to the end|b|"},
      {"\"#quoted\",b\"", "b\"|"},
      {"\xEF\xBB\xBF名前", "名前|"},
      {"\x96\xBC\x91\x4F", "名前|"},
      {"#", ""},
      {"\n", "|"},
  };
  for (const auto& [text, expected] : table) {
    const std::string bytes = text;
    writeBytes("items.adr", {bytes.begin(), bytes.end()});
    desk.openAnswers.push_back(path("items.adr"));
    pick("load_map_addr");
    std::string items;
    for (std::size_t i = 0; static_cast<int>(i) < editorState.lineCount; ++i) {
      items += editorState.lines[i] + "|";
    }
    EXPECT_EQ(items, expected) << text;
  }
}

TEST_F(AddressMapFile, EachMapKeywordReachesItsGridCaptionAndToolTip) {
  Grid F::*const grids[] = {&F::Grid1,    &F::Grid2,    &F::Grid3,     &F::Grid4,     &F::Grid5,
                            &F::TP_FUEL,  &F::TP_FIRE,  &F::RPM_FUEL,  &F::RPM_FIRE,  &F::Grid7,
                            &F::Grid6,    &F::Grid8,    &F::Grid9,     &F::AddGrid1,  &F::AddGrid2,
                            &F::AddGrid3, &F::AddGrid4, &F::AddGrid11, &F::AddGrid12, &F::AddGrid13,
                            &F::AddGrid14};
  Frame F::*const frames[] = {&F::Frame1,  &F::Frame2,  &F::Frame3, &F::Frame4,  &F::Frame5,
                              &F::Frame6,  &F::Frame8,  &F::Frame9, &F::Frame10, &F::Frame11,
                              &F::Frame12, &F::Frame13, &F::Frame14};
  Label F::*const labels[] = {&F::Label12, &F::Label11, &F::Label2, &F::Label18};
  const char* const keywords[] = {
      "HIGH_FUEL",     "HIGH_FIRE",      "REG_FUEL",       "REG_FIRE", "VQ_MAP",   "TP_SCALE_FUEL",
      "TP_SCALE_FIRE", "RPM_SCALE_FUEL", "RPM_SCALE_FIRE", "TTP_MAX",  "TTP_MIN",  "AF_LIMIT",
      "ADD_FUEL",      "ADD_MAP1",       "ADD_MAP2",       "ADD_MAP3", "ADD_MAP4", "ADD_MAP5",
      "ADD_MAP6",      "ADD_MAP7",       "ADD_MAP8"};
  for (int i = 0; i < mapCount; ++i) {
    Grid& grid = form1().*grids[i];
    const int fixedRows = grid.rows();
    useMap(mapBlock(keywords[i], "&H1A0", 5, 3, 20, "1", "\"名前, it\""));
    EXPECT_EQ(told(), "");
    EXPECT_TRUE(grid.enabled() && enabled() == 1) << keywords[i];
    const bool scale = i >= 5 && i <= 8;
    EXPECT_EQ(grid.rows(), i == 4 ? 2 : scale ? fixedRows : 4) << keywords[i];
    EXPECT_TRUE(scale || grid.columns() == (i == 4 ? 11 : 6)) << keywords[i];
    if (i >= 9 && i <= 12) {
      EXPECT_EQ((form1().*labels[i - 9]).caption() + grid.toolTip(),
                "名前, it名前, it &H1A0:20byte");
    } else if (!scale) {
      const int tab = i < 5 ? i + 1 : i - 7;
      EXPECT_EQ((form1().*frames[tab - 1]).caption(), "名前, it") << keywords[i];
      EXPECT_EQ(form1().TabStrip1.tab(tab).toolTip, "名前, it");
    }
  }
  useMap("");
  EXPECT_EQ(form1().Frame14.caption(), "ADD Map8") << "nothing of the former file survives";
}

TEST_F(AddressMapFile, NumbersOfABlock) {
  struct Row {
    const char* address;
    bool good;
    std::int32_t value;
  };
  const Row table[] = {{"256", true, 256},       {"&H100", true, 256}, {"&hff", true, 255},
                       {"2.5", true, 2},         {"3.5", true, 4},     {"&HFFFFFFFF", true, -1},
                       {"1e2", true, 100},       {"-2", true, -2},     {"&H", false, 0},
                       {"2147483648", false, 0}, {"0x10", false, 0},   {"", false, 0},
                       {"1 2", false, 0},        {"x", false, 0},      {"&H123456789", false, 0}};
  for (const Row& row : table) {
    useMap(block("K_DATA", row.address, "1", "1", "2"));
    EXPECT_EQ(told(), row.good ? "" : badValue) << row.address;
    EXPECT_EQ(enabled(), row.good) << row.address;
    EXPECT_TRUE(!row.good || editorState.probeAddress == row.value) << row.address;
  }
}

TEST_F(AddressMapFile, SizesBeyondAllReasonEndTheParseAndLoseNothing) {
  struct Row {
    const char* columns;
    const char* rows;
    bool good;
  };
  const Row table[] = {{"0", "0", true},
                       {"0", "5", true},
                       {"5", "0", true},
                       {"1024", "1023", false},
                       {"2147483647", "0", false},
                       {"0", "2147483647", false},
                       {"-1", "5", false},
                       {"5", "-2147483648", false},
                       {"1", "99999999999", false},
                       {"2147483647", "2147483647", false}};
  const Bytes image = patternImage(64);
  loadImage(image);
  for (const Row& row : table) {
    told();
    useMap("TYPE_UNIT,X\n" + mapBlock("ADD_MAP4", "0", 2, 2, 4, "1") +
           block("TTP_MIN", "16", row.columns, row.rows, "1"));
    EXPECT_EQ(told().find(badValue) == std::string::npos, row.good) << row.columns << row.rows;
    EXPECT_EQ(form1().AddGrid4.enabled(), row.good) << "later keywords stay absent";
    pick("update_bin_file");
    EXPECT_EQ(readBytes("image.bin"), image);
  }
  for (const char* bytes : {"-2147483648", "2147483647", "99999999999", "3000000"}) {
    useMap(block("VQ_MAP", "16", "8", "1", bytes));
    EXPECT_NE(told().find(badValue), std::string::npos) << bytes;
  }
  const Bytes large = patternImage(1 << 20);
  useMap("TYPE_UNIT,X");
  loadImage(large);
  useMap(block("HIGH_FUEL", "16", "1023", "1023", "1"));
  EXPECT_EQ(form1().Grid1.text(1023, 1023), std::to_string(large[16 + 1023 * 1023 - 1]));
}

TEST_F(AddressMapFile, KeywordsStandWhereTheyStand) {
  struct Row {
    const char* name;
    std::string text;
    std::string expected;  // how many entries are enabled, then HIGH_FUEL's address
  };
  const std::string high = mapBlock("HIGH_FUEL", "16", 2, 2, 4);
  const std::string bad = badValue;
  const Row table[] = {
      {"twice: the last stands", high + mapBlock("HIGH_FUEL", "32", 2, 2, 4), "1 32"},
      {"bytes 0: absent", mapBlock("HIGH_FUEL", "16", 2, 2, 0), "0 16"},
      {"lower case, or a part", mapBlock("high_fuel", "16", 2, 2, 4) + "HIGH_FUEL x", "0 0"},
      {"a caption", mapBlock("REG_FUEL", "1", 2, 2, 4, "0", "HIGH_FUEL") + "64,2,2,4,0", "2 64"},
      {"comments between", "HIGH_FUEL\n# address\n16\n#\n2\n2\n4\n0\nc", "1 16"},
      {"no caption", "HIGH_FUEL\n16\n2\n2\n4\n0\n", "1 16"},
      {"no bytes", "HIGH_FUEL\n16\n2\n2\n", "0 16" + bad},
      {"no caption, and a comma shifts it", "HIGH_FUEL\n16\n# a,b\n2\n2\n4\n", "0 16" + bad},
      {"a later keyword fails", high + "TTP_MAX\nx\n", "1 16" + bad},
      {"an earlier one", "HIGH_FIRE\nx\n" + mapBlock("TTP_MAX", "1", 2, 2, 4) + high, "1 16" + bad},
      {"past the last item", std::string(999, '\n') + "a\nHIGH_FUEL", "0 0" + bad},
      {"NULs", std::string("HIGH\0_FUEL\n", 11) + high + std::string(5, '\0'), "1 16"},
  };
  for (const Row& row : table) {
    editorState.addressMap = {};
    useMap(row.text);
    EXPECT_EQ(std::to_string(enabled()) + " " +
                  std::to_string(editorState.addressMap.map(HIGH_FUEL).address) + told(),
              row.expected)
        << row.name;
  }
}

TEST_F(AddressMapFile, FilesThatCannotBeReadKeepTheFormerMap) {
  writeText("error.log", "");
  writeText("long.adr", "TYPE_UNIT,X" + std::string(1001, '\n'));
  std::filesystem::create_directory(path("folder.adr"));
  writeBytes("big.adr", patternImage(2 << 20));
  for (const auto& [name, number] :
       {std::pair("long.adr", "9"), std::pair("folder.adr", "75"), std::pair("gone.adr", "53"),
        std::pair("no/folder.adr", "76"), std::pair("big.adr", "9")}) {
    desk.openAnswers.push_back(path(name));
    pick("load_map_addr");
    EXPECT_EQ(desk.boxes.at(0).title, "Detected error.This error is not fatal.");
    EXPECT_EQ(told(), "*ERROR = [" + std::string(number) +
                          "]\r\n\r\nReading of an address file went wrong."
                          "\r\n\r\nPlease read again from a menu after starting. "
                          "\r\n\r\nFrom next time, it could start to usual.");
    EXPECT_EQ(readText("error.log").find(" ADR File読み込み  " + std::string(number) + " "), 14U);
    EXPECT_EQ(editorState.addressFilePath, path(name));
    EXPECT_EQ(form1().Label1.caption(), "SMALL");
    EXPECT_EQ(readText("zelkova.ini"), firstSettings("map.adr"));
    EXPECT_TRUE(form1().Grid1.enabled() && !desk.busy);
  }
  useMap("TYPE_UNIT,X" + std::string(1000, '\n'));
  desk.openAnswers.push_back("");
  pick("load_map_addr");
  EXPECT_EQ(form1().Label1.caption() + told(), "X") << "1001 items fit, Cancel changes nothing";
  EXPECT_EQ(desk.openDialogs.back().filter + desk.openDialogs.back().title,
            "Address Map (*.adr)|*.adrThe address information by the model is read. (*.adr file)");
  EXPECT_EQ(desk.openDialogs.back().fileName, path("used.adr"));
}

TEST_F(AddressMapFile, AnotherMapOverALoadedImageKeepsEditsAndShowsItself) {
  const Bytes image = patternImage(0x300);
  loadImage(image);
  form1().Grid1.setText(1, 1, "77");
  useMap("TYPE_UNIT\nNEXT\n" + mapBlock("REG_FIRE", "&HFF", 3, 1, 3));
  EXPECT_EQ(form1().Grid4.text(1, 2) + form1().Grid1.text(1, 1) + form1().Text1.text(), "77N/A");
  EXPECT_EQ(form1().TP_FUEL.text(0, 0), "Boost");
  Bytes edited = image;
  edited[0x100] = 77;
  EXPECT_EQ(saveImage("saved.bin"), edited);
}

TEST_F(AddressMapFile, RandomAndDamagedFilesNeverHarmTheImage) {
  const Bytes image = patternImage(0x400);
  loadImage(image);
  std::mt19937 random(7);
  // A whole scale, so that every value comes back as it was.
  std::string good = smallMap();
  good.erase(good.find(".5"), 2);
  for (std::uint32_t trial = 0; trial < 300; ++trial) {
    std::string text = good;
    for (int i = 0; i < 3; ++i) text[random() % text.size()] = "0123456789&H-,\n\"#"[random() % 17];
    Bytes bytes = patternImage(random() % 4096, trial);
    if (trial % 2 == 0) bytes.assign(text.begin(), text.end());
    writeBytes("random.adr", bytes);
    desk.openAnswers.push_back(path("random.adr"));
    pick("load_map_addr");
    ASSERT_EQ(editorState.image, image) << trial;
  }
  EXPECT_EQ(saveImage("saved.bin"), image);
}

}  // namespace
