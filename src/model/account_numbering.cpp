#include <algorithm>

#include "model/account.h"
#include "model/entry_numbers.h"

namespace tallyfold {
namespace {

// Numbers come from files, so the highest there is may be stored already: counting on wraps around
// instead of overflowing.
std::int32_t Next(std::int32_t number) noexcept {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(number) + 1U);
}

std::int32_t Previous(std::int32_t number) noexcept {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(number) - 1U);
}

template <typename List>
std::int32_t Highest(const List& list) noexcept {
  std::int32_t highest = -1;
  for (const auto& record : list) highest = std::max(highest, record->GetNumber());
  return highest;
}

}  // namespace

std::int32_t LDGRAccount::NextAvailableNumber() noexcept {
  number_count_ = Next(number_count_);
  NoteSetting();
  return number_count_;
}

std::int32_t LDGRAccount::NextAvailableScheduleNumber() const noexcept {
  return Next(Highest(schedules_));
}

std::int32_t LDGRAccount::NextAvailableTypeNumber() const noexcept {
  return Next(std::max(Highest(Types()), Highest(inactive_types_)));
}

std::int32_t LDGRAccount::HighestCheckNumber() const noexcept {
  return Previous(NextAvailableCheckNumber());
}

std::int32_t LDGRAccount::NextAvailableCheckNumber() const noexcept {
  std::int32_t highest = -1;
  for (const auto& entry : entries_) highest = std::max(highest, entry->GetCheckNumber());
  return starting_check_number_ > highest ? starting_check_number_ : Next(highest);
}

std::int32_t LDGRAccount::NextAvailableCheckNumberAfterEntry(const LDGRAccountEntry* entry) const {
  const EntryNumbers& numbers = EntryNumbers::UpToDate(entry_numbers_, *this);
  const std::int32_t stored = numbers.HighestCheckNumber();
  const std::int32_t highest =
      starting_check_number_ > stored ? Previous(starting_check_number_) : stored;
  if (entry == nullptr) return std::max(Next(highest), starting_check_number_);
  if (entry->GetCheckNumber() == highest || !numbers.Holds(*entry)) return Next(highest);

  // The checks that follow in the order of check numbers, in which other entries come last. Those
  // of the same number make no difference.
  const auto later = entry->IsCheck() ? numbers.CheckNumbersAfter(entry->GetCheckNumber())
                                      : std::vector<std::int32_t>();
  std::int32_t candidate = entry->GetCheckNumber();
  for (const std::int32_t number : later) {
    candidate = Next(candidate);
    if (number > candidate) break;
    candidate = number;
  }
  return candidate == highest ? Next(candidate) : candidate;
}

std::int32_t LDGRAccount::NextCheckNumberAfterCheckNumber(std::int32_t number) const noexcept {
  const std::int32_t highest = HighestCheckNumber();
  std::int32_t next = highest;
  if (highest == number) return highest;
  for (const auto& entry : entries_) {
    const std::int32_t candidate = entry->GetCheckNumber();
    if (candidate > number && candidate < next) next = candidate;
  }
  return next;
}

}  // namespace tallyfold
