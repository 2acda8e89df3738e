#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "model/account_entry.h"
#include "model/committed_dates.h"
#include "model/schedule_occurrences.h"
#include "platform/civil_time.h"

namespace tallyfold {

// A template entry that recurs. What it inherits describes every occurrence; the inherited date
// is the start, the first possible occurrence. It remembers which occurrences were committed, so
// that each is offered once.
class LDGRAccountSchedule final : public LDGRAccountEntry {
 public:
  using Interval = RepeatInterval;
  enum class Until : std::int32_t { Forever = 1, Count = 2, Date = 3 };

  LDGRAccountSchedule() = default;
  explicit LDGRAccountSchedule(const std::optional<plist::Dictionary>& dictionary);

  // As those of an entry (see there), with what a schedule adds.
  [[nodiscard]] std::shared_ptr<LDGRAccountSchedule> Image() const;
  void ExchangeWith(LDGRAccountSchedule& image) noexcept;
  // Whether the two would be stored differently.
  [[nodiscard]] bool DiffersFrom(const LDGRAccountSchedule& image) const noexcept;
  [[nodiscard]] std::size_t MemorySize() const noexcept;

  void SetRepeatIntervalType(std::int32_t type) noexcept { interval_type_ = type; }
  [[nodiscard]] std::int32_t GetRepeatIntervalType() const noexcept { return interval_type_; }
  // The N of the every-N types. With 0 or less the start is the only candidate.
  void SetRepeatInterval(std::int32_t interval) noexcept { interval_ = interval; }
  [[nodiscard]] std::int32_t GetRepeatInterval() const noexcept { return interval_; }
  void SetRepeatUntilType(std::int32_t type) noexcept { until_type_ = type; }
  [[nodiscard]] std::int32_t GetRepeatUntilType() const noexcept { return until_type_; }
  // A number of occurrences or the last day, by the until type.
  void SetRepeatUntil(std::int32_t until) noexcept { until_ = until; }
  [[nodiscard]] std::int32_t GetRepeatUntil() const noexcept { return until_; }
  // Whether occurrences on a weekend move to the Friday before. Those of days and weeks stay where
  // they are, except those of every N days.
  void SetUsePrecedingFriday(bool use) noexcept { use_preceding_friday_ = use; }
  [[nodiscard]] bool GetUsePrecedingFriday() const noexcept { return use_preceding_friday_; }
  // Ascending, without duplicates (as far as the file held them so).
  [[nodiscard]] const std::vector<DateNumber>& GetCommittedDates() const noexcept {
    return committed_dates_.days();
  }
  // 0 when nothing is committed.
  [[nodiscard]] DateNumber GetLastCommittedDate() const noexcept;

  // A new entry copied from the schedule, dated `date`.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> EntryForDate(DateNumber date) const;
  [[nodiscard]] CivilTime AdjustDateForUsePrecedingFriday(const CivilTime& date) const noexcept;
  // A new entry for each uncommitted occurrence from `from` to `to`, both included.
  [[nodiscard]] EntryList EntriesFromDate(DateNumber from, DateNumber to) const;
  // A new entry for each uncommitted occurrence due by `date`.
  [[nodiscard]] EntryList EvaluateForDate(const CivilTime& date) const;
  // The days of EvaluateForDate() without their entries.
  [[nodiscard]] std::vector<DateNumber> DueDates(const CivilTime& date) const;
  // The next `count` uncommitted occurrences as the until type leaves them, due or not, and the
  // months skipped between them.
  [[nodiscard]] std::vector<OccurrenceAhead> NextOccurrences(std::size_t count) const;
  // The next uncommitted occurrence; -1 for none.
  [[nodiscard]] DateNumber NextEntryDate() const;

  [[nodiscard]] bool DateIsCommitted(DateNumber date) const noexcept {
    return committed_dates_.Contains(date);
  }
  void AddCommittedDate(DateNumber date);
  // Marks the entry's day as committed; null does nothing.
  void CommitEntry(const LDGRAccountEntry* entry);

  // 1, 0 or -1; no next date sorts last; ties by number. The reversed form is the mirror.
  [[nodiscard]] int NextEntryDateIsGreaterThan(const LDGRAccountSchedule& other) const;
  [[nodiscard]] int NextEntryDateIsGreaterThan_Reversed(const LDGRAccountSchedule& other) const;

 private:
  struct Keys;

  // What was found for a recurrence, kept because orders ask for it over and over.
  struct FirstUncommitted {
    Recurrence recurrence;
    DateNumber date;
  };

  void WriteOwnKeys(plist::Output& output) const override;
  [[nodiscard]] Recurrence GetRecurrence() const noexcept;
  // How many more occurrences an until type of Count leaves.
  [[nodiscard]] std::size_t OccurrencesLeft() const noexcept;
  [[nodiscard]] EntryList EntriesForDates(const std::vector<DateNumber>& dates) const;

  std::int32_t interval_type_ = 0;
  std::int32_t interval_ = 1;
  std::int32_t until_type_ = 1;
  std::int32_t until_ = 0;
  bool use_preceding_friday_ = false;
  CommittedDates committed_dates_;
  mutable std::optional<FirstUncommitted> first_uncommitted_;
};

using ScheduleList = std::vector<std::shared_ptr<LDGRAccountSchedule>>;

}  // namespace tallyfold
