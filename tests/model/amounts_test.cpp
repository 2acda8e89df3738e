#include "model/amounts.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "fakes/fake_ambient.h"
#include "model/amount_input.h"
#include "model/amount_sum.h"
#include "model/bubble_sort.h"
#include "model/row_numbers.h"

namespace tallyfold {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNotANumber = std::nan("");

TEST(AmountStrings, PutSignDollarAndCommas) {
  const struct {
    double amount;
    const char* dollar_commas;
    const char* commas;
    const char* dollar;
  } cases[] = {{1234567.891, "$1,234,567.89", "1,234,567.89", "$1234567.89"},
               {-1234.5, "-$1,234.50", "-1,234.50", "-$1234.50"},
               {-0.5, "-$0.50", "-0.50", "-$0.50"},
               {0.0, "$0.00", "0.00", "$0.00"},
               {999.99, "$999.99", "999.99", "$999.99"},
               {999.999, "$1,000.00", "1,000.00", "$1000.00"},
               {100000, "$100,000.00", "100,000.00", "$100000.00"},
               {-0.001, "-$0.00", "-0.00", "-$0.00"},
               {1.005, "$1.00", "1.00", "$1.00"},
               {0.125, "$0.12", "0.12", "$0.12"},
               {kNotANumber, "$nan", "nan", "$nan"},
               {-kInfinity, "-$inf", "-inf", "-$inf"}};
  for (const auto& c : cases) {
    EXPECT_EQ(FloatToDollarCommasAmountString(c.amount), c.dollar_commas);
    EXPECT_EQ(FloatToCommasAmountString(c.amount), c.commas);
    EXPECT_EQ(FloatToDollarAmountString(c.amount), c.dollar);
  }
  EXPECT_EQ(FixedAmountString(-1e308).size(), 1 + 309 + 3U);
}

TEST(RoundedAmounts, GoByTheDigitsHalvesAwayFromZero) {
  const std::pair<double, double> cases[] = {{1.005, 1.01},
                                             {-2.675, -2.68},
                                             {10.004, 10.0},
                                             {10.006, 10.01},
                                             {-10.006, -10.01},
                                             {0.005, 0.01},
                                             {-0.004, 0.0},
                                             {-0.0, 0.0},
                                             {0.995, 1.0},
                                             {99.995, 100.0},
                                             {0.285, 0.29},
                                             {1.115, 1.12},
                                             {5e-324, 0.0},
                                             {1e-7, 0.0},
                                             {999999.995, 1000000.0},
                                             {-1e300, -1e300},
                                             {kInfinity, kInfinity},
                                             {0.0049999999999999996, 0.0},
                                             {0.0050000000000000001, 0.01},
                                             {123456789012.345, 123456789012.35},
                                             {99999999999999.995, 100000000000000.0},
                                             {12345678901234.565, 12345678901234.56},
                                             {1e15 + 0.125, 1e15 + 0.125}};
  for (const auto& [amount, expected] : cases) {
    const double rounded = RoundedAmount(amount);
    EXPECT_EQ(rounded, expected) << std::to_string(amount);
    EXPECT_FALSE(rounded == 0.0 && std::signbit(rounded)) << std::to_string(amount);
  }
  EXPECT_TRUE(std::isnan(RoundedAmount(kNotANumber)));
}

std::string GeneralConversion(double amount) {
  std::array<char, 400> text;
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), amount, std::chars_format::fixed, 2);
  return {text.data(), result.ptr};
}

// Whole cents take a shorter way to the same text.
TEST(FixedAmountStrings, AreThoseOfTheGeneralConversion) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20'000; ++i) {
    const double cents = std::ldexp(static_cast<double>(random() >> 11U), i % 60 - 53);
    for (const double amount : {std::round(cents) / 100.0, cents / 100.0, cents / 1000.0}) {
      ASSERT_EQ(FixedAmountString(amount), GeneralConversion(amount));
      ASSERT_EQ(FixedAmountString(-amount), GeneralConversion(-amount));
    }
  }
  for (const double amount : {0.0, 0.05, 0.1, 1.005, 99.995, 9999999999999.99, 1e13, 1e15, 1e300}) {
    EXPECT_EQ(FixedAmountString(amount), GeneralConversion(amount));
    EXPECT_EQ(FixedAmountString(-amount), GeneralConversion(-amount));
  }
}

