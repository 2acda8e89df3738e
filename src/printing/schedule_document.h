#pragma once

#include "model/account.h"
#include "printing/document.h"
#include "printing/register_document.h"
#include "storage/preferences.h"

namespace tallyfold {

// The scheduled entries of the account, the next one first. Of the options the filter does not
// count.
[[nodiscard]] PrintDocument ScheduleDocument(const LDGRAccount& account,
                                             const LDGRPreferences& preferences,
                                             const RegisterPrintOptions& options);

}  // namespace tallyfold
