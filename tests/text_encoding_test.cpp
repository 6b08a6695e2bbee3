// Texts in files: which bytes are which encoding, and that what is written reads back the same.
#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/utf8.h"

namespace {

using std::string_literals::operator""s;

const std::string mark = "\xEF\xBB\xBF";
const std::string unknown = "\xEF\xBF\xBD";

struct Row {
  std::string from, to;
};

TEST(TextEncoding, BytesAreTakenForWhatTheyCanBe) {
  for (const auto& [bytes, text] :
       {Row{"C:\\maps~1\r\n", "C:\\maps~1\r\n"}, Row{mark, ""}, Row{mark + "é", "é"},
        Row{mark + mark, mark}, Row{mark + "a\xFF", "a" + unknown}, Row{"燃料", "燃料"},
        Row{"\xF0\xA0\xAE\x9F", "𠮟"}, Row{"\x94\x52\x97\xBF", "燃料"}, Row{"\x95\x5C", "表"},
        Row{"\xCF\xAF\xCC\xDF", "ﾏｯﾌﾟ"}, Row{"\0a\x82\xA0\0"s, "\0aあ\0"s},
        Row{"a\x82", "a" + unknown}, Row{"\x82\x20\x82\xA0", unknown + " あ"},
        // UTF-8 that could be half-width katakana, alone or before a whole character, its limits,
        // and overlong UTF-8
        Row{"\xC3\x8B\x43", "ﾃ気"}, Row{"\xC3\x8B", "Ë"}, Row{"\xC3\x8B!", "Ë!"},
        Row{"\xC3\x85s", "Ås"}, Row{"\xC3\x80s", "Às"}, Row{"\xC3\x8B\xC3\x8B\x43", "ﾃ凝気"},
        Row{"\xC3\x8B\x43燃", "ËC燃"}, Row{"\xC3\xA9", "ﾃｩ"}, Row{"\xC3\xA1", "ﾃ｡"},
        Row{"\xC3\xA0", "à"}, Row{"\xC3\xA9\xC3\x89", "éÉ"}, Row{"\xC0\xAF", "ﾀｯ"}}) {
    EXPECT_EQ(decodeText(bytes), text) << text;
  }
}

// A yen sign would come back as a backslash and a wave dash as a tilde.
TEST(TextEncoding, WritesTheCodePageWhereItReadsBackTheSame) {
  EXPECT_EQ(encodeText("a\\b\r\n表示ﾏ"), "a\\b\r\n\x95\x5C\x8E\xA6\xCF");
  for (const std::string& text : {"表é"s, "¥"s, "〜"s, mark + "a", "辯ア"s}) {
    EXPECT_EQ(encodeText(text), mark + text) << text;
  }
}

TEST(TextEncoding, EveryTextReadsBackTheSameAndAnyBytesDecodeToOneThatDoes) {
  std::mt19937 random(3);
  const auto expectKept = [](const std::string& text) {
    ASSERT_EQ(utf8(utf32(text)), text);
    ASSERT_EQ(decodeText(encodeText(text)), text);
  };
  for (char32_t c = 0; c < 0x11000; c = c == 0xD7FF ? 0xE000 : c + 1) {
    const auto before = static_cast<char32_t>(random() % 0xD800);
    for (const std::u32string& text : {std::u32string{c}, {before, c}}) expectKept(utf8(text));
  }
  for (int i = 0; i < 20000; ++i) {
    std::string bytes(random() % 8, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() | (random() % 4 ? 0x80 : 0));
    expectKept(decodeText(bytes));
  }
  std::string text = "x";
  for (int i = 0; i < 5000; ++i) text += "燃料ﾏｯﾌﾟ";
  expectKept(text);
  EXPECT_FALSE(encodeText(text).starts_with(mark));
}

}  // namespace
