// The single parameters in their boxes: what they show, what may be typed, and what is stored.
#include "core/global_parameters.h"

#include "core/map_kinds.h"
#include "platform/numbers.h"
#include "support.h"

namespace {

constexpr std::size_t place = 0x40;  // of the parameter under test

class GlobalParameters : public ProgramTest {
 protected:
  // A car with one parameter, loaded from the hexadecimal digits at its place; FF all around.
  void load(ParamId id, int bytes, const std::string& scale, const std::string& digits) {
    Bytes image(0x100, 0xFF);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
      image[place + i / 2] = static_cast<std::uint8_t>(hexPrefix(digits.substr(i), 2));
    }
    loadUnder(mapBlock(paramKinds()[id].keyword, "&H40", 0, 0, bytes, scale), image);
  }
  void loadUnder(const std::string& blocks, const Bytes& image) {
    startWithMap("TYPE_UNIT\r\nCAR\r\n" + blocks);
    loadImage(image);
  }
  static TextBox& boxOf(ParamId id) { return form1().*paramKinds()[id].box; }
  std::string saved(std::size_t count) {
    pick("update_bin_file");
    const Bytes bytes = readBytes("image.bin");
    std::string digits;
    for (std::size_t i = 0; i < count; ++i) digits += padHex(hexText(bytes[place + i]), 1);
    return digits;
  }
};

// `held` are the image's bytes in hexadecimal digits before, `stored` after the box was pasted
// into.
TEST_F(GlobalParameters, BoxesShowWhatTheImageHoldsAndWhatStandsInThemIsStored) {
  struct Case {
    ParamId id;
    int bytes;
    const char *scale, *held, *text, *pasted, *stored;
    const char* box = "";
  };
  const char* const refused = "ERROR (Function:ANY_SET_MEMORY)";
  for (const auto& [id, bytes, scale, held, text, pasted, stored, box] :
       {Case{K_DATA, 3, "0", "0AFF0304", "0AFF03", "1GxyA", "01000A04"},
        Case{IGN_TIME, 1, "0", "01020304", "01", "ABC", "AB020304"},
        Case{ADD_BYTE3, 5, "0", "00010203AB", "00010203AB", "FF0203", "FF02030000"},
        Case{REV2_LIMIT, 2, "12.5", "02080304", "6500", "3225", "01020304"},
        Case{REV1_LIMIT, 1, "12.5", "01020304", "12", "6500", "20020304"},
        Case{REV3_LIMIT, 1, "1e30", "01020304", "1000000015047466219876688855040", "5", "00020304"},
        // A scaled value may change by itself.
        Case{REV3_LIMIT, 1, "0.3", "0A020304", "3", "3", "09020304"},
        Case{SPEED2_LIMIT, 4, "0.3", "FFFFFFFF", "-1", "7", "00000017"},
        Case{SPEED3_LIMIT, 4, "0.001", "01020304", "16909", "99999999", "01020304", refused},
        Case{SPEED4_LIMIT, 5, "1", "0102030405", "N/A", "7", "0102030405"}}) {
    load(id, bytes, scale, held);
    TextBox& shown = boxOf(id);
    EXPECT_EQ(shown.text(), text);
    EXPECT_EQ(shown.takesInput(), bytes <= 4 || id == ADD_BYTE3) << text;
    if (shown.takesInput()) {
      typeOver(shown, "");
      shown.userEdit(pasted);
    }
    EXPECT_EQ(saved(std::string(held).size() / 2), stored) << pasted;
    EXPECT_EQ(told(), box) << pasted;
  }
}

TEST_F(GlobalParameters, EachKeywordReachesItsBoxAndItsBytesAlone) {
  using F = Form1;
  const std::pair<const char*, TextBox F::*> table[] = {
      {"K_DATA", &F::Text1},       {"IGN_TIME", &F::Text2},     {"FB_SWITCH", &F::Text3},
      {"ADD_BYTE1", &F::Text12},   {"ADD_BYTE2", &F::Text13},   {"ADD_BYTE3", &F::Text14},
      {"REV1_LIMIT", &F::Text4},   {"REV2_LIMIT", &F::Text5},   {"REV3_LIMIT", &F::Text10},
      {"REV4_LIMIT", &F::Text11},  {"SPEED1_LIMIT", &F::Text6}, {"SPEED2_LIMIT", &F::Text7},
      {"SPEED3_LIMIT", &F::Text8}, {"SPEED4_LIMIT", &F::Text9}};
  std::string blocks;
  int address = place;
  for (const auto& row : table) {
    blocks += mapBlock(row.first, std::to_string(address++), 1, 1, 1, "1");
  }
  Bytes image = patternImage(0x50);
  loadUnder(blocks, image);
  for (std::uint8_t& byte : std::span(image).subspan(place, std::size(table))) {
    const auto& [keyword, box] = table[&byte - &image[place]];
    const bool decimal = std::string(keyword).ends_with("LIMIT");
    byte = static_cast<std::uint8_t>(byte + 1);
    typeOver(form1().*box, decimal ? std::to_string(byte) : hexText(byte));
    EXPECT_EQ(saveImage(keyword), image) << keyword;
  }
}

}  // namespace
