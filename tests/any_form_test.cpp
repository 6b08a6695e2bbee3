// Load any form: what the dialog tells of a file before anything is replaced, what is loaded, and
// what saving puts back into the file.
#include "imagefiles/any_form.h"

#include <filesystem>

#include "imagefiles/earlier_states_window.h"
#include "rom/srecord_writer.h"
#include "support.h"

namespace {

const std::string hexEnd = ":00000001FF\n";

class AnyForm : public ProgramTest {
 protected:
  AnyForm() { startWithMap("TYPE_UNIT\nCAR\nK_DATA,0,1,1,1,0,K\n"); }
  // Picks a file of this text; what the dialog says of it, cells with "|" between them.
  std::string open(const std::string& text, const std::string& name = "x.hex") {
    writeText(name, text);
    pick("load_any_form", {name});
    return seen();
  }
  static std::string seen() {
    return textsOf(anyFormWindow.list, 1, 0, "|", "; ") + anyFormWindow.base.text() + ": " +
           anyFormWindow.verdict.caption();
  }
};

TEST_F(AnyForm, TellsWhatAFileHoldsAndLoadsItToTheChosenBase) {
  const std::string twoParts = ":01000300BB41\n:020010000102EB\n:0100100009E6\n";
  struct Row {
    const char* what;
    std::string text, base, seen;
    Bytes image;
  };
  const Row table[] = {
      {"gap, overlap, no end",
       twoParts,
       "3",
       "Intel HEX|0003-0011|15; Gap, filled with FF|0004-000F|12; Given twice, the last "
       "stands||1; No end record: the file may be cut off||; 3: The image will have 15 bytes.",
       {0xBB, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 9, 2}},
      {"filled up from 0",
       ":01000300BB41\n" + hexEnd,
       "0",
       "Intel HEX|0003-0003|1; 0: The image will have 4 bytes.",
       {0xFF, 0xFF, 0xFF, 0xBB}},
      {"below the base",
       ":01000300BB41\n" + hexEnd,
       "4",
       "Intel HEX|0003-0003|1; 4: Bytes before the base address",
       {}},
      {"no number",
       ":01000300BB41\n" + hexEnd,
       "",
       "Intel HEX|0003-0003|1; : Enter a hexadecimal address.",
       {}},
      {"far",
       "S30A80000000010203041F6C\n",
       "0",
       "Line 1: a wrong checksum||; 0000: This can't be "
       "loaded.",
       {}},
      {"beyond the limit",
       "S306800000004138\n",
       "0",
       "S-record|80000000-80000000|1; No end record: the file may be cut off||; 0: More than 1 GiB "
       "from the base address on",
       {}},
      {"raw, whatever its name",
       std::string("\x01\x02"),
       "0",
       "Raw bytes|0000-0001|2; 0000: The image will have 2 bytes.",
       {1, 2}},
      {"every fault",
       ":01000300BB42\n:0G000300BB41\n",
       "0",
       "Line 1: a wrong checksum||; Line 2: a character that is no hexadecimal digit||; 0000: This "
       "can't be loaded.",
       {}},
      {"2 GiB in two records",
       ":020000040000FA\n:0100000041BE\n:020000047FFF7C\n:0100000041BE\n",
       "0",
       "More than 1 GiB between the first and the last byte||; 0000: This can't be loaded.",
       {}},
      {"only an end", hexEnd, "0", "No byte of data||; 0000: This can't be loaded.", {}},
      {"empty", "", "0", "An empty file||; 0000: This can't be loaded.", {}},
  };
  for (const Row& row : table) {
    loadImage({1, 2, 3});
    open(row.text);
    typeOver(anyFormWindow.base, row.base);
    EXPECT_EQ(seen(), row.seen) << row.what;
    EXPECT_EQ(anyFormWindow.load.enabled(), !row.image.empty()) << row.what;
    EXPECT_EQ(editorState.image, (Bytes{1, 2, 3})) << row.what;
    std::filesystem::remove(path("x.hex"));
    row.image.empty() ? anyFormWindow.userEscape() : anyFormWindow.userEnter();
    EXPECT_EQ(editorState.image, row.image.empty() ? Bytes({1, 2, 3}) : row.image) << row.what;
  }
  EXPECT_EQ(told(), "");
}

TEST_F(AnyForm, SavesBackInItsFormAndToItsAddressesOrNotAtAll) {
  struct Row {
    const char *what, *name;
    std::string text, base;
    Bytes edited;
    std::string saved;
  };
  const Row table[] = {
      {"a gap that is filled in part",
       "x.bin",
       ":01800000BBC4\n:01800400CCAF\n",
       "8000",
       {0xBB, 0xFF, 7, 0xFF, 0xCD},
       ":01800000BBC4\r\n:018002000776\r\n:01800400CDAE\r\n:00000001FF\r\n"},
      {"upper addresses",
       "x",
       ":020000021FFFDE\n:01000F00BB35\n:020000040002F8\n:01000000CC33\n",
       "1FFFF",
       {0xBB, 0xCC},
       ":020000040001F9\r\n:01FFFF00BB46\r\n:020000040002F8\r\n:01000000CC33\r\n:00000001FF\r\n"},
      {"what stands before the data",
       "x.hex",
       "S1040003BB3D\n",
       "0",
       {0xFF, 0xFF, 0xFF, 0xBC},
       "S0030000FC\r\nS1040003BC3C\r\nS5030001FB\r\nS9030000FC\r\n"},
      {"raw bytes called hex", "y.hex", "\x01\x02", "0", {1, 3}, "\x01\x03"},
      {"beyond the last address",
       "z.hex",
       ":02000004FFFFFC\n:02FFFF00AABB9B\n",
       "FFFFFFFF",
       {0xAA, 0xBC},
       ""},
  };
  for (const Row& row : table) {
    open(row.text, row.name);
    typeOver(anyFormWindow.base, row.base);
    anyFormWindow.userEnter();
    editorState.image = row.edited;
    pick("update_bin_file");
    const bool held = !row.saved.empty();
    EXPECT_EQ(readText(row.name), held ? row.saved : row.text) << row.what;
    EXPECT_EQ(shown(), held ? ""
                            : std::string(row.name) +
                                  " was not saved: IntelHEX can't hold an image at these "
                                  "addresses. Use one of the Save as commands.");
    EXPECT_EQ(editorState.savedImage == row.edited, held);
    if (!held) continue;
    form1().mnuRecentFile[0]->userPick();
    EXPECT_TRUE(anyFormWindow.loaded()) << row.what;
    EXPECT_TRUE(anyFormWindow.base.text().ends_with(row.base)) << row.what;
    anyFormWindow.userEnter();
    EXPECT_EQ(editorState.image, row.edited) << row.what;
  }
}

TEST_F(AnyForm, SaysWhatTheOtherLoaderDoesNotLookAt) {
  const std::pair<std::string, std::string> table[] = {
      {":01000000AA55\r\n:01000100BB43\r\n", ""},
      {":01000000AA55\r\n:01000200BB42\r\n",
       "By its addresses x.hex holds something else than Load (IntelHEX) read."},
      {":01000000AA55\r\n:01000100BB44\r\n",
       "x.hex is damaged, which Load (IntelHEX) doesn't look at. Line 2: a wrong checksum."}};
  for (const auto& [records, notice] : table) {
    writeText("x.hex", records + ":00000001FF\r\n");
    pick("LOAD_IntelHEX_FILE", {"x.hex"});
    EXPECT_EQ(editorState.image, (Bytes{0xAA, 0xBB})) << "as ever";
    EXPECT_EQ(shown(), notice);
  }
}

TEST_F(AnyForm, IsOfferedWhereTheOtherLoaderRefusesAndWhereTheFileChanged) {
  writeText("lf.hex", ":01000000AA55\n" + hexEnd);
  pick("LOAD_IntelHEX_FILE", {"lf.hex"});
  EXPECT_EQ(told(), "*ERROR = [9]　Ill. DATA? lf.hex");
  EXPECT_EQ(shown(), "Load (IntelHEX) can't take lf.hex; Exchange > Load any form may.");
  form1().noticeAction1.userClick();
  anyFormWindow.userEnter();
  EXPECT_EQ(shown() + form1().caption(), "lf.hex - ZELKOVA");
  pick("save_s_records", {"as.s19"});
  const std::string saved = sRecordText(Bytes{0xAA});
  EXPECT_EQ(readText("as.s19") + form1().caption(), saved + "as.s19 - ZELKOVA");
  writeText("as.s19", sRecordText(Bytes{0xAB}, 0x9000));
  std::filesystem::last_write_time(path("as.s19"), std::filesystem::file_time_type::min());
  form1().userActivate();
  form1().noticeAction1.userClick();
  EXPECT_EQ(anyFormWindow.base.text(), "0000") << "where the image was";
  typeOver(anyFormWindow.base, "9000");
  anyFormWindow.userEnter();
  EXPECT_EQ(editorState.image, Bytes{0xAB});
  saveImage("plain.bin");
  pick("update_bin_file");
  EXPECT_EQ(readBytes("plain.bin"), Bytes{0xAB}) << "the name tells the form again";
  editorState.addressMap.typeUnit = "";
  pick("load_any_form");
  editorState.addressMap.typeUnit = "CAR";
  pick("load_any_form", {"gone.hex"});
  EXPECT_TRUE(told().ends_with("crowded.|*ERROR = [53]　Ill. DATA? gone.hex"));
}

TEST_F(AnyForm, AnEarlierStateGoesBackToTheFormAndTheAddressesOfItsFile) {
  desk.userData = path("data");
  const std::string text = ":01800000BBC4\r\n:01800400CCAF\r\n" + hexEnd;
  open(text, "x.bin");
  anyFormWindow.userEnter();
  editorState.image[1] = 7;
  desk.boxAnswers = {BoxAnswer::yes};
  pick("load_bin_file", {"map.adr"});
  told();
  pick("earlier_states");
  earlierStatesWindow.thisFileOnly.userToggle();
  earlierStatesWindow.loadState.userClick();
  EXPECT_EQ(editorState.image, (Bytes{0xBB, 7, 0xFF, 0xFF, 0xCC}));
  EXPECT_EQ(editorState.savedImage, (Bytes{0xBB, 0xFF, 0xFF, 0xFF, 0xCC}));
  pick("update_bin_file");
  EXPECT_EQ(readText("x.bin"),
            ":01800000BBC4\r\n:018001000777\r\n:01800400CCAF\r\n:00000001FF\r\n");
  pick("earlier_states");
  ASSERT_EQ(earlierStatesWindow.list.text(1, 4), "1") << "what the save replaced";
  earlierStatesWindow.loadState.userClick();
  pick("update_bin_file");
  EXPECT_EQ(readText("x.bin"), ":01800000BBC4\r\n:01800400CCAF\r\n:00000001FF\r\n");
}

}  // namespace
