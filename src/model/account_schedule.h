#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "model/account_entry.h"
#include "platform/civil_time.h"

namespace tallyfold {

// A template entry that recurs. What it inherits describes every occurrence; the inherited date
// is the start, the first possible occurrence. It remembers which occurrences were committed, so
// that each is offered once.
class LDGRAccountSchedule final : public LDGRAccountEntry {
 public:
  // Stored numbers; the gaps are deliberate. Any other value yields no occurrence.
  enum class Interval : std::int32_t {
    Once = 0,
    Daily = 1,
    Weekly = 2,
    TwoWeeks = 3,
    Monthly = 4,
    Yearly = 5,
    EndOfMonth = 6,
    ThreeMonths = 10,
    EndOfQuarter = 11,
    EveryNDays = 20,
    EveryNWeeks = 21,
    EveryNMonths = 22,
    EveryNYears = 23,
    EveryNQuarters = 24,
  };
  enum class Until : std::int32_t { Forever = 1, Count = 2, Date = 3 };

  LDGRAccountSchedule() = default;
  explicit LDGRAccountSchedule(const std::optional<plist::Dictionary>& dictionary);

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
  // Whether monthly and longer occurrences move from a weekend to the Friday before.
  void SetUsePrecedingFriday(bool use) noexcept { use_preceding_friday_ = use; }
  [[nodiscard]] bool GetUsePrecedingFriday() const noexcept { return use_preceding_friday_; }
  // Ascending, without duplicates (as far as the file held them so).
  [[nodiscard]] const std::vector<DateNumber>& GetCommittedDates() const noexcept {
    return committed_dates_;
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
  // The next uncommitted occurrence; -1 for none.
  [[nodiscard]] DateNumber NextEntryDate() const;

  [[nodiscard]] bool DateIsCommitted(DateNumber date) const noexcept;
  void AddCommittedDate(DateNumber date);
  // Marks the entry's day as committed; null does nothing.
  void CommitEntry(const LDGRAccountEntry* entry);

  // 1, 0 or -1; no next date sorts last; ties by number. The reversed form is the mirror.
  [[nodiscard]] int NextEntryDateIsGreaterThan(const LDGRAccountSchedule& other) const;
  [[nodiscard]] int NextEntryDateIsGreaterThan_Reversed(const LDGRAccountSchedule& other) const;

 private:
  void WriteOwnKeys(plist::Output& output) const override;

  std::int32_t interval_type_ = 0;
  std::int32_t interval_ = 1;
  std::int32_t until_type_ = 1;
  std::int32_t until_ = 0;
  bool use_preceding_friday_ = false;
  std::vector<DateNumber> committed_dates_;
};

using ScheduleList = std::vector<std::shared_ptr<LDGRAccountSchedule>>;

}  // namespace tallyfold
