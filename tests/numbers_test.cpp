// Numbers and their texts: what each reader takes and refuses, and what each form looks like.
#include "platform/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>
#include <random>
#include <stdexcept>

#include "platform/failure.h"

namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

struct Long {
  const char* text;
  std::int32_t value;
  int failure;
};

TEST(Numbers, RoundsToNearestWithTiesToEvenInsideThirtyTwoBits) {
  const struct {
    double value;
    std::int32_t rounded;
    int failure;
  } rows[] = {
      {0.5, 0, 0},
      {1.5, 2, 0},
      {2.5, 2, 0},
      {-0.5, 0, 0},
      {-1.5, -2, 0},
      {2.4999, 2, 0},
      {2147483647.49, 2147483647, 0},
      {2147483647.5, 0, overflow},
      {-2147483648.5, std::numeric_limits<std::int32_t>::min(), 0},
      {-2147483649.0, 0, overflow},
      {1e300, 0, overflow},
      {std::nan(""), 0, overflow},
      {-HUGE_VAL, 0, overflow},
  };
  for (const auto& row : rows) {
    std::int32_t rounded = 0;
    EXPECT_EQ(trapFailure([&] { rounded = roundToLong(row.value); }), row.failure) << row.value;
    EXPECT_EQ(rounded, row.rounded) << row.value;
  }
}

TEST(Numbers, TheLenientReaderTakesTheNumberAtTheStart) {
  const struct {
    std::string text;
    double value;
  } rows[] = {
      {"", 0},
      {"0", 0},
      {"65535", 65535},
      {"007", 7},
      {" \t12", 12},
      {"-5", -5},
      {"+5", 5},
      {"- 5", 0},
      {"--5", 0},
      {"1.1.1", 1.1},
      {".5", 0.5},
      {"-.5x", -0.5},
      {"5.", 5},
      {".", 0},
      {"abc", 0},
      {"12abc", 12},
      {"1e3", 1000},
      {"1E-2", 0.01},
      {"2e", 2},
      {"2e+", 2},
      {"1,5", 1},
      {"1 2", 1},
      {"&H10", 0},
      {"inf", 0},
      {"nan", 0},
      {"0x10", 0},
      {"1e400", largest},
      {"-1e400", -largest},
      {"1e-400", 0},
      {"0e999999", 0},
      {"123456789", 123456789},
      {"9999999999", 9999999999.0},
      {"1e99999999999999999999", largest},
      {"-1e-99999999999999999999", 0},
      {"0.000000001e9", 1},
      {"1" + std::string(400, '0'), largest},
      {"0." + std::string(400, '0') + "1", 0},
      {std::string("1\0002", 3), 1},
  };
  for (const auto& row : rows) EXPECT_EQ(parseNumber(row.text), row.value) << row.text;
  EXPECT_FALSE(std::signbit(parseNumber("-0")));
}

TEST(Numbers, EveryWordAndManyFractionsReadBackAsTheyAre) {
  for (std::int32_t i = 0; i <= 65535; ++i) ASSERT_EQ(parseNumber(decimalText(i)), i);
  std::mt19937 random(1);
  for (int i = 0; i < 2000; ++i) {
    const double value =
        std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 90) - 60);
    ASSERT_EQ(parseNumber(plainNumber(-value)), -value);
    const auto single = static_cast<float>(value);
    ASSERT_EQ(parseReal(shortestReal(single)), single);
  }
}

