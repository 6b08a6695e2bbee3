// Address map files: items, blocks and their effects, the menu command, and files that no model
// ever had.
#include "core/address_map.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "core/map_kinds.h"
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

TEST_F(AddressMapFile, EachMapKeywordReachesItsGridAlone) {
  const std::pair<const char*, Grid F::*> table[] = {
      {"HIGH_FUEL", &F::Grid1},    {"HIGH_FIRE", &F::Grid2},    {"REG_FUEL", &F::Grid3},
      {"REG_FIRE", &F::Grid4},     {"VQ_MAP", &F::Grid5},       {"ADD_MAP1", &F::AddGrid1},
      {"ADD_MAP2", &F::AddGrid2},  {"ADD_MAP3", &F::AddGrid3},  {"ADD_MAP4", &F::AddGrid4},
      {"ADD_MAP5", &F::AddGrid11}, {"ADD_MAP6", &F::AddGrid12}, {"ADD_MAP7", &F::AddGrid13},
      {"ADD_MAP8", &F::AddGrid14}, {"TTP_MAX", &F::Grid7},      {"TTP_MIN", &F::Grid6},
      {"AF_LIMIT", &F::Grid8},     {"ADD_FUEL", &F::Grid9}};
  for (const auto& [keyword, member] : table) {
    useMap(mapBlock(keyword, "&H1A0", 5, 3, 20, "1", "\"名前, it\""));
    const Grid& grid = form1().*member;
    EXPECT_TRUE(told().empty() && grid.enabled() && enabled() == 1) << keyword;
    EXPECT_EQ(grid.rows(), *keyword == 'V' ? 2 : 4) << keyword;
    EXPECT_EQ(grid.columns(), *keyword == 'V' ? 11 : 6) << keyword;
  }
  EXPECT_EQ(form1().Label18.caption(), "名前, it");
  useMap(mapBlock("ADD_MAP8", "&H1A0", 5, 3, 20, "1", "it"));
  EXPECT_EQ(form1().Frame14.caption() + form1().TabStrip1.tab(13).toolTip, "itit");
  useMap("");
  EXPECT_EQ(form1().Frame14.caption(), "ADD Map8") << "nothing of the former file survives";
}

TEST_F(AddressMapFile, EntriesThatAnotherMapLacksAreNamedAsBeforeAnyMap) {
  const auto names = [] {
    std::string all;
    for (const Control* control : form1().controls()) {
      const auto* const captioned = dynamic_cast<const Captioned*>(control);
      all += (captioned ? captioned->caption() : "") + "|" + control->toolTip() + "|";
    }
    for (int tab = 1; tab <= globalTab; ++tab) all += form1().TabStrip1.tab(tab).toolTip + "|";
    return all;
  };
  std::string full = "TYPE_UNIT,X\n";
  const auto add = [&](const auto& kind) {
    full += mapBlock(kind.keyword, "&H10", 2, 1, 2, "1", "car");
  };
  std::ranges::for_each(mapKinds(), add);
  std::ranges::for_each(paramKinds(), add);
  for (const std::string& settings : {std::string(), firstSettings("map.adr")}) {
    writeText("zelkova.ini", settings);
    start();
    told();
    useMap("TYPE_UNIT,X");
    const std::string design = names();
    EXPECT_NE(design.find("マップ"), std::string::npos);
    useMap(full);
    EXPECT_NE(names(), design);
    useMap("TYPE_UNIT,X");
    EXPECT_EQ(names(), design);
  }
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
}

TEST_F(AddressMapFile, KeywordsStandWhereTheyStand) {
  const std::string high = mapBlock("HIGH_FUEL", "16", 2, 2, 4);
  // Why, the file, and how many entries are enabled with HIGH_FUEL's address.
  const std::array<std::string, 3> table[] = {
      {"twice: the last stands", high + mapBlock("HIGH_FUEL", "&H20", 2, 2, 4), "1 32"},
      {"bytes 0: absent", mapBlock("HIGH_FUEL", "2.5", 2, 2, 0), "0 2"},
      {"lower case, or a part", mapBlock("high_fuel", "16", 2, 2, 4) + "HIGH_FUEL x", "0 0"},
      {"comments between", "HIGH_FUEL\n# address\n16\n#\n2\n2\n4\n0\nc", "1 16"},
      {"bad rows before good bytes", "HIGH_FUEL\n16\n2\nx\n4\n0\nc", "0 16" + refused},
      {"no bytes", "HIGH_FUEL\n16\n2\n2\n", "0 16" + refused},
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
  writeText("endless.adr", std::string(1002, ',') + "x");
  writeText("blank.adr", "x");
  for (const char* name : {"endless.adr", "blank.adr"}) {
    std::filesystem::resize_file(path(name), std::uintmax_t{1} << 31);
  }
  for (const auto& [name, number] : {std::pair("long.adr", "9"), std::pair("folder.adr", "75"),
                                     std::pair("gone.adr", "53"), std::pair("no/folder.adr", "76"),
                                     std::pair("endless.adr", "9"), std::pair("blank.adr", "7")}) {
    pickFile("load_map_addr", name);
    EXPECT_TRUE(told().starts_with("*ERROR = [" + std::string(number) + "]")) << name;
    EXPECT_EQ(editorState.addressFilePath, path(name));
    EXPECT_EQ(form1().Label1.caption(), "SMALL");
    EXPECT_EQ(readText("zelkova.ini"), firstSettings("map.adr"));
    EXPECT_TRUE(form1().Grid1.enabled() && !desk.busy);
  }
  useMap("#" + std::string(70000, ' ') + "\nTYPE_UNIT,X" + std::string(1000, '\n'));
  desk.openAnswers.push_back("");
  pick("load_map_addr");
  EXPECT_EQ(form1().Label1.caption() + told(), "X") << "1001 items fit, Cancel changes nothing";
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
