#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "model/account.h"
#include "model/date_number.h"
#include "printing/document.h"
#include "storage/preferences.h"

namespace tallyfold {

// What all documents begin with: the account's name above, the day of printing below.
[[nodiscard]] PrintDocument DocumentOf(const LDGRAccount& account,
                                       const LDGRPreferences& preferences, DateNumber today);

// "1 entry", "12 entries": English keys of one and of many.
[[nodiscard]] std::string CountInWords(std::size_t count, std::string_view one,
                                       std::string_view many);

}  // namespace tallyfold
