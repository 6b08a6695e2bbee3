// Texts in files: which bytes are which encoding, and that what is written reads back the same.
#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/utf8.h"

namespace {

using namespace std::string_literals;

const std::string mark = "\xEF\xBB\xBF";
const std::string unknown = "\xEF\xBF\xBD";

TEST(TextEncoding, BytesAreTakenForWhatTheyCanBe) {
  const struct {
    const char* what;
    std::string bytes;
    std::string text;
  } rows[] = {
      {"nothing", "", ""},
      {"ASCII", "C:\\maps~1\r\n", "C:\\maps~1\r\n"},
      {"a mark alone", mark, ""},
      {"marked UTF-8", mark + "é", "é"},
      {"two marks", mark + mark, mark},
      {"marked, but broken", mark + "a\xFF", "a" + unknown},
      {"bare UTF-8 of three bytes", "燃料", "燃料"},
      {"bare UTF-8 of four bytes", "\xF0\xA0\xAE\x9F", "𠮟"},
      {"code page", "\x94\x52\x97\xBF", "燃料"},
      {"code page with 5C behind a lead byte", "\x95\x5C", "表"},
      {"half-width katakana", "\xCF\xAF\xCC\xDF", "ﾏｯﾌﾟ"},
      {"a katakana pair that UTF-8 could be", "\xC3\xA9", "ﾃｩ"},
      {"two bytes that no katakana pair could be", "\xC3\x89", "É"},
      {"the first pair that katakana could be", "\xC3\xA1", "ﾃ｡"},
      {"one byte below it", "\xC3\xA0", "à"},
      {"katakana pair beside other UTF-8", "\xC3\xA9\xC3\x89", "éÉ"},
      {"overlong UTF-8 is code page", "\xC0\xAF", "ﾀｯ"},
      {"bytes without meaning, one by one", "\xFF\x80\xA0\xFE",
       unknown + unknown + unknown + unknown},
      {"a lead byte at the end", "a\x82", "a" + unknown},
      {"a lead byte before no trail byte", "\x82\x20\x82\xA0", unknown + " あ"},
      {"NULs", "\0a\x82\xA0\0"s, "\0aあ\0"s},
  };
  for (const auto& row : rows) EXPECT_EQ(decodeText(row.bytes), row.text) << row.what;
}

TEST(TextEncoding, WritesTheCodePageWhereItReadsBackTheSame) {
  const struct {
    const char* what;
    std::string text;
    std::string bytes;
  } rows[] = {
      {"ASCII", "a\\b\r\n", "a\\b\r\n"},
      {"Japanese", "表示", "\x95\x5C\x8E\xA6"},
      {"half-width katakana", "ﾏ", "\xCF"},
      {"no place in the code page", "表é", mark + "表é"},
      {"a yen sign would come back as a backslash", "¥", mark + "¥"},
      {"a wave dash would come back as a tilde", "〜", mark + "〜"},
      {"a mark of its own", mark + "a", mark + mark + "a"},
      {"code page bytes that read as UTF-8", "ﾃ瑛", mark + "ﾃ瑛"},
  };
  for (const auto& row : rows) EXPECT_EQ(encodeText(row.text), row.bytes) << row.what;
}

char32_t anyCharacter(std::mt19937& random) {
  constexpr struct {
    char32_t first, last;
  } ranges[] = {{0, 0x7F},        {0x80, 0x7FF},    {0x3040, 0x30FF}, {0x4E00, 0x9FFF},
                {0xFF61, 0xFF9F}, {0xE000, 0xFFFF}, {0x2010, 0x2312}, {0x10000, 0x10FFFF}};
  const auto& range = ranges[random() % std::size(ranges)];
  return range.first + static_cast<char32_t>(random() % (range.last - range.first + 1));
}

TEST(TextEncoding, EveryTextReadsBackTheSame) {
  std::mt19937 random(2);
  for (int i = 0; i < 20000; ++i) {
    std::u32string characters(random() % 5, U'\0');
    for (char32_t& character : characters) character = anyCharacter(random);
    const std::string text = utf8(characters);
    ASSERT_EQ(decodeText(encodeText(text)), text) << i;
  }
  for (char32_t c = 0; c < 0x10000; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    const std::string text = utf8({&c, 1});
    ASSERT_EQ(decodeText(encodeText(text)), text) << static_cast<unsigned>(c);
  }
}

TEST(TextEncoding, AnyBytesDecodeToValidTextThatIsKept) {
  std::mt19937 random(3);
  for (int i = 0; i < 20000; ++i) {
    std::string bytes(random() % 8, '\0');
    for (char& byte : bytes)
      byte = static_cast<char>(random() % 4 == 0 ? random() : 0x80 + random() % 128);
    const std::string text = decodeText(bytes);
    ASSERT_EQ(utf8(utf32(text)), text);
    ASSERT_EQ(decodeText(encodeText(text)), text);
  }
}

TEST(TextEncoding, LongTextsCrossTheConvertersBufferWhole) {
  std::string text = "x";
  for (int i = 0; i < 5000; ++i) text += "燃料ﾏｯﾌﾟ";
  EXPECT_EQ(decodeText(encodeText(text)), text);
  EXPECT_FALSE(encodeText(text).starts_with(mark));
}

TEST(TextEncoding, AllThreeLineEndsEndALine) {
  using Lines = std::vector<std::string>;
  const struct {
    std::string text;
    Lines lines;
  } rows[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
      {"a\r\n", {"a"}},
      {"\r", {""}},
      {"\n\r", {"", ""}},
      {"\r\r\n\n", {"", "", ""}},
      {"a\0b\n\n"s, {"a\0b"s, ""}},
  };
  for (const auto& row : rows) EXPECT_EQ(splitLines(row.text), row.lines) << row.text;
}

}  // namespace
