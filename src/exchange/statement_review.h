#pragma once

#include <vector>

#include "exchange/qif_import_entry.h"
#include "exchange/statement_file.h"

namespace tallyfold {

class LDGRAccount;

struct StatementReviewOptions {
  // Gives an entry the type of the newest entry of the account with the same payee and direction.
  bool suggests_types = true;
  bool zero_amounts_as_deposits = true;
};

// The rows of a bank's file as entries for a QifReview: day 0 and amount 0 for what could not be
// read, a check where a debit has a number, unmarked where the row starts so. Payees are compared
// ignoring case; only types in use that fit the direction are suggested, and no transfer's. The
// account is only looked at. Linear in both.
[[nodiscard]] QifImportEntryList ReviewEntriesOf(const std::vector<StatementRow>& rows,
                                                 const LDGRAccount& account,
                                                 const StatementReviewOptions& options);

}  // namespace tallyfold
