#pragma once

#include "app/exchange/qif_import_state.h"
#include "app/exchange/statement_import_state.h"
#include "console/table.h"

namespace tallyfold::console {

// Of a bank's file under review: what it is and how it was read.
void AddStatementSettings(Table& table, const StatementOptionsState& options);
// What of it is left out or starts unmarked, what its balances prove, and what it offers.
void AddStatementFacts(Table& table, const StatementOptionsState& options,
                       const QifImportReviewState& review);

}  // namespace tallyfold::console
