#include "model/committed_dates.h"

#include <algorithm>
#include <utility>

namespace tallyfold {

CommittedDates::CommittedDates(std::vector<DateNumber> days)
    : days_(std::move(days)), in_order_(std::is_sorted(days_.begin(), days_.end())) {}

bool CommittedDates::Contains(DateNumber day) const noexcept {
  if (days_.empty() || day < days_.front() || day > days_.back()) return false;
  const DateNumber* first = days_.data();
  const DateNumber* last = first + days_.size();
  while (last - first >= 3) {
    const DateNumber* middle = first + (last - first) / 2;
    if (*middle == day) return true;
    if (*middle < day) {
      first = middle + 1;
    } else {
      last = middle;
    }
  }
  return std::find(first, last, day) != last;
}

void CommittedDates::Add(DateNumber day) {
  if (!in_order_) {
    std::sort(days_.begin(), days_.end());
    in_order_ = true;
  }
  const auto place = std::lower_bound(days_.begin(), days_.end(), day);
  if (place == days_.end() || *place != day) days_.insert(place, day);
}

}  // namespace tallyfold
