// Reading and writing Intel HEX as bytes and texts: the forms of lines that are taken, passed over
// or refused, and the exact text written.
#include <optional>
#include <string_view>

#include "platform/failure.h"
#include "rom/intel_hex_reader.h"
#include "rom/intel_hex_writer.h"
#include "scratch_folder.h"
#include "support.h"

namespace {

// Nothing when the reader fails as it should: with badSubscript.
std::optional<Bytes> read(std::string_view text, std::int64_t capacity = imageHexCapacity) {
  try {
    return readIntelHex(bytesOf(text), capacity);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), badSubscript);
    return std::nullopt;
  }
}

std::string repeated(std::string_view text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

TEST(IntelHexReader, TakesTheCountAndTheDataOfEachLineAndNothingElse) {
  const std::tuple<const char*, std::string, std::optional<Bytes>> table[] = {
      {"base and end records", ":020000020000FC\r\n:01000000417E\r\n:00000001FF", Bytes{0x41}},
      {"a last line without a line end", ":01000000417E\r\n:010001004200", Bytes{0x41}},
      {"any byte behind the carriage return", ":0100000041\r::010001004200\rX", Bytes{0x41, 0x42}},
      {"no carriage return", ":03000000010203F7\n", std::nullopt},
      {"only passed-over lines", ":020000020000FC\r\n:00000001FF\r\n", std::nullopt},
      {"only carriage returns", std::string(5000, '\r'), std::nullopt},
      {"lower case", ":02000000abcd\r\n:03000000abcdef\r\n", Bytes{0xAB, 0xCD, 0xEF}},
      {"two bytes dropped", ":0100000001\r\n:020001000203\r\n:0100030004\r\n", Bytes{1, 4}},
      {"types other than data", ":0400000300010203F6\r\n", Bytes{0, 1, 2, 3}},
      {"a count above the line", ":FF0000FF00\r\n", Bytes(255)},
      {"bad digits end their field", ":5G0000001GG1 1x01G\r\n", Bytes{1, 0, 0, 0, 0x1}},
      {"no colon", "X01000000417E\r\nnonsense\r\n", Bytes{0x41}},
      {"filler alone, then data", "X000003\r\n:0100000041\r\n", Bytes{255, 255, 255, 0x41}},
      {"later addresses", ":0100000041\r\n:0180000042\r\n:0100010043\r\n", Bytes{'A', 'B', 'C'}},
      {"address 8000", ":01800000417E\r\n", std::nullopt},
      {"address FFFF without bytes", "X00FFFF\r\n:01000000417E\r\n", std::nullopt},
      {"binary", "\x7F\x01\x02\x03\x04\r\xFF\xFE\xFD\x80\r", std::nullopt},
  };
  for (const auto& [what, text, bytes] : table) EXPECT_EQ(read(text), bytes) << what;
}

TEST(IntelHexReader, RefusesMoreBytesThanItsCapacityAndMoreThan70001Lines) {
  const std::string one = ":01000000417E\r\n";
  const std::string full = repeated(":0A0000000102030405060708090A\r\n", 14000) + one;
  const std::tuple<std::string, std::int64_t, std::optional<std::size_t>> table[] = {
      {full, 140001, 140001},
      {full + one, 140001, {}},
      {"X000100\r\n", 256, 256},
      {"X000101\r\n", 256, {}},
      {repeated(one, 70001), 140001, 70001},
      {repeated(one, 70002), 140001, {}},
      {one + repeated("\r\n", 70001), 140001, {}},
      {std::string(std::size_t{64} << 20, ':'), 140001, {}}};
  for (const auto& [text, capacity, size] : table) {
    const auto bytes = read(text, capacity);
    EXPECT_EQ(bytes ? std::optional(bytes->size()) : std::nullopt, size) << text.size();
  }
}

TEST(IntelHexWriter, WritesRecordsOf32BytesWithBasesOffsetsAndChecksums) {
  const std::pair<Bytes, std::string> table[] = {
      {Bytes(64, 0xFF),
       ":20000000" + std::string(64, 'F') + "00\r\n:20002000" + std::string(64, 'F') + "E0\r\n"},
      {{0x0A}, ":010000000AF5\r\n"},
      {{1, 2}, ":0100000001FE\r\n:0100010002FC\r\n"},
      {{1, 2, 3}, ":03000000010203F7\r\n"},
      {{}, ""}};
  for (const auto& [source, records] : table) {
    EXPECT_EQ(intelHexText(source), ":020000020000FC\r\n" + records + ":00000001FF\r\n");
  }
}

}  // namespace