double Number(const std::string& text) {
  double number = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string CentsText(std::int64_t cents) {
  const std::string decimals = std::to_string(100 + cents % 100).substr(1);
  return std::to_string(cents / 100) + "." + decimals;
}

// Texts of at most 15 digits are the shortest readings of their doubles.
TEST(RoundedAmounts, AreThoseOfTheDecimalTextTyped) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 200'000; ++i) {
    const auto cents = static_cast<std::int64_t>(random() % (i % 2 == 0 ? 10'000 : 10'000'000'000));
    const auto tail = random() % 3 == 0 ? 500 : random() % 1000;
    const double typed = Number(CentsText(cents) + std::to_string(1000 + tail).substr(1));
    const double expected = Number(CentsText(cents + (tail >= 500 ? 1 : 0)));
    ASSERT_EQ(RoundedAmount(typed), expected) << cents << ' ' << tail;
    ASSERT_EQ(RoundedAmount(-typed), 0.0 - expected);
  }
}

TEST(AmountValues, NearZeroAreZeroAndTruncateInSinglePrecision) {
  EXPECT_EQ(RoundNearZeroValue(0.001), 0.001);
  EXPECT_EQ(RoundNearZeroValue(-0.001), -0.001);
  EXPECT_EQ(RoundNearZeroValue(0.00099), 0.0);
  EXPECT_FALSE(std::signbit(RoundNearZeroValue(-0.00099)));

  const struct {
    double value;
    std::int32_t places;
    double truncated;
  } cases[] = {{2.6789, 2, 2.6700000762939453},
               {-2.6789, 2, -2.6700000762939453},
               {1.999, 2, 1.9900000095367432},
               {5, 0, 5.0},
               {1e20, 2, 21474836.0},
               {-1e20, 2, -21474836.0},
               {kNotANumber, 2, 0.0},
               {7.5, -1, kNotANumber},
               {0.5, 20, 0.5},
               {kInfinity, 0, 2147483648.0}};
  for (const auto& c : cases) {
    const double truncated = TruncateValue(c.value, c.places);
    EXPECT_TRUE(truncated == c.truncated || (std::isnan(truncated) && std::isnan(c.truncated)))
        << c.value << ' ' << truncated;
  }
}

TEST(TypedAmounts, AreReadWholeOrNotAtAll) {
  const struct {
    const char* text;
    std::optional<double> amount;
  } cases[] = {{"12", 12.0},
               {" 12.5 ", 12.5},
               {".5", 0.5},
               {"5.", 5.0},
               {"-1,234.50", -1234.5},
               {"-$1,234.50", -1234.5},
               {"$-3", -3.0},
               {"$ 3", 3.0},
               {"3 €", 3.0},
               {"+3", 3.0},
               {"\u22123", -3.0},
               {"- 3", -3.0},
               {"1234567.89", 1234567.89},
               {"1,234,567", 1234567.0},
               {"0", 0.0},
               {"-0", 0.0},
               {"000123", 123.0},
               {"1.500", 1.5},
               {"9999999999999.99", 9999999999999.99}};
  for (const auto& c : cases) {
    const auto amount = ParseAmount(c.text);
    EXPECT_EQ(amount, c.amount) << c.text;
    EXPECT_FALSE(amount == 0.0 && std::signbit(*amount)) << c.text;
  }
  for (const char* text : {"",       " ",       "-",        "$",      ".",
                           ",",      "abc",     "12abc",    "12 3",   "1.2.3",
                           "1e3",    "0x10",    "--3",      "$$3",    "$3$",
                           "1.005",  "1,23",    "1234,567", "1,,234", ",234",
                           "1,234,", "1.5,000", "nan",      "inf",    "10000000000000",
                           "٣"}) {
    EXPECT_EQ(ParseAmount(text), std::nullopt) << text;
  }
}

