#pragma once

#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

#include "filters/date_ranges.h"
#include "filters/filter.h"

namespace tallyfold {

// What the options of a summary can be: the number that is stored and its name, an English key.
// Numbers that are not in these tables can be stored too.
struct SummaryChoice {
  std::int32_t number;
  std::string_view name;
};

// A way in which the days of a summary come about.
struct SummaryDateRange {
  std::int32_t number;
  std::string_view name;
  // The stretch of days relative to now; none where the days do not depend on today alone.
  std::optional<DateMnemonic> mnemonic = {};
};

// Where a text is looked for.
struct SummaryFilterType {
  std::int32_t number;
  std::string_view name;
  // The list of filter rules that the text goes into.
  std::string_view category;
};

namespace summary_choices {

inline constexpr std::int32_t kFirstToLastEntry = 0;
inline constexpr std::int32_t kThroughToday = 1;
inline constexpr std::int32_t kCustom = 20;
inline constexpr SummaryDateRange kDateRanges[] = {
    {kFirstToLastEntry, "All Dates"},
    {kThroughToday, "Through Today"},
    {2, "Today", DateMnemonic::Today},
    {3, "Yesterday", DateMnemonic::Yesterday},
    {4, "Last Week", DateMnemonic::LastWeek},
    {5, "Last Month", DateMnemonic::LastMonth},
    {6, "Last Quarter", DateMnemonic::LastQuarter},
    {7, "Last Year", DateMnemonic::LastYear},
    {8, "This Week", DateMnemonic::ThisWeek},
    {9, "This Month", DateMnemonic::ThisMonth},
    {10, "This Quarter", DateMnemonic::ThisQuarter},
    {11, "This Year", DateMnemonic::ThisYear},
    {15, "Week To Date", DateMnemonic::WeekToDate},
    {16, "Month To Date", DateMnemonic::MonthToDate},
    {17, "Quarter To Date", DateMnemonic::QuarterToDate},
    {18, "Year To Date", DateMnemonic::YearToDate},
    {kCustom, "Custom"},
};

inline constexpr SummaryFilterType kFilterTypes[] = {
    {0, "General", filter_category::kGeneral},
    {1, "Type", filter_category::kType},
    {2, "Description", filter_category::kDescription},
    {3, "To/From", filter_category::kToFrom},
    {10, "Split Description", filter_category::kSplitDescription},
    {11, "Split To/From", filter_category::kSplitToFrom},
    {20, "Notes", filter_category::kNotes},
};

inline constexpr SummaryChoice kPeriodStyles[] = {
    {0, "Days"}, {1, "Weeks"}, {2, "Months"}, {3, "Quarters"}, {4, "Years"}, {5, "Whole Range"},
};
inline constexpr SummaryChoice kShowStyles[] = {{0, "Tables"}, {1, "Tables and Bars"}};

// Of the entries with a mark, those without, or both.
inline constexpr std::int32_t kWithMark = 0;
inline constexpr std::int32_t kWithoutMark = 1;
inline constexpr std::int32_t kBoth = 2;
inline constexpr SummaryChoice kResolved[] = {
    {kWithMark, "Resolved"}, {kWithoutMark, "Unresolved"}, {kBoth, "Both"}};
inline constexpr SummaryChoice kTaxDeductible[] = {
    {kWithMark, "Tax-Deductible"}, {kWithoutMark, "Taxable"}, {kBoth, "Both"}};
inline constexpr SummaryChoice kChecks[] = {
    {kWithMark, "Checks"}, {kWithoutMark, "Non-Checks"}, {kBoth, "Both"}};

// The choice of one of these tables that has the number; null for none.
template <typename Choices>
[[nodiscard]] constexpr auto* WithNumber(const Choices& choices, std::int32_t number) noexcept {
  for (const auto& choice : choices) {
    if (choice.number == number) return &choice;
  }
  return static_cast<decltype(&*std::begin(choices))>(nullptr);
}

}  // namespace summary_choices

}  // namespace tallyfold
