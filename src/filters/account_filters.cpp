// The account's operations that turn its stored filter types into filters.

#include <cstdint>
#include <memory>

#include "filters/date_ranges.h"
#include "filters/filter_types.h"
#include "filters/search_filter.h"
#include "model/account.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

std::shared_ptr<LDGRFilter> SearchFilter(std::string_view category, const plist::Value& data) {
  auto filter = std::make_shared<LDGRSearchFilter>();
  filter->SetType(FilterKind::Search);
  filter->SetRuleForCategory(category, FilterLogic::KeepMatching, FilterQualifier::Contains,
                             data.IsNone() ? plist::Value("") : data);
  return filter;
}

std::shared_ptr<LDGRFilter> DaysFilter(DateMnemonic mnemonic) {
  auto filter = std::make_shared<LDGRFilter>();
  DateRange range;
  DateRangeForMnemonic(mnemonic, CurrentClock().LocalNow(), range);
  AddDateRangeRules(*filter, range);
  return filter;
}

// The first entry's day is used as it is stored, so that a day no calendar has (30 February) still
// keeps its entry.
std::shared_ptr<LDGRFilter> ThroughTodayFilter(const LDGRAccount& account) {
  auto filter = std::make_shared<LDGRFilter>();
  const DateNumber today = TodaysDateNumber();
  const auto first = account.GetFirstEntry();
  AddDateRangeRules(*filter, first != nullptr ? first->GetDate() : today, today);
  return filter;
}

std::shared_ptr<LDGRFilter> MarkFilter(std::string_view category, bool mark) {
  auto filter = std::make_shared<LDGRFilter>();
  filter->AddRuleForCategory(category, FilterLogic::KeepMatching, FilterQualifier::On, mark);
  return filter;
}

std::shared_ptr<LDGRFilter> FilterOfType(const FilterType& type, const plist::Value& data,
                                         const LDGRAccount& account) {
  switch (type.rule) {
    case FilterType::Rule::SearchText:
      return SearchFilter(type.category, data);
    case FilterType::Rule::ThroughToday:
      return ThroughTodayFilter(account);
    case FilterType::Rule::Days:
      return DaysFilter(type.mnemonic);
    case FilterType::Rule::Mark:
      return MarkFilter(type.category, type.mark);
  }
  return nullptr;
}

}  // namespace

std::shared_ptr<LDGRFilter> LDGRAccount::filterTypeAsLDGRFilter(std::int32_t number,
                                                                const plist::Value& data) const {
  const FilterType* const type = FilterTypeWithNumber(number);
  if (type == nullptr) return SearchFilter(filter_category::kGeneral, "");
  auto filter = FilterOfType(*type, data, *this);
  filter->SetName(LocalizedText(type->name));
  return filter;
}

std::shared_ptr<LDGRFilter> LDGRAccount::entryFilter() const {
  return filterTypeAsLDGRFilter(entry_filter_type_, entry_filter_data_);
}

std::shared_ptr<LDGRFilter> LDGRAccount::reconcileFilter() const {
  return filterTypeAsLDGRFilter(reconcile_filter_type_, reconcile_filter_data_);
}

EntryList LDGRAccount::entryFilteredEntries() const {
  return entryFilter()->Filter(entries_);
}

EntryList LDGRAccount::reconcileFilteredEntries() const {
  return reconcileFilter()->Filter(entries_);
}

}  // namespace tallyfold
