#pragma once

#include <cmath>
#include <cstdint>

namespace tallyfold {

// Amounts as whole cents, in which sums of a statement are exact.
using Cents = std::int64_t;

// Whether an amount is small enough that the sum of any file of them fits.
[[nodiscard]] inline bool HasCents(double amount) noexcept {
  return std::abs(amount) < 1e12;
}

// The nearest whole cents to an amount that HasCents().
[[nodiscard]] inline Cents CentsOf(double amount) noexcept {
  return static_cast<Cents>(amount * 100.0 + (amount < 0 ? -0.5 : 0.5));
}

}  // namespace tallyfold
