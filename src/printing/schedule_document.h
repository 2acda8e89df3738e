#pragma once

#include "model/account.h"
#include "model/account_schedule.h"
#include "printing/document.h"
#include "printing/register_document.h"
#include "storage/preferences.h"

namespace tallyfold {

// Scheduled entries of the account in the given order. Of the options the filter and the choice of
// rows do not count.
[[nodiscard]] PrintDocument ScheduleDocument(const LDGRAccount& account,
                                             const ScheduleList& schedules,
                                             const LDGRPreferences& preferences,
                                             const RegisterPrintOptions& options);

}  // namespace tallyfold
