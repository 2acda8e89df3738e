#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "filters/date_ranges.h"

namespace tallyfold {

// What the options of a summary can be: the number that is stored and its name, an English key.
// Numbers that are not in these tables can be stored too.
struct SummaryChoice {
  std::int32_t number;
  std::string_view name;
};

// In the order of their numbers, which have gaps.
[[nodiscard]] std::span<const SummaryChoice> SummaryDateRanges() noexcept;
[[nodiscard]] std::span<const SummaryChoice> SummaryPeriodStyles() noexcept;
[[nodiscard]] std::span<const SummaryChoice> SummaryFilterTypes() noexcept;
[[nodiscard]] std::span<const SummaryChoice> SummaryShowStyles() noexcept;
[[nodiscard]] std::span<const SummaryChoice> SummaryResolvedChoices() noexcept;
[[nodiscard]] std::span<const SummaryChoice> SummaryTaxChoices() noexcept;
[[nodiscard]] std::span<const SummaryChoice> SummaryCheckChoices() noexcept;

// Null for a number that is none of them.
[[nodiscard]] const SummaryChoice* ChoiceWithNumber(std::span<const SummaryChoice> choices,
                                                    std::int32_t number) noexcept;

namespace summary_range {
inline constexpr std::int32_t kFirstToLastEntry = 0;
inline constexpr std::int32_t kThroughToday = 1;
inline constexpr std::int32_t kCustom = 20;
}  // namespace summary_range

// The stretch of days relative to now that a style of date range stands for, if it is one.
[[nodiscard]] std::optional<DateMnemonic> MnemonicOfDateRange(std::int32_t style) noexcept;

// The list of filter rules that the text of a filter type goes into; none for a type without one.
[[nodiscard]] std::optional<std::string_view> CategoryOfFilterType(std::int32_t type) noexcept;

}  // namespace tallyfold
