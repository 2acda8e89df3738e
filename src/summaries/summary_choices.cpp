#include "summaries/summary_choices.h"

#include <algorithm>

namespace tallyfold {
namespace {

constexpr SummaryChoice kDateRanges[] = {
    {summary_range::kFirstToLastEntry, "All Dates"},
    {summary_range::kThroughToday, "Through Today"},
    {2, "Today"},
    {3, "Yesterday"},
    {4, "Last Week"},
    {5, "Last Month"},
    {6, "Last Quarter"},
    {7, "Last Year"},
    {8, "This Week"},
    {9, "This Month"},
    {10, "This Quarter"},
    {11, "This Year"},
    {15, "Week To Date"},
    {16, "Month To Date"},
    {17, "Quarter To Date"},
    {18, "Year To Date"},
    {summary_range::kCustom, "Custom"},
};

constexpr SummaryChoice kPeriodStyles[] = {
    {0, "Days"}, {1, "Weeks"}, {2, "Months"}, {3, "Quarters"}, {4, "Years"}, {5, "One Period"},
};

constexpr SummaryChoice kFilterTypes[] = {
    {0, "General"},
    {1, "Type"},
    {2, "Description"},
    {3, "To/From"},
    {10, "Split Description"},
    {11, "Split To/From"},
    {20, "Notes"},
};

constexpr SummaryChoice kShowStyles[] = {{0, "Tables"}, {1, "Tables and Bars"}};
constexpr SummaryChoice kResolved[] = {{0, "Resolved"}, {1, "Unresolved"}, {2, "Both"}};
constexpr SummaryChoice kTax[] = {{0, "Tax-Deductible"}, {1, "Taxable"}, {2, "Both"}};
constexpr SummaryChoice kChecks[] = {{0, "Checks"}, {1, "Non-Checks"}, {2, "Both"}};

}  // namespace

std::span<const SummaryChoice> SummaryDateRanges() noexcept {
  return kDateRanges;
}
std::span<const SummaryChoice> SummaryPeriodStyles() noexcept {
  return kPeriodStyles;
}
std::span<const SummaryChoice> SummaryFilterTypes() noexcept {
  return kFilterTypes;
}
std::span<const SummaryChoice> SummaryShowStyles() noexcept {
  return kShowStyles;
}
std::span<const SummaryChoice> SummaryResolvedChoices() noexcept {
  return kResolved;
}
std::span<const SummaryChoice> SummaryTaxChoices() noexcept {
  return kTax;
}
std::span<const SummaryChoice> SummaryCheckChoices() noexcept {
  return kChecks;
}

const SummaryChoice* ChoiceWithNumber(std::span<const SummaryChoice> choices,
                                      std::int32_t number) noexcept {
  const auto found = std::ranges::find(choices, number, &SummaryChoice::number);
  return found == choices.end() ? nullptr : &*found;
}

std::optional<DateMnemonic> MnemonicOfDateRange(std::int32_t style) noexcept {
  switch (style) {
    case 2:
      return DateMnemonic::Today;
    case 3:
      return DateMnemonic::Yesterday;
    case 4:
      return DateMnemonic::LastWeek;
    case 5:
      return DateMnemonic::LastMonth;
    case 6:
      return DateMnemonic::LastQuarter;
    case 7:
      return DateMnemonic::LastYear;
    case 8:
      return DateMnemonic::ThisWeek;
    case 9:
      return DateMnemonic::ThisMonth;
    case 10:
      return DateMnemonic::ThisQuarter;
    case 11:
      return DateMnemonic::ThisYear;
    case 15:
      return DateMnemonic::WeekToDate;
    case 16:
      return DateMnemonic::MonthToDate;
    case 17:
      return DateMnemonic::QuarterToDate;
    case 18:
      return DateMnemonic::YearToDate;
    default:
      return std::nullopt;
  }
}

std::optional<std::string_view> CategoryOfFilterType(std::int32_t type) noexcept {
  switch (type) {
    case 0:
      return filter_category::kGeneral;
    case 1:
      return filter_category::kType;
    case 2:
      return filter_category::kDescription;
    case 3:
      return filter_category::kToFrom;
    case 10:
      return filter_category::kSplitDescription;
    case 11:
      return filter_category::kSplitToFrom;
    case 20:
      return filter_category::kNotes;
    default:
      return std::nullopt;
  }
}

}  // namespace tallyfold
