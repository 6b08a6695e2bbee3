// What is told of an address map: one row for each mistake that a writer of maps can make.
#include "rom/address_check.h"

#include "support.h"

namespace {

constexpr const char* head = "TYPE_UNIT\r\nCAR\r\n";
constexpr const char* fuel = "HIGH_FUEL,16,4,2,8,2,fuel\r\n";

std::vector<std::string> told(const std::string& text, std::size_t imageBytes) {
  const Bytes image(imageBytes);
  std::vector<std::string> lines;
  for (const AddressProblem& each : checkAddressMap(text, image).problems) {
    lines.push_back(std::to_string(each.line) + ": " + each.what);
  }
  return lines;
}

TEST(AddressCheck, NamesEachMistakeWithItsLine) {
  const std::string start = std::string(head) + fuel;
  const std::string shorter = "HIGH_FUEL: ends at &H0017, behind the image's last byte at &H0016";
  const std::tuple<std::string, std::size_t, std::vector<std::string>> table[] = {
      {start, 24, {}},
      {start + "# a comment\r\n\r\nREV1_LIMIT,0,1,1,1,50,rev\r\n", 24, {}},
      {start, 23, {"3: " + shorter}},
      {start + "HIGH_FULE,0,1,1,1,2,x\r\n",
       24,
       {"4: unknown keyword \"HIGH_FULE\"", "4: unknown keyword \"0\"", "4: unknown keyword \"1\"",
        "4: unknown keyword \"1\"", "4: unknown keyword \"1\"", "4: unknown keyword \"2\"",
        "4: unknown keyword \"x\""}},
      {start + fuel,
       24,
       {"4: HIGH_FUEL again: it stands in line 3 already, and the last one counts"}},
      {start + "REG_FUEL,20,4,1,4,2,low\r\n",
       24,
       {"4: REG_FUEL: overlaps HIGH_FUEL of line 3 at "
        "&H0014"}},
      {start + "REG_FUEL,0,4,1,5,2,low\r\n",
       24,
       {"4: REG_FUEL: 5 bytes, but its 1 x 4 cells take 4"}},
      {start + "REG_FUEL,0,0,1,5,2,low\r\n",
       24,
       {"4: REG_FUEL: 1 rows and 0 columns show nothing"}},
      {start + "RPM_SCALE_FUEL,0,4,1,4,0,rpm\r\n",
       24,
       {"4: RPM_SCALE_FUEL: a scale of 0 shows only zeros"}},
      {fuel, 24, {"0: no TYPE_UNIT: the model has no name"}},
      {"nothing\r\n", 24, {"0: no keyword at all", "1: unknown keyword \"nothing\""}},
      {start + "REG_FUEL,1,2\r\n",
       24,
       {"0: the program stops reading this map at a value: Subscript out of range",
        "4: REG_FUEL: only 2 of 6 values"}},
      {start + "REG_FUEL,ten,4,1,4,2,low\r\n",
       24,
       {"0: the program stops reading this map at a value: Type mismatch",
        "4: REG_FUEL: the address \"ten\" is no number of 32 bits"}},
  };
  for (const auto& [text, bytes, lines] : table) EXPECT_EQ(told(text, bytes), lines) << text;
}

}  // namespace
