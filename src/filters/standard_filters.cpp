#include "filters/standard_filters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "filters/date_ranges.h"
#include "filters/search_filter.h"
#include "model/calendar.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

struct SearchEntry {
  std::string_view name;
  std::string_view category;
};

constexpr std::array kSearchFilters = {
    SearchEntry{"General...", filter_category::kGeneral},
    SearchEntry{"Description...", filter_category::kDescription},
    SearchEntry{"To/From...", filter_category::kToFrom},
    SearchEntry{"Type...", filter_category::kType},
    SearchEntry{"Split Description...", filter_category::kSplitDescription},
    SearchEntry{"Split To/From...", filter_category::kSplitToFrom},
};

std::shared_ptr<LDGRFilter> SearchFilter(const SearchEntry& entry) {
  auto filter = std::make_shared<LDGRSearchFilter>();
  filter->SetName(LocalizedText(entry.name));
  filter->SetType(FilterKind::Search);
  filter->SetRuleForCategory(entry.category, FilterLogic::KeepMatching, FilterQualifier::Contains,
                             "");
  return filter;
}

std::shared_ptr<LDGRFilter> DaysFilter(std::string_view name, const CivilTime& first,
                                       const CivilTime& last) {
  auto filter = std::make_shared<LDGRFilter>();
  filter->SetName(LocalizedText(name));
  AddDateRangeRules(*filter, {first, last});
  return filter;
}

std::shared_ptr<LDGRFilter> ClearedFilter(std::string_view name, bool cleared) {
  auto filter = std::make_shared<LDGRFilter>();
  filter->SetName(LocalizedText(name));
  filter->AddRuleForCategory(filter_category::kCleared, FilterLogic::KeepMatching,
                             FilterQualifier::On, cleared);
  return filter;
}

}  // namespace

void StandardFilters::Filters_Init() {
  filters_.clear();
  for (const SearchEntry& entry : kSearchFilters) Add(SearchFilter(entry));
  Filters_DateFilters_Update();
}

void StandardFilters::Filters_DateFilters_Update() {
  if (filters_.size() > kSearchFilters.size()) filters_.resize(kSearchFilters.size());

  const CivilTime now = CurrentClock().LocalNow();
  const CivilTime today = StartOfDay(now);
  const CivilTime yesterday = AddDays(today, -1);
  const CivilTime week = StartOfWeek(now);
  const CivilTime month = StartOfMonth(now);
  const CivilTime quarter = StartOfQuarter(now);
  const CivilTime year = StartOfYear(now);

  Add(DaysFilter("Today", today, today));
  Add(DaysFilter("Yesterday", yesterday, yesterday));
  Add(DaysFilter("This Week", week, AddDays(week, 7)));
  Add(DaysFilter("This Month", month, AddMonths(month, 1)));
  Add(DaysFilter("This Quarter", quarter, AddMonths(quarter, 3)));
  Add(DaysFilter("This Year", year, AddYears(year, 1)));
  Add(DaysFilter("Last Week", AddDays(week, -7), week));
  Add(DaysFilter("Last Month", AddMonths(month, -1), month));
  Add(DaysFilter("Last Quarter", AddMonths(quarter, -3), quarter));
  Add(DaysFilter("Last Year", AddYears(year, -1), year));
  Add(ClearedFilter("Resolved", true));
  Add(ClearedFilter("Unresolved", false));
}

std::int32_t StandardFilters::NextAvailableFilterNumber() const {
  std::int32_t highest = -1;
  for (const auto& filter : filters_) highest = std::max(highest, filter->GetNumber());
  return highest + 1;
}

std::shared_ptr<LDGRFilter> StandardFilters::FilterNumberToFilter(std::int32_t number) const {
  const auto found = std::ranges::find_if(
      filters_, [number](const auto& filter) { return filter->GetNumber() == number; });
  return found != filters_.end() ? *found : nullptr;
}

std::int32_t StandardFilters::FilterNumberToMenuIndex(std::int32_t number) const {
  std::int32_t index = -1;
  for (std::size_t position = 0; position < filters_.size(); ++position) {
    if (filters_[position]->GetNumber() != number) continue;
    const auto p = static_cast<std::int32_t>(position);
    index = p < 4 ? p : p < 14 ? p + 1 : p < 16 ? p + 2 : -1;
  }
  return index;
}

void StandardFilters::Add(std::shared_ptr<LDGRFilter> filter) {
  filter->SetNumber(NextAvailableFilterNumber());
  filters_.push_back(std::move(filter));
}

}  // namespace tallyfold
