// Numbers and their texts: what each reader takes and refuses, and what each form looks like.
#include "platform/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>

#include "platform/failure.h"

namespace {

using std::string_literals::operator""s;

constexpr double largest = std::numeric_limits<double>::max();
constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

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
  expectRows(roundToLong, {Row{.5, 0}, Row{1.5, 2}, Row{2.5, 2}, Row{-.5, 0}, Row{2.4999, 2},
                           Row{-1.5, -2}, Row{-2147483648.5, lowest}, Row{2147483647.49, highest}});
  expectFailure(overflow, roundToLong, {2147483647.5, -2147483649.0, 1e300, std::nan("")});
}

TEST(Numbers, TheLenientReaderTakesTheNumberAtTheStart) {
  const std::string zeros(400, '0');
  expectRows(parseNumber, {Row{"-5", -5.0}, Row{"+5", 5.0}, Row{"5.", 5.0}, Row{".5", .5},
                           Row{"-.5x", -.5}, Row{"007", 7.0}, Row{"2e", 2.0}, Row{"2e+", 2.0},
                           Row{"1,5", 1.0}, Row{"1 2", 1.0}, Row{"1e3", 1000.0}, Row{"1E-2", .01},
                           Row{" \t12", 12.0}, Row{"12abc", 12.0}, Row{"1.1.1", 1.1}});
  expectRows(parseNumber,
             {Row{"1e400", largest}, Row{"-1e400", -largest}, Row{"0.000000001e9", 1.0},
              Row{"123456789", 123456789.0}, Row{"9999999999", 9999999999.0},
              Row{"1e99999999999999999999", largest}});
  expectRows(parseNumber, {Row{"1\0002"s, 1.0}, Row{"1" + zeros, largest}});
  const std::string tiny = "0." + zeros + "1";
  for (const char* text : {"", "- 5", "--5", ".", "abc", "&H10", "inf", "nan", "0x10", "-0",
                           "1e-400", "0e999999", "-1e-99999999999999999999", tiny.c_str()}) {
    EXPECT_EQ(parseNumber(text), 0) << text;
    EXPECT_FALSE(std::signbit(parseNumber(text))) << text;
  }
}

TEST(Numbers, EveryWordAndManyFractionsReadBackAsTheyAre) {
  for (std::int32_t i = 0; i <= 65535; ++i) ASSERT_EQ(parseNumber(decimalText(i)), i);
  std::mt19937 random(1);
  for (int i = 0; i < 2000; ++i) {
    const int exponent = static_cast<int>(random() % 90) - 60;
    const double value = std::ldexp(static_cast<double>(random()), exponent);
    ASSERT_EQ(parseNumber(plainNumber(-value)), -value);
    ASSERT_EQ(parseReal(shortestReal(static_cast<float>(value))), static_cast<float>(value));
  }
}

TEST(Numbers, TheStrictReadersTakeOneNumberOrFail) {
  expectRows(parseLong, {Row{"2.5", 2}, Row{"3.5", 4}, Row{"+.5e1", 5}, Row{"  -16\t", -16},
                         Row{"&H1000", 0x1000}, Row{" &hfFfF ", 0xFFFF}, Row{"&HFFFFFFFF", -1},
                         Row{"&H80000000", lowest}, Row{"2147483647.4", highest}});
  expectFailure(overflow, parseLong, {"2147483648", "1e400", "-1e999999999999999999999"});
  expectFailure(typeMismatch, parseLong,
                {"", "  ", "1 2", "12a", "1e", ".", "1,000", "inf", "0x10", "&H", "&HG", "&H-1",
                 "-&H1", "&H123456789"});
  expectRows(parseReal, {Row{"0.1", .1F}, Row{" -2.5 ", -2.5F}, Row{"&H10", 16.F},
                         Row{"&HFFFFFFFF", -1.F}, Row{"3.4e38", 3.4e38F}, Row{"1e-60", 0.F}});
  expectFailure(overflow, parseReal, {"3.5e38", "-1e39"});
  expectFailure(typeMismatch, parseReal, {"", "1.1.1"});
}

TEST(Numbers, AScaleMayBeHexadecimalAnAnswerMayNot) {
  expectRows(parseScale, {Row{"12.5", 12.5}, Row{" &H1Ax", 26.0}, Row{"&hFFFFFFFF", 2147483647.0},
                          Row{"&", 0.0}, Row{"none", 0.0}});
  for (const char* text : {"", " ", "a", "1a", "1 2", "&H10", "1e400", "nan", "-", "1.1.1", "1e"}) {
    EXPECT_EQ(parseAnswer(text), std::nullopt) << text;
  }
  EXPECT_EQ(parseAnswer(" -1.5e1 "), -15);
}

