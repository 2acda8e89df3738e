#pragma once

#include <cstddef>
#include <vector>

#include "model/date_number.h"

namespace tallyfold {

// The days on which occurrences of a schedule were committed, ascending and without duplicates as
// far as the file held them so.
class CommittedDates {
 public:
  CommittedDates() = default;
  // Takes the days as they stand.
  explicit CommittedDates(std::vector<DateNumber> days);

  // By bisection, so in a list from a file that is out of order a day may go unfound.
  [[nodiscard]] bool Contains(DateNumber day) const noexcept;
  // The same for days that never fall from one call to the next: all calls together pass over a
  // list in order once. Lives no longer than the list stays as it is.
  class Walk;
  // Adds the day unless it is there already, and puts the list in order.
  void Add(DateNumber day);

  [[nodiscard]] const std::vector<DateNumber>& days() const noexcept { return days_; }
  [[nodiscard]] std::size_t size() const noexcept { return days_.size(); }
  [[nodiscard]] bool empty() const noexcept { return days_.empty(); }

 private:
  std::vector<DateNumber> days_;
  bool in_order_ = true;
};

class CommittedDates::Walk {
 public:
  explicit Walk(const CommittedDates& dates) noexcept
      : dates_(dates), next_(dates.days_.data()), end_(next_ + dates.days_.size()) {}

  [[nodiscard]] bool Contains(DateNumber day) noexcept {
    if (!dates_.in_order_) return dates_.Contains(day);
    while (next_ != end_ && *next_ < day) ++next_;
    return next_ != end_ && *next_ == day;
  }

 private:
  const CommittedDates& dates_;
  const DateNumber* next_;
  const DateNumber* end_;
};

}  // namespace tallyfold
