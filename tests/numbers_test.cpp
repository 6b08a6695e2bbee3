// Numbers and their texts: what each reader takes and refuses, and what each form looks like.
#include "platform/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/failure.h"

namespace {

using std::string_literals::operator""s;

constexpr double largest = std::numeric_limits<double>::max();
constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr float infinity = std::numeric_limits<float>::infinity();

template <class From, class To>
struct Row {
  From from;
  To to;
};

template <class From, class To, class Routine>
void expectRows(Routine routine, std::initializer_list<Row<From, To>> rows) {
  for (const auto& [from, to] : rows) EXPECT_EQ(routine(from), to) << from;
}

template <class From, class Routine>
void expectFailure(int number, Routine routine, std::initializer_list<From> rows) {
  for (const From& from : rows) EXPECT_EQ(trapFailure([&] { routine(from); }), number) << from;
}

TEST(Numbers, RoundsToNearestWithTiesToEvenInsideThirtyTwoBits) {
  expectRows(roundToLong, {Row{.5, 0}, Row{1.5, 2}, Row{2.5, 2}, Row{2.4999, 2}, Row{-1.5, -2},
                           Row{-2147483648.5, lowest}, Row{2147483647.49, highest}});
  expectFailure(overflow, roundToLong, {2147483647.5, -2147483649.0, 1e300, std::nan("")});
}

TEST(Numbers, TheLenientReaderTakesTheNumberAtTheStart) {
  const std::string zeros(400, '0');
  expectRows(parseNumber, {Row{"-5"s, -5.0}, Row{"+5"s, 5.0}, Row{"5."s, 5.0}, Row{"-.5x"s, -.5},
                           Row{"007"s, 7.0}, Row{"2e+"s, 2.0}, Row{"1,5"s, 1.0}, Row{"1E-2"s, .01},
                           Row{" \t12"s, 12.0}, Row{"1.1.1"s, 1.1}, Row{"1\0002"s, 1.0},
                           Row{"1e400"s, largest}, Row{"-1e400"s, -largest},
                           Row{"0.000000001e9"s, 1.0}, Row{"9999999999"s, 9999999999.0},
                           Row{"1e99999999999999999999"s, largest}, Row{"1" + zeros, largest}});
  for (const std::string& text :
       {""s, "- 5"s, "--5"s, "."s, "abc"s, "&H10"s, "inf"s, "nan"s, "0x10"s, "-0"s, "0e999999"s,
        "-1e-99999999999999999999"s, "0." + zeros + "1"}) {
    EXPECT_EQ(parseNumber(text), 0) << text;
    EXPECT_FALSE(std::signbit(parseNumber(text))) << text;
  }
}

TEST(Numbers, TheStrictReadersTakeOneNumberOrFail) {
  expectRows(parseLong,
             {Row{"2.5", 2}, Row{"+.5e1", 5}, Row{"  -16\t", -16}, Row{" &hfFaA ", 0xFFAA},
              Row{"&HFFFFFFFF", -1}, Row{"2147483647.4", highest}});
  expectFailure(overflow, parseLong, {"2147483648", "1e400", "-1e999999999999999999999"});
  expectFailure(typeMismatch, parseLong,
                {"", "  ", "1 2", "12a", "1e", ".", "1,000", "inf", "0x10", "&H", "&HG", "&H-1",
                 "-&H1", "&H123456789"});
  expectRows(parseReal, {Row{" -2.5 ", -2.5F}, Row{"&HFFFFFFFF", -1.F}, Row{"3.4e38", 3.4e38F},
                         Row{"1e-60", 0.F}});
  expectFailure(overflow, parseReal, {"3.5e38", "-1e39"});
  expectFailure(typeMismatch, parseReal, {"", "1.1.1"});
  expectRows(parseScale, {Row{"12.5", 12.5}, Row{" &H1Ax", 26.0}, Row{"&hFFFFFFFF", 2147483647.0},
                          Row{"&", 0.0}, Row{"none", 0.0}});
  for (const char* text : {"", " ", "a", "1a", "1 2", "&H10", "1e400", "nan", "-", "1.1.1", "1e"}) {
    EXPECT_EQ(parseAnswer(text), std::nullopt) << text;
  }
  EXPECT_EQ(parseAnswer(" -1.5e1 "), -15.0);
}

TEST(Numbers, HexadecimalIsReadFromTheFrontAndPaddedToWholeBytes) {
  expectRows(
      [](const char* text) { return hexPrefix(text); },
      {Row{"aAfF09G", 0xAAFF09}, Row{"G1", 0}, Row{"", 0}, Row{" F", 0},
       Row{"0000000001c00", 0x1C00}, Row{"7FFFFFFF", highest}, Row{"FFFFFFFFFFFFFFFFFF", highest}});
  EXPECT_EQ(hexPrefix("1234", 2) + hexPrefix("12", 0) + hexPrefix("12", -1), 0x12);
  EXPECT_EQ(hexText(0) + ' ' + hexText(0x1AF) + ' ' + hexText(0xFFFFFFFF), "0 1AF FFFFFFFF");
  EXPECT_EQ(padHex("A", 2) + padHex("", 2) + padHex("12345", 2) + padHex("A", -1), "000A12345A");
}

TEST(Numbers, DecimalTextsAreAsPlainAndShortAsTheyReadBack) {
  expectRows(plainNumber, {Row{0.5, "0.5"}, Row{6500.0, "6500"}, Row{-3.0, "-3"}, Row{-0.0, "0"},
                           Row{1e-7, "0.0000001"}, Row{1e21, "1000000000000000000000"}});
  expectRows(shortestReal, {Row{-2.5F, "-2.5"}, Row{.1F, "0.1"}, Row{1e5F, "100000"},
                            Row{-0.F, "0"}, Row{3e30F, "3e+30"}, Row{-infinity, "-inf"}});
  expectRows(signedBlank, {Row{1, " 1"}, Row{0, " 0"}, Row{lowest, "-2147483648"}});
}

TEST(Numbers, FixedPlacesRoundTheExactValueWithTiesAwayFromZero) {
  const std::tuple<float, int, const char*> rows[] = {
      {.25F, 1, "0.3"},     {-.25F, 1, "-0.3"}, {.35F, 1, "0.3"},         {.45F, 1, "0.4"},
      {2.5F, 0, "3"},       {-.04F, 1, "0.0"},  {.0625F, 3, "0.063"},     {9.96F, 1, "10.0"},
      {infinity, 2, "inf"}, {1.5F, -3, "2"},    {1, 99, "1.000000000000"}};
  for (const auto& [value, places, text] : rows) EXPECT_EQ(formatFixed(value, places), text);
  EXPECT_EQ(formatFixed(1e20F, 1), "100000002004087734272.0");
}

}  // namespace
