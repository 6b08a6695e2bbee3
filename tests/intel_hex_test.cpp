// Reading and writing Intel HEX as bytes and texts: the forms of lines that are taken, passed over
// or refused, the exact text written, and what random damage does.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "imagefiles/intel_hex_reader.h"
#include "imagefiles/intel_hex_writer.h"
#include "plain_hex_reader.h"
#include "platform/failure.h"
#include "scratch_folder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr std::int64_t noLimit = std::numeric_limits<std::int32_t>::max();

// Nothing when the reader fails as it should: with badSubscript.
std::optional<Bytes> read(std::string_view text, std::int64_t capacity = imageHexCapacity) {
  try {
    return readIntelHex(bytesOf(text), capacity);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), badSubscript);
    return std::nullopt;
  }
}

Bytes randomBytes(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  Bytes bytes(count);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

std::string repeated(std::string_view text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

struct ReaderCase {
  const char* what;
  std::string text;
  std::optional<Bytes> bytes;
};

const Bytes filled256 = [] {
  Bytes bytes(256, 0xFF);
  bytes.push_back(0x41);
  return bytes;
}();

const std::vector<ReaderCase> readerCases = {
    {"plain", ":03000000010203F7\r\n", Bytes{1, 2, 3}},
    {"segment and end records", ":020000020000FC\r\n:01000000417E\r\n:00000001FF\r\n", Bytes{0x41}},
    {"an end record without a line end", ":01000000417E\r\n:00000001FF", Bytes{0x41}},
    {"a last line without a line end", ":01000000417E\r\n:010001004200", Bytes{0x41}},
    {"a line end with nothing behind it", ":01000000417E\r", Bytes{0x41}},
    {"any byte behind the carriage return", ":01000000417E\r::010001004200\rX", Bytes{0x41, 0x42}},
    {"bare carriage returns eat the colon", ":01000000417E\r:0010002004243\r:", Bytes{0x41, 0x42}},
    {"no carriage return", ":03000000010203F7\n", std::nullopt},
    {"no bytes", "", std::nullopt},
    {"only passed-over lines", ":020000020000FC\r\n:00000001FF\r\n", std::nullopt},
    {"only blank lines", "\r\n\r\n\r\n", std::nullopt},
    {"only carriage returns", repeated("\r", 5000), std::nullopt},
    {"blank lines between", "\r\n:01000000417E\r\n\r\n:010001004200\r\n", Bytes{0x41, 0x42}},
    {"lower case", ":02000000abcd\r\n:03000000abcdef\r\n", Bytes{0xAB, 0xCD, 0xEF}},
    {"two bytes dropped", ":0100000001\r\n:020001000203\r\n:0100030004\r\n", Bytes{1, 4}},
    {"types other than data", ":0400000300010203F6\r\n", Bytes{0, 1, 2, 3}},
    {"a wrong checksum", ":0100000041FF\r\n", Bytes{0x41}},
    {"a count above the line", ":FF00000041\r\n",
     [] {
       Bytes bytes(255);
       bytes[0] = 0x41;
       return bytes;
     }()},
    {"half a byte at the line's end", ":030000004142A\r\n", Bytes{0x41, 0x42, 0x0A}},
    {"a count below the line", ":010000004142434445\r\n", Bytes{0x41}},
    {"bad digits end their field", ":050000001GG1 1x01G\r\n", Bytes{1, 0, 0, 0, 0x1}},
    {"bad digits in the count", ":1G00000041\r\n", Bytes{0x41}},
    {"no digit in the count", ":G100000041\r\n:01000000417E\r\n", Bytes{0x41}},
    {"no colon", "X01000000417E\r\nnonsense\r\n", Bytes{0x41}},
    {"a line of three characters", ":01\r\n", Bytes{0}},
    {"a first address", ":01010000417E\r\n", filled256},
    {"a short first address", ":0101\r\n", Bytes{0xFF, 0x00}},
    {"a first address of bad digits", ":0100G000417E\r\n", Bytes{0x41}},
    {"a first address without bytes", "X000100\r\n:01000000417E\r\n", filled256},
    {"filler alone", "X000003\r\n", Bytes{0xFF, 0xFF, 0xFF}},
    {"addresses behind the first", ":01000000417E\r\n:01800000427E\r\n:01000100437E\r\n",
     Bytes{0x41, 0x42, 0x43}},
    {"address 8000", ":01800000417E\r\n", std::nullopt},
    {"address FFFF", ":01FFFF00417E\r\n", std::nullopt},
    {"address 8000 without bytes", "X008000\r\n:01000000417E\r\n", std::nullopt},
    {"a zero byte in a line", std::string(":01\0", 4) + "0000041\r\n", Bytes{0x41}},
    {"binary", "\x7F\x01\x02\x03\x04\r\xFF\xFE\xFD\x80\r", std::nullopt},
};

TEST(IntelHexReader, TakesTheCountAndTheDataOfEachLineAndNothingElse) {
  for (const ReaderCase& row : readerCases) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(read(row.text), row.bytes);
  }
}

TEST(IntelHexReader, RefusesMoreThanItsCapacityByDataOrByFiller) {
  const std::string line = ":0A0000000102030405060708090A\r\n";
  const std::string full = repeated(line, 14000) + ":010000000B\r\n";
  EXPECT_EQ(read(full)->size(), 140001U);
  EXPECT_EQ(read(full + ":010000000C\r\n"), std::nullopt);
  EXPECT_EQ(read(full + ":010000000C\r\n", halfHexCapacity)->size(), 140002U);
  EXPECT_EQ(read("X000100\r\n", 256)->size(), 256U);
  EXPECT_EQ(read("X000101\r\n", 256), std::nullopt);
}

TEST(IntelHexReader, RefusesMoreThan70001Lines) {
  const std::string record = ":01000000417E\r\n";
  EXPECT_EQ(read(repeated(record, 70001))->size(), 70001U);
  EXPECT_EQ(read(repeated(record, 70002)), std::nullopt);
  EXPECT_EQ(read(record + repeated("\r\n", 70001)), std::nullopt);
  EXPECT_EQ(read(std::string(std::size_t{64} << 20, ':')), std::nullopt);
}

TEST(IntelHexReader, TheReaderForHalvesTakesAFileOfNoBytesButNotAnEmptyFile) {
  const auto orNothing = [](std::string_view text) {
    return readIntelHexOrNothing(bytesOf(text), halfHexCapacity);
  };
  EXPECT_EQ(orNothing(":00000001FF\r\n"), Bytes{});
  EXPECT_EQ(orNothing("no line end"), Bytes{});
  EXPECT_EQ(orNothing("X008000\r\n"), Bytes{});
  EXPECT_THROW(orNothing(""), Failure);
}

TEST(IntelHexField, ReadsDigitsUpToTheFirstOther) {
  const std::vector<std::pair<const char*, std::int32_t>> cases = {
      {"00", 0},      {"FF", 255},     {"fF", 255},      {"1G", 1},    {"G1", 0},
      {"", 0},        {"7FFF", 32767}, {"8000", -32768}, {"FFFF", -1}, {"80", 128},
      {"12G4", 0x12}, {" 1", 0},       {"-1", 0},        {"&H", 0},    {"\xEF\xBC", 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(hexField(text), value) << text;
}

// Changes, drops and doubles bytes, with a liking for what the format is made of.
std::string damaged(std::string text, std::mt19937& random) {
  constexpr std::string_view likely = "\r\n:0012789AFfGg \xFF";
  const int changes = static_cast<int>(random() % 8) + 1;
  for (int i = 0; i < changes && !text.empty(); ++i) {
    const std::size_t place = random() % text.size();
    const char character = likely[random() % likely.size()];
    switch (random() % 4) {
      case 0:
        text[place] = character;
        break;
      case 1:
        text.insert(place, 1, character);
        break;
      case 2:
        text.erase(place, random() % 40);
        break;
      default:
        text.insert(place, text.substr(random() % text.size(), random() % 100));
    }
  }
  return text;
}

TEST(IntelHexReader, DamagedFilesGiveWhatAPlainReaderGives) {
  std::mt19937 random(1);
  for (unsigned round = 0; round < 3000; ++round) {
    const std::string text = damaged(intelHexText(randomBytes(random() % 700 + 1, round)), random);
    const auto capacity = static_cast<std::int64_t>(random() % 2000);
    ASSERT_EQ(read(text, capacity), readHexPlainly(text, capacity)) << round << "\n" << text;
  }
}

TEST(IntelHexReader, HoldsNoMoreThanItsCapacityOrHalfTheText) {
  const std::string shortLines = repeated(":FF000000\r\n", 500);
  const Bytes bytes = *read(shortLines);
  EXPECT_EQ(bytes.size(), 255U * 500);
  EXPECT_LE(bytes.capacity(), static_cast<std::size_t>(imageHexCapacity));
  EXPECT_LE(read(repeated(":01000000417E\r\n", 100), noLimit)->capacity(), 750U);
}

struct WriterCase {
  Bytes source;
  std::vector<std::string> lines;
};

TEST(IntelHexWriter, WritesRecordsOf32BytesWithOffsetsAndChecksums) {
  Bytes two(64, 0xFF);
  std::fill(two.begin() + 32, two.end(), std::uint8_t{0});
  const std::vector<WriterCase> cases = {
      {two,
       {":020000020000FC", ":20000000" + repeated("F", 64) + "00",
        ":20002000" + repeated("0", 64) + "C0", ":00000001FF"}},
      {{0x0A}, {":020000020000FC", ":010000000AF5", ":00000001FF"}},
      {{1, 2}, {":020000020000FC", ":0100000001FE", ":0100010002FC", ":00000001FF"}},
      {{1, 2, 3}, {":020000020000FC", ":03000000010203F7", ":00000001FF"}},
      {{}, {":020000020000FC", ":00000001FF"}},
  };
  for (const auto& [source, lines] : cases) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    EXPECT_EQ(intelHexText(source), text);
  }
}

std::vector<std::string> baseRecords(std::string_view text) {
  std::vector<std::string> found;
  for (std::size_t start = 0; start < text.size(); start = text.find('\n', start) + 1) {
    const std::string_view line = text.substr(start, text.find('\r', start) - start);
    if (line.starts_with(":02")) found.emplace_back(line);
  }
  return found;
}

TEST(IntelHexWriter, OpensEverySegmentAndGoesOverToLinearBasesAtOneMebibyte) {
  const std::string at64K = intelHexText(Bytes(65536));
  EXPECT_EQ(std::ranges::count(at64K, '\n'), 2050);
  EXPECT_NE(at64K.find("\r\n:20FFE000"), at64K.npos);
  EXPECT_EQ(baseRecords(at64K), std::vector<std::string>{":020000020000FC"});
  EXPECT_EQ(baseRecords(intelHexText(Bytes(65537))),
            (std::vector<std::string>{":020000020000FC", ":020000021000EC"}));
  const auto bases = baseRecords(intelHexText(Bytes(0x110001)));
  ASSERT_EQ(bases.size(), 19U);
  EXPECT_EQ(bases[15], ":02000002F0000C");
  EXPECT_EQ(bases[16], ":020000020000FC");
  EXPECT_EQ(bases[17], ":020000040010EA");
  EXPECT_EQ(bases[18], ":020000040011E9");
}

TEST(IntelHexWriter, WhatItWritesReadsBack) {
  for (const std::size_t size :
       {1, 2, 31, 32, 33, 34, 63, 66, 65535, 65536, 65537, 65538, 131072, 140001, 262144}) {
    const Bytes source = randomBytes(size, static_cast<unsigned>(size));
    const auto back = read(intelHexText(source), noLimit);
    EXPECT_TRUE(back == source) << size;
  }
}

}  // namespace
