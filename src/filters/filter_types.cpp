#include "filters/filter_types.h"

#include <algorithm>
#include <array>

namespace tallyfold {
namespace {

using Rule = FilterType::Rule;

constexpr FilterType SearchType(std::int32_t number, std::string_view name,
                                std::string_view category) {
  return {number, name, Rule::SearchText, category};
}

constexpr FilterType DaysType(std::int32_t number, std::string_view name, DateMnemonic mnemonic) {
  return {number, name, Rule::Days, {}, mnemonic};
}

constexpr FilterType MarkType(std::int32_t number, std::string_view name, std::string_view category,
                              bool mark) {
  return {number, name, Rule::Mark, category, DateMnemonic::Today, mark};
}

constexpr std::array kTypes = {
    SearchType(filter_type::kGeneral, "General", filter_category::kGeneral),
    SearchType(10, "Description", filter_category::kDescription),
    SearchType(11, "To/From", filter_category::kToFrom),
    SearchType(12, "Type", filter_category::kType),
    SearchType(13, "Notes", filter_category::kNotes),
    SearchType(14, "Amount", filter_category::kAmountString),
    SearchType(15, "Check Number", filter_category::kCheckNumberString),
    FilterType{filter_type::kThroughToday, "Through Today", Rule::ThroughToday},
    DaysType(21, "Today", DateMnemonic::Today),
    DaysType(22, "Yesterday", DateMnemonic::Yesterday),
    DaysType(30, "This Week", DateMnemonic::ThisWeek),
    DaysType(31, "This Month", DateMnemonic::ThisMonth),
    DaysType(32, "This Quarter", DateMnemonic::ThisQuarter),
    DaysType(33, "This Year", DateMnemonic::ThisYear),
    DaysType(40, "Last Week", DateMnemonic::LastWeek),
    DaysType(41, "Last Month", DateMnemonic::LastMonth),
    DaysType(42, "Last Quarter", DateMnemonic::LastQuarter),
    DaysType(43, "Last Year", DateMnemonic::LastYear),
    DaysType(50, "Week To Date", DateMnemonic::WeekToDate),
    DaysType(51, "Month To Date", DateMnemonic::MonthToDate),
    DaysType(52, "Quarter To Date", DateMnemonic::QuarterToDate),
    DaysType(53, "Year To Date", DateMnemonic::YearToDate),
    SearchType(70, "Split To/From", filter_category::kSplitToFrom),
    SearchType(71, "Split Description", filter_category::kSplitDescription),
    MarkType(80, "Resolved", filter_category::kCleared, true),
    MarkType(81, "Unresolved", filter_category::kCleared, false),
    MarkType(90, "Tax-Deductible", filter_category::kTaxDeductible, true),
    MarkType(91, "Taxable", filter_category::kTaxDeductible, false),
};

static_assert(std::ranges::is_sorted(kTypes, {}, &FilterType::number));

constexpr const FilterType* Find(std::int32_t number) {
  const auto* const found = std::ranges::lower_bound(kTypes, number, {}, &FilterType::number);
  return found != kTypes.end() && found->number == number ? found : nullptr;
}

constexpr FilterMenuItem Item(std::int32_t type) {
  return {type, Find(type)->name};
}
constexpr FilterMenuItem kSeparator = {0, {}, true};

constexpr std::array kSplits = {Item(70), Item(71)};
constexpr std::array kPeriods = {
    Item(30), Item(31), Item(32), Item(33), kSeparator,  //
    Item(40), Item(41), Item(42), Item(43), kSeparator,  //
    Item(50), Item(51), Item(52), Item(53),
};
constexpr std::array kMenu = {
    Item(0),
    Item(10),
    Item(11),
    Item(12),
    Item(13),
    Item(14),
    Item(15),
    FilterMenuItem{-2, "Splits", false, kSplits},
    kSeparator,
    Item(20),
    Item(21),
    Item(22),
    FilterMenuItem{-3, "Periods", false, kPeriods},
    kSeparator,
    Item(80),
    Item(81),
    kSeparator,
    Item(90),
    Item(91),
};

}  // namespace

std::span<const FilterType> FilterTypes() noexcept {
  return kTypes;
}

const FilterType* FilterTypeWithNumber(std::int32_t number) noexcept {
  return Find(number);
}

std::span<const FilterMenuItem> FilterMenu() noexcept {
  return kMenu;
}

MenuMark MarkOfFilterMenuItem(const FilterMenuItem& item, std::int32_t type) noexcept {
  if (item.is_separator) return MenuMark::Off;
  if (item.tag == type) return MenuMark::On;
  const bool is_parent = std::ranges::any_of(item.submenu, [type](const FilterMenuItem& child) {
    return MarkOfFilterMenuItem(child, type) != MenuMark::Off;
  });
  return is_parent ? MenuMark::Mixed : MenuMark::Off;
}

}  // namespace tallyfold
