#include "model/amount_sum.h"

#include <cmath>
#include <cstddef>

#include "model/amount_input.h"
#include "model/amounts.h"

namespace tallyfold {
namespace {

// As many digits as an amount may have before its decimals.
constexpr double kTooLarge = 1e13;

bool IsOperator(char character) {
  return character == '+' || character == '-';
}
bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

}  // namespace

std::optional<double> SumOfTypedAmounts(std::string_view text) {
  double sum = 0.0;
  double sign = 1.0;
  std::size_t first = 0;
  std::size_t parts = 0;
  // A sign before the first digit of a part belongs to it.
  bool has_digit = false;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    const bool ends = i == text.size();
    if (!ends && !(has_digit && IsOperator(text[i]))) {
      has_digit = has_digit || IsDigit(text[i]);
      continue;
    }
    const auto part = ParsePlainOrUsersAmount(text.substr(first, i - first));
    if (!part) return std::nullopt;
    sum += sign * *part;
    ++parts;
    if (ends) break;
    sign = text[i] == '-' ? -1.0 : 1.0;
    first = i + 1;
    has_digit = false;
  }
  const double rounded = RoundedAmount(sum);
  if (parts < 2 || std::abs(rounded) >= kTooLarge) return std::nullopt;
  return rounded;
}

}  // namespace tallyfold
