#pragma once

#include <cstdint>
#include <string_view>

namespace tallyfold {

// Why a row of a bank's file starts unmarked.
enum class UnmarkedReason : std::uint8_t {
  None,             // it starts marked, unless the account holds it already
  Repeated,         // an earlier row has its identifier, day, amount and text
  ForeignCurrency,  // its amount is in another currency than the statement's
  Pending,          // the file says that the bank has not booked it
};

// The English key of what a reason is; "" for none.
[[nodiscard]] std::string_view TextOf(UnmarkedReason reason) noexcept;

}  // namespace tallyfold