TEST(Numbers, TheStrictReaderTakesOneWholeNumberOrFails) {
  const Long rows[] = {
      {"16", 16, 0},
      {"  -16\t", -16, 0},
      {"2.5", 2, 0},
      {"3.5", 4, 0},
      {"+.5e1", 5, 0},
      {"2147483647.4", 2147483647, 0},
      {"2147483648", 0, overflow},
      {"1e400", 0, overflow},
      {"-1e999999999999999999999", 0, overflow},
      {"&H1000", 0x1000, 0},
      {" &hfFfF ", 0xFFFF, 0},
      {"&HFFFFFFFF", -1, 0},
      {"&H80000000", std::numeric_limits<std::int32_t>::min(), 0},
      {"&H", 0, typeMismatch},
      {"&H123456789", 0, typeMismatch},
      {"&HG", 0, typeMismatch},
      {"&H-1", 0, typeMismatch},
      {"-&H1", 0, typeMismatch},
      {"", 0, typeMismatch},
      {"  ", 0, typeMismatch},
      {"1 2", 0, typeMismatch},
      {"12a", 0, typeMismatch},
      {"1e", 0, typeMismatch},
      {".", 0, typeMismatch},
      {"1,000", 0, typeMismatch},
      {"inf", 0, typeMismatch},
      {"0x10", 0, typeMismatch},
  };
  for (const Long& row : rows) {
    std::int32_t value = 0;
    EXPECT_EQ(trapFailure([&] { value = parseLong(row.text); }), row.failure) << row.text;
    EXPECT_EQ(value, row.value) << row.text;
  }
}

TEST(Numbers, TheStrictReaderOfRealsKeepsFractionsAndTheFloatsRange) {
  const struct {
    const char* text;
    float value;
    int failure;
  } rows[] = {
      {"0.1", 0.1F, 0},        {" -2.5 ", -2.5F, 0},       {"1e3", 1000.0F, 0},
      {"&H10", 16.0F, 0},      {"&HFFFFFFFF", -1.0F, 0},   {"3.4e38", 3.4e38F, 0},
      {"3.5e38", 0, overflow}, {"-1e39", 0, overflow},     {"1e-60", 0, 0},
      {"", 0, typeMismatch},   {"1.1.1", 0, typeMismatch}, {"x", 0, typeMismatch},
  };
  for (const auto& row : rows) {
    float value = 0;
    EXPECT_EQ(trapFailure([&] { value = parseReal(row.text); }), row.failure) << row.text;
    EXPECT_EQ(value, row.value) << row.text;
  }
}

TEST(Numbers, AScaleMayBeHexadecimalAndIsReadLeniently) {
  EXPECT_EQ(parseScale("12.5"), 12.5);
  EXPECT_EQ(parseScale(" &H1Ax"), 26);
  EXPECT_EQ(parseScale("&hFFFFFFFF"), 2147483647);
  EXPECT_EQ(parseScale("&"), 0);
  EXPECT_EQ(parseScale("none"), 0);
}

TEST(Numbers, AnAnswerIsOneFiniteDecimalNumberAndNothingElse) {
  for (const char* text : {"", " ", "a", "1a", "1 2", "&H10", "1e400", "nan", "-", "1.1.1", "1e"}) {
    EXPECT_FALSE(parseAnswer(text).has_value()) << text;
  }
  EXPECT_EQ(parseAnswer(" -1.5e1 "), -15);
  EXPECT_EQ(parseAnswer("0"), 0);
}

TEST(Numbers, HexadecimalIsReadFromTheFrontAndNeverNegative) {
  const struct {
    const char* text;
    int digits;
    std::int32_t value;
  } rows[] = {
      {"FF", 8, 255},
      {"1c00", 8, 0x1C00},
      {"FFG", 8, 255},
      {"G1", 8, 0},
      {"", 8, 0},
      {" F", 8, 0},
      {"1234", 2, 0x12},
      {"1", 2, 1},
      {"12", 0, 0},
      {"12", -1, 0},
      {"7FFFFFFF", 8, 2147483647},
      {"FFFFFFFF", 8, 2147483647},
  };
  for (const auto& row : rows) EXPECT_EQ(hexPrefix(row.text, row.digits), row.value) << row.text;
  EXPECT_EQ(hexPrefix("0000000001C00"), 0x1C00);
  EXPECT_EQ(hexPrefix("FFFFFFFFFFFFFFFFFFFFFFFF"), 2147483647);
}

TEST(Numbers, HexadecimalTextsArePaddedToWholeBytes) {
  EXPECT_EQ(hexText(0), "0");
  EXPECT_EQ(hexText(0x1AF), "1AF");
  EXPECT_EQ(hexText(0xFFFFFFFF), "FFFFFFFF");
  EXPECT_EQ(padHex("A", 2), "000A");
  EXPECT_EQ(padHex("12345", 2), "12345");
  EXPECT_EQ(padHex("", 2), "");
  EXPECT_EQ(padHex("A", -1), "A");
}

