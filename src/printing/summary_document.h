#pragma once

#include "model/account.h"
#include "printing/document.h"
#include "storage/preferences.h"
#include "summaries/summary_layout.h"

namespace tallyfold {

// A laid-out summary of the account: balances, periods with their bars where it has some, totals,
// subtotals and the check.
[[nodiscard]] PrintDocument SummaryDocument(const LDGRAccount& account, const SummaryLayout& layout,
                                            const LDGRPreferences& preferences, DateNumber today);

}  // namespace tallyfold
