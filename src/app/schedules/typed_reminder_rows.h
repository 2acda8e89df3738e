#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

#include "app/schedules/schedule_reminder_state.h"
#include "model/account_schedule.h"
#include "model/date_number.h"

namespace tallyfold {

// What was typed into rows of the reminder while its sheet is open, also into those that are out of
// sight: rows come and go with the look-ahead, and are folded and unfolded by it.
class TypedReminderRows {
 public:
  void Clear();
  void Remember(const std::vector<ReminderRow>& rows);
  // Gives the row what was typed into it before; one that was never there stays as it is.
  void Recall(ReminderRow& row) const;

 private:
  // A row by its schedule, its first and last day and how many there are between them.
  using RowKey = std::tuple<const LDGRAccountSchedule*, DateNumber, DateNumber, std::size_t>;
  // A folded row by its schedule and whether its days are to come.
  using FoldKey = std::pair<const LDGRAccountSchedule*, bool>;

  [[nodiscard]] static RowKey KeyOf(const ReminderRow& row);

  std::map<RowKey, ReminderRow::Typed> typed_;
  // The amounts of folded rows, which stay while days come and go.
  std::map<FoldKey, std::optional<double>> folded_amounts_;
};

}  // namespace tallyfold
