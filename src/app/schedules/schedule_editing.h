#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_sheet_state.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "model/account_schedule.h"
#include "model/date_number.h"

namespace tallyfold {

// Adds scheduled entries to the selected account and changes them, through the schedule sheet. The
// account changes at OK alone, all at once or not at all.
class ScheduleEditing {
 public:
  ScheduleEditing(Desk& desk, Ledger& ledger, SheetSlot& sheets, Refresh& refresh,
                  Announcer& announcer) noexcept
      : desk_(desk), ledger_(ledger), sheets_(sheets), refresh_(refresh), announcer_(announcer) {}
  ScheduleEditing(const ScheduleEditing&) = delete;
  ScheduleEditing& operator=(const ScheduleEditing&) = delete;

  [[nodiscard]] const ScheduleSheetState& State() const noexcept { return state_; }
  // Opens the sheet for a new schedule. False, and nothing changes, when no account is selected or
  // a sheet is open, and for a transfer when there is no other account.
  bool New(EntryKind kind);
  // Opens the sheet for a new schedule like the selected entry, monthly from that entry's day on.
  // As long as it begins on that day, the occurrence of that day counts as committed. False as for
  // New(), and for an entry of no kind.
  bool NewFromEntry();
  // Opens the sheet for the selected schedule. False when none is selected, when it is of no kind,
  // or a sheet is open.
  bool Edit();
  // Takes over what the user typed, and brings the dates up to date.
  void Read(ScheduleSheetState::Typed typed);
  // Stores the schedule, selects it and closes the sheet. False when the sheet is not open or stays
  // open; its state then says why, unless a field of the front end has refused its text.
  bool OK();
  // Closes the sheet; the account stays as it was.
  void Cancel();

 private:
  bool Begin(const std::shared_ptr<LDGRAccount>& account,
             std::shared_ptr<LDGRAccountSchedule> schedule, ScheduleValues values);
  void Populate(const LDGRAccount& account);
  void PopulateTypes(const LDGRAccount& account);
  void PopulateAccounts(const LDGRAccount& account);
  // While there are lines they make the amount and are the payee.
  void FollowSplit(ScheduleSheetState::Typed& typed);
  void Update();
  // Why the schedule cannot be stored any more; "" when it can.
  [[nodiscard]] std::string CheckTarget() const;
  [[nodiscard]] std::optional<Problem> Check();
  [[nodiscard]] std::optional<Problem> CheckOtherAccount();
  void Close();

  Desk& desk_;
  Ledger& ledger_;
  SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
  ScheduleSheetState state_;
  std::weak_ptr<LDGRAccount> account_;
  // The schedule that is changed; null for a new one.
  std::shared_ptr<LDGRAccountSchedule> edited_;
  // Of the entry that a new schedule is made like.
  std::optional<DateNumber> day_of_entry_;
  // What it held when the sheet opened.
  ScheduleValues former_;
  // The amount and the payee that were typed before the first line of a split; none before it and
  // for a schedule that opened with its split.
  std::optional<std::pair<std::optional<double>, std::string>> before_split_;
};

}  // namespace tallyfold
