#pragma once

#include <optional>
#include <string_view>

namespace tallyfold {

// What is typed into an amount field as a sum, such as "12.50+3" or "$100-12.95+1,000.00": amounts
// as ParsePlainOrUsersAmount() reads them, with + or - between them, added up and rounded to cents.
// None for a single amount, for a part that is none, and for a result that would not be read again.
[[nodiscard]] std::optional<double> SumOfTypedAmounts(std::string_view text);

}  // namespace tallyfold
