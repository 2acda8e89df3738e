#pragma once

#include <optional>
#include <string>

#include "model/account.h"
#include "model/account_entry.h"
#include "model/date_number.h"
#include "storage/preferences.h"

namespace tallyfold {

// Each part from 0 to 1.
struct RegisterColor {
  float red = 0.0F;
  float green = 0.0F;
  float blue = 0.0F;
  float alpha = 1.0F;

  friend bool operator==(const RegisterColor&, const RegisterColor&) = default;
};

// How a row is drawn.
struct RegisterRowLook {
  // None for an entry that is neither debit nor deposit nor transfer.
  std::optional<RegisterColor> color;
  // For an entry of a day to come.
  bool is_italic = false;

  friend bool operator==(const RegisterRowLook&, const RegisterRowLook&) = default;
};

// What the type column shows: the direction of a transfer, else the name of the entry's type,
// active or not; "" for none and for an account that is null.
[[nodiscard]] std::string TypeTextOfEntry(const LDGRAccount* account,
                                          const LDGRAccountEntry& entry);

[[nodiscard]] RegisterRowLook LookOfRow(const LDGRAccountEntry& entry,
                                        const LDGRPreferences& preferences, DateNumber today);

// The calendar-date format of the preferences: the user's short one, 2004-03-07, or March 7, 2004.
[[nodiscard]] std::string RegisterDateFormat(const LDGRPreferences& preferences);
// An amount as the preferences want it: $1,234.50, $1234.50 or 1,234.50. A sum that misses zero by
// a rounding error has no sign.
[[nodiscard]] std::string RegisterAmountText(double amount, const LDGRPreferences& preferences);

}  // namespace tallyfold