TEST(Numbers, PlainDecimalsHaveNoExponentNoSpareZerosAndNoMinusZero) {
  const struct {
    double value;
    const char* text;
  } rows[] = {
      {0.5, "0.5"}, {6500, "6500"},      {-3, "-3"},
      {-0.0, "0"},  {1e-7, "0.0000001"}, {1e21, "1000000000000000000000"},
      {0.1, "0.1"},
  };
  for (const auto& row : rows) EXPECT_EQ(plainNumber(row.value), row.text);
  EXPECT_EQ(plainNumber(std::numeric_limits<double>::denorm_min()).size(), 326U);
}

TEST(Numbers, RealsAreWrittenAsShortAsTheyReadBack) {
  EXPECT_EQ(shortestReal(0.1F), "0.1");
  EXPECT_EQ(shortestReal(100000.0F), "100000");
  EXPECT_EQ(shortestReal(-12.5F), "-12.5");
  EXPECT_EQ(shortestReal(-0.0F), "0");
  EXPECT_EQ(shortestReal(3e30F), "3e+30");
  EXPECT_EQ(shortestReal(-infinity), "-inf");
  EXPECT_EQ(shortestReal(-notANumber), "nan");
}

TEST(Numbers, ALeadingBlankStandsForTheSign) {
  EXPECT_EQ(signedBlank(1), " 1");
  EXPECT_EQ(signedBlank(0), " 0");
  EXPECT_EQ(signedBlank(-12), "-12");
  EXPECT_EQ(signedBlank(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(Numbers, FixedPlacesRoundTheExactValueWithTiesAwayFromZero) {
  const struct {
    float value;
    int decimals;
    const char* text;
  } rows[] = {
      {14.7F, 1, "14.7"},     {0.25F, 1, "0.3"},
      {-0.25F, 1, "-0.3"},    {0.35F, 1, "0.3"},
      {0.45F, 1, "0.4"},      {2.5F, 0, "3"},
      {-0.04F, 1, "0.0"},     {0.0625F, 3, "0.063"},
      {0.005F, 2, "0.00"},    {1e20F, 1, "100000002004087734272.0"},
      {9.96F, 1, "10.0"},     {infinity, 2, "inf"},
      {-infinity, 2, "-inf"}, {notANumber, 2, "nan"},
      {1.5F, -3, "2"},        {1.0F, 99, "1.000000000000"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(formatFixed(row.value, row.decimals), row.text) << row.value;
  }
}

TEST(Failures, TheTrapGivesTheNumberOfWhateverEscapes) {
  const struct {
    std::function<void()> body;
    int number;
  } rows[] = {
      {[] {}, 0},
      {[] { throw Failure(cancelled); }, cancelled},
      {[] { throw std::bad_alloc(); }, outOfMemory},
      {[] { std::string().resize(std::string().max_size() + 1); }, outOfMemory},
      {[] { throw std::runtime_error("a fault"); }, internalError},
      {[] { throw 5; }, internalError},
  };
  for (const auto& row : rows) EXPECT_EQ(trapFailure(row.body), row.number);
  EXPECT_STREQ(Failure(overflow).what(), "Overflow");
  EXPECT_EQ(failureText(1), "Application-defined or object-defined error");
}

TEST(Failures, ErrorsOfTheSystemHaveTheirNumbers) {
  const struct {
    std::errc error;
    int number;
  } rows[] = {
      {std::errc::no_such_file_or_directory, 53},
      {std::errc::not_a_directory, 76},
      {std::errc::permission_denied, 75},
      {std::errc::operation_not_permitted, 75},
      {std::errc::is_a_directory, 75},
      {std::errc::read_only_file_system, 75},
      {std::errc::no_such_device, 71},
      {std::errc::no_such_device_or_address, 71},
      {std::errc::no_space_on_device, 61},
      {std::errc::io_error, 57},
      {std::errc::too_many_files_open, 57},
  };
  for (const auto& row : rows)
    EXPECT_EQ(failureNumberOf(std::make_error_code(row.error)), row.number);
}

}  // namespace
