#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <random>
#include <string>

#include "model/amounts.h"

namespace tallyfold {
namespace {

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

}  // namespace
}  // namespace tallyfold
