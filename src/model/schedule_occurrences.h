#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "model/committed_dates.h"
#include "model/date_number.h"

namespace tallyfold {

// How a schedule recurs. Candidates are the days the rule names; an occurrence is a candidate that
// passes the day check, moved off the weekend where the rule says so. Candidates lie between the
// years 1 and 9999: a start outside them yields nothing.

// Stored numbers; the gaps are deliberate. Any other value yields no occurrence.
enum class RepeatInterval : std::int32_t {
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

struct Recurrence {
  RepeatInterval type = RepeatInterval::Once;
  // The N of the every-N types. With 0 or less the start is the only candidate.
  std::int32_t interval = 1;
  // Rolls where it names no day.
  DateNumber start = 0;
  bool use_preceding_friday = false;

  friend bool operator==(const Recurrence&, const Recurrence&) = default;
};

// The Friday before for a Saturday or Sunday, any other day as it is; days counted from 1970-01-01.
[[nodiscard]] std::int64_t MovedToPrecedingFriday(std::int64_t day) noexcept;

// The uncommitted occurrences whose candidates lie from `from` to `to`, both included, in order;
// at most `limit`. An entry that recurs only once is due on `from` itself.
[[nodiscard]] std::vector<DateNumber> UncommittedOccurrences(
    const Recurrence& recurrence, const CommittedDates& committed, DateNumber from, DateNumber to,
    std::size_t limit = std::numeric_limits<std::size_t>::max());

// What a recurrence comes to next.
struct OccurrenceAhead {
  DateNumber candidate = 0;
  // The occurrence itself, which the weekend may have moved off its candidate. Where the candidate
  // fails the day check there is none: the month before the candidate's lacks the day.
  std::optional<DateNumber> date;

  friend bool operator==(const OccurrenceAhead&, const OccurrenceAhead&) = default;
};
// The first `limit` uncommitted occurrences from the start on that do not lie after `last`, and the
// candidates between them that fail the day check. No day comes twice; none when the start lies
// after `last`.
[[nodiscard]] std::vector<OccurrenceAhead> OccurrencesAhead(const Recurrence& recurrence,
                                                            const CommittedDates& committed,
                                                            DateNumber last, std::size_t limit);

// The first uncommitted occurrence from the start on; -1 for none and for what recurs only once.
[[nodiscard]] DateNumber FirstUncommittedOccurrence(const Recurrence& recurrence,
                                                    const CommittedDates& committed);

}  // namespace tallyfold
