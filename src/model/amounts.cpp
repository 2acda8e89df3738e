#include "model/amounts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>

namespace tallyfold {
namespace {

// Below this whole cents are exact in a double and no two amounts of 15 digits share one.
constexpr double kExactCentsLimit = 1e13;

// Rounds the digits themselves. `amount` is at least a third of a cent and below kAmountLimit,
// so that its shortest reading has at most 17 digits after at most two zeros.
double RoundedByItsDigits(double amount) noexcept {
  std::array<char, 40> digits;
  char* const first = digits.data() + 1;  // room for a carry
  char* const end =
      std::to_chars(first, digits.data() + digits.size(), amount, std::chars_format::fixed).ptr;
  char* const point = std::find(first, end, '.');
  if (end - point <= 3) return amount;

  const bool up = point[3] >= '5';
  char* start = first;
  if (up) {
    char* digit = point + 2;
    for (; digit >= first; --digit) {
      if (digit == point) continue;
      if (*digit != '9') break;
      *digit = '0';
    }
    if (digit < first) {
      start = digits.data();
      *start = '1';
    } else {
      ++*digit;
    }
  }
  double rounded = amount;
  std::from_chars(start, point + 3, rounded);
  return rounded;
}

double RoundedMagnitude(double magnitude) noexcept {
  if (magnitude < kExactCentsLimit) {
    const double cents = magnitude * 100.0;
    // Where the sum itself rounds, the margin below sends the amount to its digits.
    // NOLINTNEXTLINE(bugprone-incorrect-roundings)
    const auto whole_cents = static_cast<std::int64_t>(cents + 0.5);
    const auto nearest = static_cast<double>(whole_cents);
    const double rounded = nearest / 100.0;
    // The product is off by less than this; only amounts that close to half a cent need more.
    const double margin = cents * 1e-15;
    if (rounded == magnitude || std::fabs(cents - nearest) < 0.5 - margin) return rounded;
  }
  return RoundedByItsDigits(magnitude);
}

// Many times faster than the general conversion, and most amounts are whole cents.
std::string WholeCentsString(std::int64_t cents, bool is_negative) {
  std::array<char, 24> text;
  char* start = text.data() + text.size();
  for (int digits = 0; digits < 3 || cents != 0; ++digits) {
    if (digits == 2) *--start = '.';
    *--start = static_cast<char>('0' + cents % 10);
    cents /= 10;
  }
  if (is_negative) *--start = '-';
  return {start, text.data() + text.size()};
}

std::string WithCommas(std::string text) {
  for (auto position = static_cast<std::ptrdiff_t>(text.size()) - 6; position > 0; position -= 3) {
    text.insert(static_cast<std::size_t>(position), 1, ',');
  }
  return text;
}

std::int32_t TruncatedToInteger(double value) noexcept {
  constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(std::clamp(value, kLowest, kHighest));
}

}  // namespace

double RoundedAmount(double amount) noexcept {
  const double magnitude = std::fabs(amount);
  if (!(magnitude < kAmountLimit)) return amount;
  const double rounded = RoundedMagnitude(magnitude);
  return amount < 0.0 && rounded != 0.0 ? -rounded : rounded;
}

std::string FixedAmountString(double amount) {
  const double magnitude = std::fabs(amount);
  if (magnitude < kExactCentsLimit) {
    const auto cents = static_cast<std::int64_t>(magnitude * 100.0 + 0.5);
    if (static_cast<double>(cents) / 100.0 == magnitude) {
      return WholeCentsString(cents, std::signbit(amount));
    }
  }
  // The longest double has 309 digits before the point.
  std::array<char, 320> text;
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), amount, std::chars_format::fixed, 2);
  return std::string(text.data(), result.ptr);
}

std::string FloatToCommasAmountString(double amount) {
  std::string text = WithCommas(FixedAmountString(std::fabs(amount)));
  if (amount < 0.0) text.insert(0, "-");
  return text;
}

std::string FloatToDollarCommasAmountString(double amount) {
  return (amount < 0.0 ? "-$" : "$") + WithCommas(FixedAmountString(std::fabs(amount)));
}

std::string FloatToDollarAmountString(double amount) {
  return FixedAmountString(amount).insert(amount < 0.0 ? 1 : 0, "$");
}

double RoundNearZeroValue(double value) noexcept {
  return value > -0.001 && value < 0.001 ? 0.0 : value;
}

double TruncateValue(double value, std::int32_t places) noexcept {
  const std::int32_t scale = TruncatedToInteger(std::pow(10.0, places));
  const std::int32_t scaled = TruncatedToInteger(scale * value);
  return static_cast<double>(static_cast<float>(scaled) / static_cast<float>(scale));
}

}  // namespace tallyfold
