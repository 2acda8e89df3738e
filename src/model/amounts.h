#pragma once

#include <cstdint>
#include <string>

namespace tallyfold {

// Amounts of money are doubles in currency units, negative for money that leaves the account.

// Amounts of this magnitude and more have no exact cents.
inline constexpr double kAmountLimit = 1e15;

// Whether money can come to so much: finite and below the limit. Fields and commands take nothing
// else.
[[nodiscard]] inline bool IsAmount(double value) noexcept {
  return value > -kAmountLimit && value < kAmountLimit;
}

// The nearest amount of whole cents to the shortest decimal reading of `amount`, halves away from
// zero: 1.005 gives 1.01, -2.675 gives -2.68, -0.004 gives 0.0. Magnitudes of 1e15 and more,
// infinities and not-a-number come back as they are.
[[nodiscard]] double RoundedAmount(double amount) noexcept;

// -$1,234.50
[[nodiscard]] std::string FloatToDollarCommasAmountString(double amount);
// -1,234.50
[[nodiscard]] std::string FloatToCommasAmountString(double amount);
// -$1234.50
[[nodiscard]] std::string FloatToDollarAmountString(double amount);
// -1234.50: two decimals rounded as the double stands, "." whatever the locale.
[[nodiscard]] std::string FixedAmountString(double amount);

// 0.0 when -0.001 < value < 0.001, else the value: keeps sums from showing as -0.00.
[[nodiscard]] double RoundNearZeroValue(double value) noexcept;

// `value` cut toward zero to `places` decimals, computed in single precision, whose error the
// result keeps (2.67 comes back as 2.6700000762939453): comparisons elsewhere count on it.
// Intermediate values saturate at the 32-bit range, and not-a-number counts as 0; a negative
// number of places gives not-a-number.
[[nodiscard]] double TruncateValue(double value, std::int32_t places) noexcept;

}  // namespace tallyfold