TEST(TypedAmounts, AreAddedUpWhereTheyAreASum) {
  FakeAmbient ambient;
  const struct {
    const char* text;
    std::optional<double> sum;
  } cases[] = {{"12.50+3", 15.5},       {"$100-12.95+1,000.00", 1087.05},
               {"-5-5", -10.0},         {"0.1+0.2", 0.3},
               {"1 + -3", -2.0},        {"2--3", 5.0},
               {"12.50", std::nullopt}, {"-12", std::nullopt},
               {"1+", std::nullopt},    {"+", std::nullopt},
               {"", std::nullopt},      {"1+a", std::nullopt},
               {"1++2", 3.0},           {"9999999999999+9999999999999", std::nullopt}};
  for (const auto& c : cases) EXPECT_EQ(SumOfTypedAmounts(c.text), c.sum) << c.text;
  ambient.locale.decimal_separator = ",";
  ambient.locale.thousands_separator = ".";
  EXPECT_EQ(SumOfTypedAmounts("1.000,50+0,50"), 1001.0);
  EXPECT_EQ(SumOfTypedAmounts("1.000+1"), std::nullopt) << "can be meant both ways";
}

TEST(TypedAmounts, UseTheSeparatorsOfTheUser) {
  FakeAmbient ambient;
  const struct {
    const char* decimal;
    const char* thousands;
    const char* text;
    std::optional<double> amount;
  } cases[] = {{",", ".", "1.234,50", 1234.5},
               {",", ".", "12.50", {}},
               {",", ".", "1.234", 1234.0},
               {",", " ", "1 234,5", 1234.5},
               {",", "\u00A0", "1 234,5", 1234.5},
               {",", " ", "1\u202F234,5 €", 1234.5},
               {",", " ", "5 €", 5.0},
               {",", "", "1.234", {}},
               {".", "", "1234.5", 1234.5},
               {".", "'", "1'234.5", 1234.5},
               {".", ".", "1.23", 1.23},
               {".", ".", "1.234", {}},
               {"", "", "12", 12.0}};
  for (const auto& c : cases) {
    ambient.locale.decimal_separator = c.decimal;
    ambient.locale.thousands_separator = c.thousands;
    EXPECT_EQ(ParseAmount(c.text), c.amount) << c.text << " with " << c.decimal << c.thousands;
  }
}

TEST(BubbleSorts, SortInPlace) {
  std::vector<std::int32_t> integers{3, -2'147'483'647 - 1, 2, 3, 2'147'483'647, 0};
  BubbleSort_Long(integers);
  EXPECT_EQ(integers, (std::vector<std::int32_t>{-2'147'483'647 - 1, 0, 2, 3, 3, 2'147'483'647}));

  std::vector<float> floats{0.0F, 1.5F, -0.0F, -1.0F};
  BubbleSort_Float(floats);
  EXPECT_EQ(floats, (std::vector<float>{-1.0F, 0.0F, 0.0F, 1.5F}));
  EXPECT_FALSE(std::signbit(floats[1]));  // equal numbers keep their order
  EXPECT_TRUE(std::signbit(floats[2]));

  // Nothing is smaller than not-a-number, so nothing passes it.
  std::vector<double> doubles{3.0, 1.0, kNotANumber, 2.0, 0.5};
  BubbleSort_Double(doubles);
  EXPECT_TRUE(std::isnan(doubles[2]));
  doubles.erase(doubles.begin() + 2);
  EXPECT_EQ(doubles, (std::vector<double>{1.0, 3.0, 0.5, 2.0}));

  std::vector<double> none;
  BubbleSort_Double(none);
  EXPECT_TRUE(none.empty());
}

TEST(RowNumbers, CollapseIntoASet) {
  plist::Array numbers;
  for (const double number : {4.0, 1.9, 4.0, -1.0, 0.0}) numbers.Append(number);
  EXPECT_EQ(indexSetWithRowNumbers(numbers), (RowIndexSet{0, 1, 4}));
  EXPECT_EQ(indexSetWithRowNumbers(std::nullopt), RowIndexSet{});
}

}  // namespace
}  // namespace tallyfold
