// Address map files: items, blocks and their effects, the menu command, and files that no model
// ever had.
#include "core/address_map.h"

#include <array>
#include <filesystem>

#include "support.h"

namespace {

using F = Form1;

const std::string refused = "ERROR (Function:SET_MAP_ADDR)";

class AddressMapFile : public ProgramTest {
 protected:
  AddressMapFile() { startWithMap(smallMap()); }
  // How many maps and parameters are enabled.
  static int enabled() {
    int count = 0;
    for (const MapKind& kind : mapKinds()) count += gridOf(kind).enabled();
    for (const ParamKind& kind : paramKinds()) count += (form1().*kind.box).enabled();
    return count;
  }
};

TEST_F(AddressMapFile, SplitsIntoItems) {
  const std::pair<std::string, const char*> table[] = {
      {"\"open, x\nb", "open, x|b|"}, {"\t  a b \t ,c", "a b|c|"}, {"\" a \"", " a |"},
      {"\xEF\xBB\xBF名前", "名前|"},  {"\"#quoted\",b\"", "b\"|"}, {"a,\nb", "a||b|"},
      {"\x96\xBC\x91\x4F", "名前|"},  {"# x\na # b", "a # b|"},    {"\n", "|"},
      {"\"a, b\" x, c", "a, b|c|"},   {"a,b\r\nc", "a|b|c|"},      {"#", ""},
      {"a\rb\n\nc\r\n", "a|b||c|"},   {"# x, b\na", "b|a|"}};
  for (const auto& [text, expected] : table) {
    writeBytes("items.adr", {text.begin(), text.end()});
    pickFile("load_map_addr", "items.adr");
    std::string items;
    for (int i = 0; i < editorState.lineCount; ++i) {
      items += editorState.lines[static_cast<std::size_t>(i)] + "|";
    }
    EXPECT_EQ(items, expected) << text;
  }
}

TEST_F(AddressMapFile, EachMapKeywordReachesItsGridCaptionAndToolTip) {
  const std::tuple<const char*, Grid F::*, Frame F::*> onTabs[] = {
      {"HIGH_FUEL", &F::Grid1, &F::Frame1},     {"HIGH_FIRE", &F::Grid2, &F::Frame2},
      {"REG_FUEL", &F::Grid3, &F::Frame3},      {"REG_FIRE", &F::Grid4, &F::Frame4},
      {"VQ_MAP", &F::Grid5, &F::Frame5},        {"ADD_MAP1", &F::AddGrid1, &F::Frame6},
      {"ADD_MAP2", &F::AddGrid2, &F::Frame8},   {"ADD_MAP3", &F::AddGrid3, &F::Frame9},
      {"ADD_MAP4", &F::AddGrid4, &F::Frame10},  {"ADD_MAP5", &F::AddGrid11, &F::Frame11},
      {"ADD_MAP6", &F::AddGrid12, &F::Frame12}, {"ADD_MAP7", &F::AddGrid13, &F::Frame13},
      {"ADD_MAP8", &F::AddGrid14, &F::Frame14}};
  const std::tuple<const char*, Grid F::*, Label F::*> limits[] = {
      {"TTP_MAX", &F::Grid7, &F::Label12},
      {"TTP_MIN", &F::Grid6, &F::Label11},
      {"AF_LIMIT", &F::Grid8, &F::Label2},
      {"ADD_FUEL", &F::Grid9, &F::Label18}};
  Form1& form = form1();
  const auto use = [&](const std::string& keyword, const Grid& grid) {
    useMap(mapBlock(keyword, "&H1A0", 5, 3, 20, "1", "\"名前, it\""));
    EXPECT_TRUE(told().empty() && grid.enabled() && enabled() == 1) << keyword;
    EXPECT_EQ(grid.rows() * 100 + grid.columns(), keyword == "VQ_MAP" ? 211 : 406);
  };
  for (const auto& [keyword, grid, label] : limits) {
    use(keyword, form.*grid);
    EXPECT_EQ((form.*label).caption() + (form.*grid).toolTip(), "名前, it名前, it &H1A0:20byte");
  }
  int tab = 0;
  for (const auto& [keyword, grid, frame] : onTabs) {
    use(keyword, form.*grid);
    EXPECT_EQ((form.*frame).caption() + form.TabStrip1.tab(++tab).toolTip, "名前, it名前, it");
  }
  useMap("");
  EXPECT_EQ(form.Frame14.caption(), "ADD Map8") << "nothing of the former file survives";
}

TEST_F(AddressMapFile, SizesBeyondAllReasonEndTheParseAndLoseNothing) {
  const Bytes image = patternImage(64);
  loadImage(image);
  told();
  for (const char* bad :
       {"TTP_MIN,16,1024,1023,1", "TTP_MIN,16,2147483647,0,1", "TTP_MIN,16,0,2147483647,1",
        "TTP_MIN,16,-1,5,1", "TTP_MIN,16,5,-2147483648,1", "TTP_MIN,16,1,99999999999,1",
        "TTP_MIN,16,2147483647,2147483647,1", "VQ_MAP,16,8,1,-2147483648",
        "VQ_MAP,16,8,1,2147483647", "VQ_MAP,16,8,1,99999999999", "VQ_MAP,16,8,1,3000000"}) {
    useMap("TYPE_UNIT,X\n" + mapBlock("ADD_MAP4", "0", 2, 2, 4, "1") + bad + ",1,caption");
    EXPECT_NE(told().find(refused), std::string::npos) << bad;
    EXPECT_FALSE(form1().AddGrid4.enabled()) << "later keywords stay absent";
    pick("update_bin_file");
    EXPECT_EQ(readBytes("image.bin"), image);
  }
  const Bytes large = patternImage(1 << 20);
  useMap("TYPE_UNIT,X");
  loadImage(large);
  useMap("HIGH_FUEL,16,1023,1023,1,0,c\nTTP_MIN,16,0,5,1,0,c\nTTP_MAX,16,5,0,1,0,c");
  EXPECT_EQ(form1().Grid1.text(1023, 1023), std::to_string(large[16 + 1023 * 1023 - 1]));
  EXPECT_EQ(enabled(), 3);
}

TEST_F(AddressMapFile, KeywordsStandWhereTheyStand) {
  const std::string high = mapBlock("HIGH_FUEL", "16", 2, 2, 4);
  // Why, the file, and how many entries are enabled with HIGH_FUEL's address.
  const std::array<std::string, 3> table[] = {
      {"twice: the last stands", high + mapBlock("HIGH_FUEL", "&H20", 2, 2, 4), "1 32"},
      {"bytes 0: absent", mapBlock("HIGH_FUEL", "2.5", 2, 2, 0), "0 2"},
      {"lower case, or a part", mapBlock("high_fuel", "16", 2, 2, 4) + "HIGH_FUEL x", "0 0"},
      {"a caption", mapBlock("REG_FUEL", "1", 2, 2, 4, "0", "HIGH_FUEL") + "64,2,2,4,0", "2 64"},
      {"comments between", "HIGH_FUEL\n# address\n16\n#\n2\n2\n4\n0\nc", "1 16"},
      {"no caption", "HIGH_FUEL\n16\n2\n2\n4\n0\n", "1 16"},
      {"bad rows before good bytes", "HIGH_FUEL\n16\n2\nx\n4\n0\nc", "0 16" + refused},
      {"no bytes", "HIGH_FUEL\n16\n2\n2\n", "0 16" + refused},
      {"a comma shifts it", "HIGH_FUEL\n16\n# a,b\n2\n2\n4\n", "0 16" + refused},
      {"a later keyword fails", high + "TTP_MAX\nx\n", "1 16" + refused},
      {"an earlier one", "HIGH_FIRE\nx\nTTP_MAX,1,2,2,4,0,c\n" + high, "1 16" + refused},
      {"past the last item", std::string(999, '\n') + "a\nHIGH_FUEL", "0 0" + refused},
      {"NULs", std::string("HIGH\0_FUEL\n", 11) + high + std::string(5, '\0'), "1 16"}};
  for (const auto& [name, text, expected] : table) {
    editorState.addressMap = {};
    useMap(text);
    const int address = editorState.addressMap.map(HIGH_FUEL).address;
    EXPECT_EQ(std::to_string(enabled()) + " " + std::to_string(address) + told(), expected) << name;
  }
}

TEST_F(AddressMapFile, FilesThatCannotBeReadKeepTheFormerMap) {
  writeText("long.adr", "TYPE_UNIT,X" + std::string(1001, '\n'));
  std::filesystem::create_directory(path("folder.adr"));
  writeBytes("big.adr", patternImage(2 << 20));
  for (const auto& [name, number] :
       {std::pair("long.adr", "9"), std::pair("folder.adr", "75"), std::pair("gone.adr", "53"),
        std::pair("no/folder.adr", "76"), std::pair("big.adr", "9")}) {
    pickFile("load_map_addr", name);
    EXPECT_EQ(desk.boxes.at(0).title, "Detected error.This error is not fatal.");
    EXPECT_EQ(told(), "*ERROR = [" + std::string(number) +
                          "]\r\n\r\nReading of an address file went wrong."
                          "\r\n\r\nPlease read again from a menu after starting. "
                          "\r\n\r\nFrom next time, it could start to usual.");
    EXPECT_EQ(editorState.addressFilePath, path(name));
    EXPECT_EQ(form1().Label1.caption(), "SMALL");
    EXPECT_EQ(readText("zelkova.ini"), firstSettings("map.adr"));
    EXPECT_TRUE(form1().Grid1.enabled() && !desk.busy);
  }
  useMap("TYPE_UNIT,X" + std::string(1000, '\n'));
  desk.openAnswers.push_back("");
  pick("load_map_addr");
  EXPECT_EQ(form1().Label1.caption() + told(), "X") << "1001 items fit, Cancel changes nothing";
  const FileDialog& dialog = desk.openDialogs.back();
  EXPECT_EQ(dialog.filter + dialog.title + dialog.fileName,
            "Address Map (*.adr)|*.adrThe address information by the model is read. (*.adr file)" +
                path("used.adr"));
}

TEST_F(AddressMapFile, AnotherMapOverALoadedImageKeepsEditsAndShowsItself) {
  Bytes image = patternImage(0x300);
  loadImage(image);
  form1().Grid1.setText(1, 1, "77");
  useMap("TYPE_UNIT\nNEXT\n" + mapBlock("REG_FIRE", "&HFF", 3, 1, 3));
  EXPECT_EQ(form1().Grid4.text(1, 2) + form1().Grid1.text(1, 1) + form1().Text1.text(), "77N/A");
  EXPECT_EQ(form1().TP_FUEL.text(0, 0), "Boost");
  for (std::uint32_t junk = 0; junk < 50; ++junk) {
    writeBytes("junk.adr", patternImage(junk * 40, junk));
    pickFile("load_map_addr", "junk.adr");
  }
  told();
  useMap("TYPE_UNIT,X\n" + mapBlock("K_DATA", "&H2FF", 1, 1, 2));
  EXPECT_EQ(told() + form1().Label1.caption(), "*ERROR = [9]X") << "in force, but no such bytes";
  useMap("TYPE_UNIT,X");
  image[0x100] = 77;
  EXPECT_EQ(saveImage("saved.bin"), image);
}

}  // namespace
