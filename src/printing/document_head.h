#pragma once

#include "model/account.h"
#include "model/date_number.h"
#include "printing/document.h"
#include "storage/preferences.h"

namespace tallyfold {

// What all documents begin with: the account's name above, the day of printing below.
[[nodiscard]] PrintDocument DocumentOf(const LDGRAccount& account,
                                       const LDGRPreferences& preferences, DateNumber today);

}  // namespace tallyfold
