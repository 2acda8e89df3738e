#include "model/schedule_occurrences.h"

#include <algorithm>
#include <optional>

#include "model/calendar.h"

namespace tallyfold {
namespace {

// Counted from 1970-01-01.
constexpr std::int64_t kFirstOccurrence = -719'162;  // 1 January of the year 1
constexpr std::int64_t kLastOccurrence = 2'932'896;  // 31 December 9999

enum class Unit { Days, Months, MonthEnds, QuarterEnds };

struct Rule {
  Unit unit = Unit::Days;
  std::int64_t step = 1;  // 0: the start alone
  bool moves_off_weekend = false;
  bool checks_day = false;
  bool drops_repeats = false;
};

std::optional<Rule> RuleOf(const Recurrence& recurrence) {
  const std::int64_t n = std::max(recurrence.interval, 0);
  constexpr bool kMoves = true;
  constexpr bool kChecks = true;
  switch (recurrence.type) {
    case RepeatInterval::Once:
      return std::nullopt;
    case RepeatInterval::Daily:
      return Rule{Unit::Days, 1};
    case RepeatInterval::Weekly:
      return Rule{Unit::Days, 7};
    case RepeatInterval::TwoWeeks:
      return Rule{Unit::Days, 14};
    case RepeatInterval::Monthly:
      return Rule{Unit::Months, 1, kMoves, kChecks};
    case RepeatInterval::Yearly:
      return Rule{Unit::Months, 12, kMoves};
    case RepeatInterval::EndOfMonth:
      return Rule{Unit::MonthEnds, 1, kMoves};
    case RepeatInterval::ThreeMonths:
      return Rule{Unit::Months, 3, kMoves, kChecks};
    case RepeatInterval::EndOfQuarter:
      return Rule{Unit::QuarterEnds, 3, kMoves};
    case RepeatInterval::EveryNDays:
      // Saturday and Sunday may both move to one Friday.
      return Rule{Unit::Days, n, kMoves, false, true};
    case RepeatInterval::EveryNWeeks:
      return Rule{Unit::Days, 7 * n};
    case RepeatInterval::EveryNMonths:
      return Rule{Unit::Months, n, kMoves, kChecks};
    case RepeatInterval::EveryNYears:
      return Rule{Unit::Months, 12 * n, kMoves};
    case RepeatInterval::EveryNQuarters:
      return Rule{Unit::Months, 3 * n, kMoves, kChecks};
  }
  return std::nullopt;
}

// The candidates of a recurrence, each computed from its index.
class Candidates {
 public:
  explicit Candidates(const Recurrence& recurrence)
      : rule_(RuleOf(recurrence)), use_preceding_friday_(recurrence.use_preceding_friday) {
    const std::int64_t start = DayCountOf(recurrence.start);
    if (start < kFirstOccurrence || start > kLastOccurrence) rule_.reset();
    start_day_ = start;
    start_ = TimeFromDayCount(start);
  }

  [[nodiscard]] bool none() const noexcept { return !rule_; }

  // The day of candidate `index` counted from 1970-01-01; beyond kLastOccurrence when there is
  // none. Never falls as the index grows.
  [[nodiscard]] std::int64_t DayAt(std::int64_t index) const noexcept {
    if (index > 0 && rule_->step == 0) return kLastOccurrence + 1;
    const std::int64_t offset = index * rule_->step;
    if (rule_->unit == Unit::Days) return start_day_ + offset;
    // Far more than there are from the year 1 to 9999, and little enough for the calendar.
    const auto months = static_cast<int>(std::min<std::int64_t>(offset, 1'000'000));
    switch (rule_->unit) {
      case Unit::Months:
        return DayCount(start_.year, start_.month + months, start_.day);
      case Unit::MonthEnds:
        return DayCount(start_.year, start_.month + months + 1, 0);
      default: {
        const CivilTime date =
            TimeFromDayCount(DayCount(start_.year, start_.month + months, start_.day));
        return DayCount(date.year, (date.month - 1) / 3 * 3 + 4, 0);
      }
    }
  }

  // The index of the first candidate on or after `day`.
  [[nodiscard]] std::int64_t IndexFrom(std::int64_t day) const noexcept {
    if (day <= DayAt(0)) return 0;
    std::int64_t before = 0;
    std::int64_t after = kLastOccurrence - kFirstOccurrence + 2;  // none at all lies there
    while (after - before > 1) {
      const std::int64_t middle = before + (after - before) / 2;
      (DayAt(middle) < day ? before : after) = middle;
    }
    return after;
  }

