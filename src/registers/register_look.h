#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "model/account.h"
#include "model/account_entry.h"
#include "model/date_number.h"
#include "registers/table_data_source.h"
#include "storage/preferences.h"

namespace tallyfold {

// What the type column shows: the direction of a transfer, else the name of the entry's type,
// active or not; "" for none and for an account that is null.
[[nodiscard]] std::string TypeTextOfEntry(const LDGRAccount* account,
                                          const LDGRAccountEntry& entry);

[[nodiscard]] RowLook LookOfEntry(const LDGRAccountEntry& entry, const LDGRPreferences& preferences,
                                  DateNumber today);

// The calendar-date format of the preferences: the user's short one, 2004-03-07, or March 7, 2004.
[[nodiscard]] std::string RegisterDateFormat(const LDGRPreferences& preferences);
// An amount as the preferences want it: $1,234.50, $1234.50 or 1,234.50. A sum that misses zero by
// a rounding error has no sign.
[[nodiscard]] std::string RegisterAmountText(double amount, const LDGRPreferences& preferences);
// The same for a field, without a currency sign. Thousands are separated where amounts have them
// and where that is read back with the user's separators.
[[nodiscard]] std::string FieldAmountText(double amount, const LDGRPreferences& preferences);
// How many there are, in a sentence: in groups of three digits where amounts have them.
[[nodiscard]] std::string CountText(std::size_t count, const LDGRPreferences& preferences);

// Cells of a table. A mark that is not set shows nothing, a set one the check mark.
[[nodiscard]] TableCell DayCell(DateNumber day, const TableFormat& format);
[[nodiscard]] TableCell CountCell(std::int64_t count);
[[nodiscard]] TableCell AmountCell(double amount, const TableFormat& format);
[[nodiscard]] TableCell MarkCell(bool is_set);

}  // namespace tallyfold
