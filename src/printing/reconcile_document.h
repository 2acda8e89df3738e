#pragma once

#include "model/account.h"
#include "printing/document.h"
#include "printing/register_document.h"
#include "storage/preferences.h"

namespace tallyfold {

// How far the account agrees with its statement, what may be behind a difference, and the entries
// that are not resolved, by day. Of the options the filter and the choice of
// rows do not count.
[[nodiscard]] PrintDocument ReconcileDocument(const std::shared_ptr<LDGRAccount>& account,
                                              const LDGRPreferences& preferences,
                                              const RegisterPrintOptions& options);

}  // namespace tallyfold
