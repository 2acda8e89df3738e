#include "app/views/date_jump.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "registers/account_table_view_data.h"

namespace tallyfold {

void DateJump::Open() {
  const Announcer::Operation operation(announcer_);
  if (desk_.SelectedAccount() == nullptr || !sheets_.IsFree()) return;
  const auto entry = desk_.SelectedEntry();
  state_ = {true, entry != nullptr ? entry->GetDate() : TodaysDateNumber()};
  announcer_.Changed(Area::DateJump);
}

void DateJump::Close() {
  if (!state_.is_open) return;
  state_.is_open = false;
  announcer_.Changed(Area::DateJump);
}

bool DateJump::Go(DateNumber day) {
  const Announcer::Operation operation(announcer_);
  Close();
  if (desk_.SelectedAccount() == nullptr || !desk_.IsUnlocked()) return false;
  host_.ShowRegister();
  LDGRAccountTableViewData& rows = registers_.currentTableDataSource();
  const EntryList& entries = rows.GetEntries();
  if (entries.empty()) return false;
  // Days from the wanted one on come before the earlier ones, nearest first on both sides.
  const auto distance = [day](const LDGRAccountEntry& entry) {
    const std::int64_t days = DayCountOf(entry.GetDate()) - DayCountOf(day);
    return days >= 0 ? std::pair(0, days) : std::pair(1, -days);
  };
  std::size_t best = 0;
  for (std::size_t row = 1; row < entries.size(); ++row) {
    if (distance(*entries[row]) < distance(*entries[best])) best = row;
  }
  rows.SelectRow(static_cast<std::int32_t>(best));
  return true;
}

}  // namespace tallyfold
