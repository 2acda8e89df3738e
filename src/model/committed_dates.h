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
  // Adds the day unless it is there already, and puts the list in order.
  void Add(DateNumber day);

  [[nodiscard]] const std::vector<DateNumber>& days() const noexcept { return days_; }
  [[nodiscard]] std::size_t size() const noexcept { return days_.size(); }
  [[nodiscard]] bool empty() const noexcept { return days_.empty(); }

 private:
  std::vector<DateNumber> days_;
  bool in_order_ = true;
};

}  // namespace tallyfold