  // The occurrence of a candidate; none when it fails the day check. Never falls from one candidate
  // to the next.
  [[nodiscard]] std::optional<DateNumber> Occurrence(std::int64_t candidate) const noexcept {
    const bool moves = rule_->moves_off_weekend && use_preceding_friday_;
    const std::int64_t day = moves ? MovedToPrecedingFriday(candidate) : candidate;
    if (rule_->checks_day && TimeFromDayCount(candidate).day != start_.day) return std::nullopt;
    return DateNumberOfDayCount(day);
  }

  [[nodiscard]] bool drops_repeats() const noexcept { return rule_->drops_repeats; }

 private:
  std::optional<Rule> rule_;
  bool use_preceding_friday_;
  std::int64_t start_day_ = 0;
  CivilTime start_;
};

}  // namespace

std::int64_t MovedToPrecedingFriday(std::int64_t day) noexcept {
  switch (DayOfWeekOfDayCount(day)) {
    case 6:
      return day - 1;
    case 0:
      return day - 2;
    default:
      return day;
  }
}

std::vector<DateNumber> UncommittedOccurrences(const Recurrence& recurrence,
                                               const CommittedDates& committed, DateNumber from,
                                               DateNumber to, std::size_t limit) {
  std::vector<DateNumber> occurrences;
  const std::int64_t first = DayCountOf(from);
  const std::int64_t last = std::min(DayCountOf(to), kLastOccurrence);
  if (last < first || limit == 0) return occurrences;

  if (recurrence.type == RepeatInterval::Once) {
    if (committed.empty() && DayCountOf(recurrence.start) >= kFirstOccurrence)
      occurrences.push_back(from);
    return occurrences;
  }
  const Candidates candidates(recurrence);
  if (candidates.none()) return occurrences;

  CommittedDates::Walk walk(committed);
  for (std::int64_t index = candidates.IndexFrom(first);; ++index) {
    const std::int64_t candidate = candidates.DayAt(index);
    if (candidate > last) return occurrences;
    const std::optional<DateNumber> day = candidates.Occurrence(candidate);
    if (!day || walk.Contains(*day)) continue;
    // Occurrences never fall, so a repeated one is the last.
    if (candidates.drops_repeats() && !occurrences.empty() && occurrences.back() == *day) continue;
    occurrences.push_back(*day);
    if (occurrences.size() == limit) return occurrences;
  }
}

std::vector<OccurrenceAhead> OccurrencesAhead(const Recurrence& recurrence,
                                              const CommittedDates& committed, DateNumber last,
                                              std::size_t limit) {
  std::vector<OccurrenceAhead> ahead;
  const std::int64_t end = std::min(DayCountOf(last), kLastOccurrence);
  const std::int64_t start = DayCountOf(recurrence.start);
  if (start > end) return ahead;
  if (recurrence.type == RepeatInterval::Once) {
    if (committed.empty() && limit > 0 && start >= kFirstOccurrence) {
      ahead.push_back({recurrence.start, recurrence.start});
    }
    return ahead;
  }
  const Candidates candidates(recurrence);
  if (candidates.none()) return ahead;
  CommittedDates::Walk walk(committed);
  DateNumber former = 0;
  for (std::int64_t index = 0; limit > 0; ++index) {
    const std::int64_t candidate = candidates.DayAt(index);
    if (candidate > kLastOccurrence) break;
    const std::optional<DateNumber> day = candidates.Occurrence(candidate);
    if ((day ? DayCountOf(*day) : candidate) > end) break;
    if (day && walk.Contains(*day)) {
      // Months that were skipped before what is past are past too.
      if (former == 0) ahead.clear();
      continue;
    }
    if (day && *day == former) continue;
    ahead.push_back({DateNumberOfDayCount(candidate), day});
    if (!day) continue;
    former = *day;
    --limit;
  }
  return ahead;
}

DateNumber FirstUncommittedOccurrence(const Recurrence& recurrence,
                                      const CommittedDates& committed) {
  const Candidates candidates(recurrence);
  if (candidates.none()) return -1;
  CommittedDates::Walk walk(committed);
  for (std::int64_t index = 0;; ++index) {
    const std::int64_t candidate = candidates.DayAt(index);
    if (candidate > kLastOccurrence) return -1;
    const std::optional<DateNumber> day = candidates.Occurrence(candidate);
    if (day && !walk.Contains(*day)) return *day;
  }
}

}  // namespace tallyfold