TEST(Numbers, HexadecimalIsReadFromTheFrontAndPaddedToWholeBytes) {
  expectRows(
      [](const char* text) { return hexPrefix(text); },
      {Row{"FF", 255}, Row{"FFG", 255}, Row{"G1", 0}, Row{"", 0}, Row{" F", 0}, Row{"1c00", 0x1C00},
       Row{"0000000001C00", 0x1C00}, Row{"7FFFFFFF", highest}, Row{"FFFFFFFFFFFFFFFFFF", highest}});
  EXPECT_EQ(hexPrefix("1234", 2), 0x12);
  for (const int none : {0, -1}) EXPECT_EQ(hexPrefix("12", none), 0);
  EXPECT_EQ(hexText(0) + ' ' + hexText(0x1AF) + ' ' + hexText(0xFFFFFFFF), "0 1AF FFFFFFFF");
  EXPECT_EQ(padHex("A", 2) + padHex("", 2) + padHex("12345", 2) + padHex("A", -1), "000A12345A");
}

TEST(Numbers, DecimalTextsAreAsPlainAndShortAsTheyReadBack) {
  expectRows(plainNumber, {Row{0.5, "0.5"}, Row{6500.0, "6500"}, Row{-3.0, "-3"}, Row{-0.0, "0"},
                           Row{1e-7, "0.0000001"}, Row{1e21, "1000000000000000000000"}});
  EXPECT_EQ(plainNumber(std::numeric_limits<double>::denorm_min()).size(), 326U);
  expectRows(shortestReal,
             {Row{.1F, "0.1"}, Row{1e5F, "100000"}, Row{-12.5F, "-12.5"}, Row{-0.F, "0"},
              Row{3e30F, "3e+30"}, Row{-infinity, "-inf"}, Row{-notANumber, "nan"}});
  expectRows(signedBlank, {Row{1, " 1"}, Row{0, " 0"}, Row{lowest, "-2147483648"}});
}

TEST(Numbers, FixedPlacesRoundTheExactValueWithTiesAwayFromZero) {
  const struct {
    float value;
    int decimals;
    const char* text;
  } rows[] = {{14.7F, 1, "14.7"}, {.25F, 1, "0.3"},         {-.25F, 1, "-0.3"},
              {.35F, 1, "0.3"},   {.45F, 1, "0.4"},         {2.5F, 0, "3"},
              {-.04F, 1, "0.0"},  {.0625F, 3, "0.063"},     {.005F, 2, "0.00"},
              {9.96F, 1, "10.0"}, {infinity, 2, "inf"},     {notANumber, 2, "nan"},
              {1.5F, -3, "2"},    {1, 99, "1.000000000000"}};
  for (const auto& row : rows) {
    EXPECT_EQ(formatFixed(row.value, row.decimals), row.text) << row.value;
  }
  EXPECT_EQ(formatFixed(1e20F, 1), "100000002004087734272.0");
}

TEST(Failures, WhateverEscapesAndEveryErrorOfTheSystemHasItsNumber) {
  EXPECT_EQ(trapFailure([] {}), 0);
  EXPECT_EQ(trapFailure([] { throw Failure(cancelled); }), cancelled);
  EXPECT_EQ(trapFailure([] { throw std::bad_alloc(); }), outOfMemory);
  EXPECT_EQ(trapFailure([] { throw std::length_error("a size"); }), outOfMemory);
  EXPECT_EQ(trapFailure([] { throw 5; }), internalError);
  EXPECT_STREQ(Failure(overflow).what(), "Overflow");
  EXPECT_EQ(failureText(1), "Application-defined or object-defined error");
  using std::errc;
  for (const auto& [error, number] :
       {Row{errc::no_such_file_or_directory, 53}, Row{errc::not_a_directory, 76},
        Row{errc::permission_denied, 75}, Row{errc::operation_not_permitted, 75},
        Row{errc::is_a_directory, 75}, Row{errc::read_only_file_system, 75},
        Row{errc::no_such_device, 71}, Row{errc::no_such_device_or_address, 71},
        Row{errc::no_space_on_device, 61}, Row{errc::io_error, 57},
        Row{errc::too_many_files_open, 57}}) {
    EXPECT_EQ(failureNumberOf(std::make_error_code(error)), number) << number;
  }
}

}  // namespace
