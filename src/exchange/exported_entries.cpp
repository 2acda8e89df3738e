#include "exchange/exported_entries.h"

#include <algorithm>

#include "filters/filter.h"
#include "model/account.h"
#include "model/date_format.h"

namespace tallyfold {

EntryList ExportedEntries(const LDGRAccount& account, const ExportOptions& options) {
  EntryList entries = options.export_filter ? options.export_filter->Filter(account.GetEntries())
                                            : account.GetEntries();
  std::stable_sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
    return a->DatePrimaryCheckSecondaryIsGreaterThan(*b) < 0;
  });
  return entries;
}

DateNumber OpeningDate(const LDGRAccount& account) {
  const auto first = account.GetFirstEntry();
  return first ? first->GetDate() : TodaysDateNumber();
}

const std::string& DayTexts::Text(DateNumber day) {
  if (day_ != day) {
    text_ = FormatDate(DateNumberToNSCalendarDate(day), format_);
    day_ = day;
  }
  return text_;
}

const std::string& EntryTypeNames::Name(std::int32_t number) {
  const auto [known, is_new] = names_.try_emplace(number);
  if (is_new) {
    if (const auto type = account_.AccountEntryTypeForNumber(number)) {
      known->second = type->GetName();
    }
  }
  return known->second;
}

}  // namespace tallyfold
