#pragma once

#include <cstdint>
#include <string_view>

#include "exchange/statement_file.h"

namespace tallyfold {

// Whether the mark of debit or credit of a reversal is that of the payment it takes back, so that
// it turns the sign; banks do either.
enum class ReversalSign : std::uint8_t {
  Proven,  // what the balances bear out; as the mark stands where they prove nothing
  AsMarked,
  Turned,
};

// Reads reports, statements and notifications (CAMT.052, .053 and .054) into the accounts of
// `file`, one for each. Only what is booked becomes rows: one for each detail of a booking where
// the details have amounts that add up to it, else one for the booking. Opening and closing balance
// are checked against the sum of the rows of the statement's currency. Reversals of which nothing
// proves the sign raise a question. `text` is valid UTF-8. Linear.
void ReadCamt(std::string_view text, ReversalSign reversals, StatementFile& file);

}  // namespace tallyfold
