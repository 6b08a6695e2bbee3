// Reading and writing Intel HEX as bytes and texts: the forms of lines that are taken, passed over
// or refused, the exact text written, and what random damage does.
#include <optional>
#include <random>
#include <string_view>

#include "imagefiles/intel_hex_reader.h"
#include "imagefiles/intel_hex_writer.h"
#include "plain_hex_reader.h"
#include "platform/failure.h"
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
  struct Row {
    const char* what;
    std::string text;
    std::optional<Bytes> bytes;
  };
  const Row table[] = {
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
  for (const Row& row : table) EXPECT_EQ(read(row.text), row.bytes) << row.what;
}

TEST(IntelHexReader, RefusesMoreBytesThanItsCapacityAndMoreThan70001Lines) {
  const std::string one = ":01000000417E\r\n";
  const std::string full = repeated(":0A0000000102030405060708090A\r\n", 14000) + one;
  struct Row {
    std::string text;
    std::int64_t capacity;
    std::optional<std::size_t> size;
  };
  const Row table[] = {{full, 140001, 140001},
                       {full + one, 140001, {}},
                       {full + one, 200001, 140002},
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

TEST(IntelHexField, ReadsDigitsUpToTheFirstOther) {
  const std::pair<const char*, std::int32_t> table[] = {
      {"fF", 255},      {"1G", 1},    {"G1", 0},       {"", 0},         {"7FFF", 32767},
      {"8000", -32768}, {"FFFF", -1}, {"80", 128},     {"12G4", 0x12},  {" 1", 0},
      {"-1", 0},        {"&H", 0},    {"\xEF\xBC", 0}, {"90aA", -28502}};
  for (const auto& [text, value] : table) EXPECT_EQ(hexField(text), value) << text;
}

// Puts bytes, with a liking for what the format is made of, or copies of other places over a few.
std::string damaged(std::string text, std::mt19937& random) {
  constexpr std::string_view likely = "\r\n:0012789AFfGg \xFF";
  for (auto changes = random() % 8 + 1; changes > 0 && !text.empty(); --changes) {
    std::string piece(random() % 2, likely[random() % likely.size()]);
    if (random() % 4 == 0) piece = text.substr(random() % text.size(), random() % 100);
    const std::size_t place = random() % text.size();
    text.replace(place, random() % (piece.empty() ? 40 : 2), piece);
  }
  return text;
}

TEST(IntelHexReader, GivesWhatWasWrittenAndOfDamagedFilesWhatAPlainReaderGives) {
  std::mt19937 random(1);
  for (unsigned round = 0; round < 3000; ++round) {
    const Bytes source = patternImage(random() % 700 + 1, round);
    ASSERT_EQ(read(intelHexText(source)), source);
    const std::string text = damaged(intelHexText(source), random);
    const auto capacity = static_cast<std::int64_t>(random() % 2000);
    const auto bytes = read(text, capacity);
    ASSERT_EQ(bytes, readHexPlainly(text, capacity)) << round << "\n" << text;
    if (!bytes) continue;
    ASSERT_LE(bytes->capacity(), std::max<std::size_t>(capacity, text.size() / 2)) << "memory";
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
  const std::string full = ":20FFE000" + std::string(64, '0') + "01\r\n";
  for (const auto& [size, bases] :
       {std::pair(0x10001, ":020000021000EC\r\n"), std::pair(0xF0001, ":02000002F0000C\r\n"),
        std::pair(0x100001, ":020000020000FC\r\n:020000040010EA\r\n"),
        std::pair(0x110001, ":020000040011E9\r\n")}) {
    const std::string text = intelHexText(Bytes(static_cast<std::size_t>(size)));
    EXPECT_TRUE(text.ends_with(full + bases + ":0100000000FF\r\n:00000001FF\r\n")) << size;
  }
}

}  // namespace
