#pragma once

#include <memory>
#include <span>
#include <string>

#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

// An entry of an account, as a row to be written. Neither is null.
struct ExportedRow {
  std::shared_ptr<const LDGRAccount> account;
  std::shared_ptr<const LDGRAccountEntry> entry;
};

// Rows for programs, in the order given: the same names for the fields, days as 2026-03-31 and
// amounts as -1234.50 whatever the user's language and preferences; UTF-8. The balance is the
// running one of the account (see RunningBalanceOf).

// RFC 4180: a line of names, then a line a row, each ended by CR LF. "cleared" and "tax_deductible"
// are yes or no; what there is none of is empty. The lines of splits have no place in it.
[[nodiscard]] std::string RowsAsCsv(std::span<const ExportedRow> rows);
// An array with an object for each row, a line each. What there is none of is null; "split" is an
// array of the lines in use.
[[nodiscard]] std::string RowsAsJson(std::span<const ExportedRow> rows);

}  // namespace tallyfold
