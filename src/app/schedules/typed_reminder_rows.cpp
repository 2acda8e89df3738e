#include "app/schedules/typed_reminder_rows.h"

#include <algorithm>

namespace tallyfold {

void TypedReminderRows::Clear() {
  typed_.clear();
  folded_amounts_.clear();
}

TypedReminderRows::RowKey TypedReminderRows::KeyOf(const ReminderRow& row) {
  return {row.schedule.get(), row.days.front(), row.days.back(), row.days.size()};
}

void TypedReminderRows::Remember(const std::vector<ReminderRow>& rows) {
  for (const ReminderRow& row : rows) {
    typed_[KeyOf(row)] = row.typed;
    if (!row.date_is_enabled) {
      folded_amounts_[{row.schedule.get(), row.is_ahead}] = row.typed.amount;
    }
  }
}

void TypedReminderRows::Recall(ReminderRow& row) const {
  if (const auto known = typed_.find(KeyOf(row)); known != typed_.end()) row.typed = known->second;
  if (row.date_is_enabled) return;
  // Folded with other days than before: the amount is meant, a mark of those days is not.
  if (!typed_.contains(KeyOf(row))) {
    row.typed.is_marked =
        row.typed.is_marked && std::ranges::none_of(row.days, [this, &row](DateNumber day) {
          const auto single = typed_.find({row.schedule.get(), day, day, 1});
          return single != typed_.end() && !single->second.is_marked;
        });
  }
  const auto amount = folded_amounts_.find({row.schedule.get(), row.is_ahead});
  if (amount != folded_amounts_.end()) row.typed.amount = amount->second;
}

}  // namespace tallyfold
