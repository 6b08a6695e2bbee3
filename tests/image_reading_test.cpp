// Image files of any form: what a good one gives, what a person is told of a damaged one, and that
// what the writers make is read back.
#include "rom/image_reading.h"

#include <optional>

#include "rom/intel_hex_writer.h"
#include "rom/srecord_writer.h"
#include "support.h"

namespace {

constexpr const char* hexEnd = ":00000001FF\n";
constexpr const char* sEnd = "S9030000FC\n";

TEST(ImageReading, TakesRecordsOfAnyOrderLengthLineEndAndAddress) {
  struct Good {
    const char* what;
    std::string text;
    ImageFileForm form;
    std::uint32_t base;
    Bytes bytes;
    std::size_t gaps;
    std::uint64_t overlapping;
  };
  const auto hex = ImageFileForm::intelHex;
  const auto srec = ImageFileForm::sRecords;
  const Good table[] = {
      {"LF", std::string(":0100000041BE\n") + hexEnd, hex, 0, {0x41}, 0, 0},
      {"CR, lower case, blanks around",
       " :020010000affe5 \r" + std::string(hexEnd),
       hex,
       0x10,
       {0x0A, 0xFF},
       0,
       0},
      {"segment", ":020000021200EA\n:01000300BB41\n", hex, 0x12003, {0xBB}, 0, 0},
      {"linear, then back",
       ":020000040001F9\n:01000000AA55\n:020000040000FA\n:01FFFF00BB46\n",
       hex,
       0xFFFF,
       {0xBB, 0xAA},
       0,
       0},
      {"a gap, out of order",
       ":01000300BB41\n:01000000AA55\n",
       hex,
       0,
       {0xAA, 0xFF, 0xFF, 0xBB},
       1,
       0},
      {"the last of two stands", ":02000000AAAAAA\n:01000100BB43\n", hex, 0, {0xAA, 0xBB}, 0, 1},
      {"text behind the end",
       std::string(":0100000041BE\n") + hexEnd + "whatever\n",
       hex,
       0,
       {0x41},
       0,
       0},
      {"S1 with header and count",
       std::string("S00600004844521B\nS104000041BA\nS5030001FB\n") + sEnd,
       srec,
       0,
       {0x41},
       0,
       0},
      {"S2",
       "S20512345641"
       "1D\n",
       srec,
       0x123456,
       {0x41},
       0,
       0},
      {"S3",
       "S30612345678"
       "41A4\n",
       srec,
       0x12345678,
       {0x41},
       0,
       0},
      {"raw bytes that begin like a record",
       std::string(":01") + '\x80' + "x",
       ImageFileForm::raw,
       0,
       {':', '0', '1', 0x80, 'x'},
       0,
       0},
  };
  for (const Good& each : table) {
    ImageContent content;
    ASSERT_NO_THROW(content = readImageContent(bytesOf(each.text))) << each.what;
    EXPECT_EQ(content.form, each.form) << each.what;
    EXPECT_EQ(content.base, each.base) << each.what;
    EXPECT_EQ(content.bytes, each.bytes) << each.what;
    EXPECT_EQ(content.gaps.size(), each.gaps) << each.what;
    EXPECT_EQ(content.overlapping, each.overlapping) << each.what;
  }
}

TEST(ImageReading, NamesTheLineOfADamagedRecord) {
  const std::string good = ":0100000041BE\n";
  const std::tuple<std::string, std::size_t, const char*> table[] = {
      {good + ":01000100417E\n", 2, "a wrong checksum"},
      {good + "\n:0200010041BC\n", 3, "a byte count that is not the record's"},
      {good + ":0100010041B\n", 2, "an odd number of digits"},
      {good + ":0100014G41BD\n", 2, "a character that is no hexadecimal digit"},
      {good + "0100010041BD\n", 2, "a line that does not begin with \":\""},
      {good + ":0100000641B8\n", 2, "an unknown record type"},
      {good + ":0000\n", 2, "a record that is too short"},
      {good + ":01000004"
              "01FA\n",
       2, "an address record of another length than 2"},
      {hexEnd, 0, "no byte of data"},
      {":020000040000FA\n:0100000041BE\n:020000047FFF7C\n:0100000041BE\n", 0,
       "more than 1 GiB between the first and the last byte"},
      {"S1040000417B\n", 1, "a wrong checksum"},
      {"S1050000417A\n", 1, "a byte count that is not the record's"},
      {"S104000041BA\nS5030002FA\n", 2, "a number of records that is not the file's"},
      {"S4040000417A\n", 1, "an unknown record type"},
      {"", 0, "an empty file"},
  };
  for (const auto& [text, line, what] : table) {
    try {
      readImageContent(bytesOf(text));
      ADD_FAILURE() << what;
    } catch (const ImageFault& fault) {
      EXPECT_EQ(fault.line(), line) << what;
      EXPECT_STREQ(fault.what(), what) << text;
    }
  }
}

TEST(ImageReading, ReadsBackWhatTheWritersMake) {
  for (const std::size_t size : {1, 33, 0x10000, 0x10001, 0x110000}) {
    const Bytes image = patternImage(size);
    EXPECT_EQ(readImageContent(bytesOf(intelHexText(image))).bytes, image) << size;
    for (const std::uint32_t base : {0U, 0xFFF0U, 0xFFFFF0U}) {
      const ImageContent content = readImageContent(bytesOf(sRecordText(image, base)));
      EXPECT_EQ(content.bytes, image) << size;
      EXPECT_EQ(content.base, base) << size;
      EXPECT_TRUE(content.hasEnd) << size;
    }
  }
}

TEST(ImageReading, PutsAnImageWhereItsBaseIs) {
  const ImageContent content = readImageContent(bytesOf(":01000300BB41\n"));
  EXPECT_EQ(usualBase(content), 0U);
  EXPECT_EQ(bytesFrom(content, 0), (Bytes{0xFF, 0xFF, 0xFF, 0xBB}));
  EXPECT_EQ(bytesFrom(content, 3), Bytes{0xBB});
  EXPECT_THROW(bytesFrom(content, 4), ImageFault);
  EXPECT_EQ(usualBase(readImageContent(bytesOf(":01800000BBC4\n"))), 0x8000U);
}

}  // namespace
