#include "app/entries/edit_sheet.h"

#include <algorithm>

#include "model/amounts.h"
#include "model/day_field.h"
#include "platform/ambient.h"
#include "storage/preferences.h"

namespace tallyfold {

bool TweakDayField(std::optional<DateNumber>& typed) noexcept {
  if (!typed) return false;
  DateNumber& date = *typed;
  const std::int32_t year = date / 10000;
  const std::int32_t month = date / 100 % 100;
  DayField field;
  field.day = date % 100;
  if (year < 1 || year > 9999 || month < 1 || month > 12 || field.day < 1) return false;
  TweakDayFieldForMonthAndYear(field, month, year);
  date = year * 10000 + month * 100 + field.day;
  return true;
}

bool IsTypedAmount(const std::optional<double>& typed) noexcept {
  return typed && IsAmount(*typed);
}

std::int32_t RowWithoutAmount(const SplitRows& rows) noexcept {
  const auto* const row = std::ranges::find_if_not(
      rows, [](const SplitRow& each) { return IsTypedAmount(each.amount); });
  return row == rows.end() ? -1 : static_cast<std::int32_t>(row - rows.begin());
}

double TotalOf(const SplitRows& rows) noexcept {
  double total = 0.0;
  // Each as it will be stored, so that the total shown is the total kept.
  for (const SplitRow& row : rows) {
    if (IsTypedAmount(row.amount)) total += RoundedAmount(*row.amount);
  }
  return total;
}

std::string ProblemOfAmount(const std::optional<double>& typed, double opened) {
  if (!IsTypedAmount(typed)) return LocalizedText("The amount is not a number.");
  if (*typed < 0.0 && RoundedAmount(*typed) != RoundedAmount(opened)) {
    return LocalizedText("The amount must not be negative.");
  }
  return "";
}

SheetField FirstField(const LDGRPreferences& preferences, bool is_new) noexcept {
  const std::int32_t field = is_new ? preferences.GetSelectWhichFieldFirstWhenAddingEntries()
                                    : preferences.GetSelectWhichFieldFirstWhenChangingEntries();
  const auto last = static_cast<std::int32_t>(SheetField::Type);
  return field >= 0 && field <= last ? static_cast<SheetField>(field) : SheetField::Date;
}

}  // namespace tallyfold
