#include "app/schedules/schedules_tab.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "ledger/change.h"
#include "platform/ambient.h"
#include "registers/register_look.h"
#include "storage/preferences.h"

namespace tallyfold {

SchedulesTab::SchedulesTab(Desk& desk, Ledger& ledger, ScheduleCommit& commit, SheetSlot& sheets,
                           Refresh& refresh, Announcer& announcer)
    : desk_(desk),
      ledger_(ledger),
      commit_(commit),
      sheets_(sheets),
      refresh_(refresh),
      announcer_(announcer),
      table_(DefaultScheduleColumns(), this),
      rows_(desk, table_) {
  desk_.SetSchedules(&rows_);
}

SchedulesTab::~SchedulesTab() {
  desk_.SetSchedules(nullptr);
}

void SchedulesTab::ShowAccount(const std::shared_ptr<LDGRAccount>& account) {
  rows_.ShowAccount(account,
                    account != nullptr
                        ? desk_.preferences().GetPreferencesForAccountNumber(account->GetNumber())
                        : nullptr);
}

void SchedulesTab::UpdateDateFormat() {
  rows_.SetDateFormat(RegisterDateFormat(desk_.preferences()));
}

bool SchedulesTab::IsReady() const {
  return rows_.SelectedSchedule() != nullptr && desk_.SelectedAccount() != nullptr &&
         sheets_.IsFree();
}

void SchedulesTab::ScheduleRemoveConfirm_Begin() {
  const Announcer::Operation operation(announcer_);
  if (!IsReady()) return;
  if (!desk_.preferences().GetScheduleRemoveConfirm()) return Schedule_Delete();
  asked_account_ = desk_.SelectedAccount();
  asked_schedule_ = rows_.SelectedSchedule();
  confirm_.is_open = true;
  confirm_.question =
      LocalizedText("Are you sure you would like to remove the selected scheduled entry?");
  announcer_.Changed(Area::ScheduleRemoveSheet);
  sheets_.Open(Sheet::ScheduleRemoveConfirm, [this] { ScheduleRemoveConfirm_Cancel(); });
}

bool SchedulesTab::ScheduleRemoveConfirm_OK() {
  const Announcer::Operation operation(announcer_);
  if (!confirm_.is_open) return false;
  confirm_.problem.reset();
  const auto& accounts = desk_.accounts();
  const auto& schedules = asked_account_->GetSchedules();
  if (asked_account_->IsLocked() || std::ranges::find(accounts, asked_account_) == accounts.end() ||
      std::ranges::find(schedules, asked_schedule_) == schedules.end()) {
    confirm_.problem = {"", LocalizedText("The scheduled entry has been removed.")};
    announcer_.Changed(Area::ScheduleRemoveSheet);
    return false;
  }
  const auto account = asked_account_;
  const auto schedule = asked_schedule_;
  CloseConfirm();
  Delete(account, schedule);
  return true;
}

void SchedulesTab::ScheduleRemoveConfirm_Cancel() {
  const Announcer::Operation operation(announcer_);
  if (confirm_.is_open) CloseConfirm();
}

void SchedulesTab::CloseConfirm() {
  confirm_ = {};
  asked_account_ = nullptr;
  asked_schedule_ = nullptr;
  announcer_.Changed(Area::ScheduleRemoveSheet);
  sheets_.Close(Sheet::ScheduleRemoveConfirm);
}

void SchedulesTab::Schedule_Delete() {
  const Announcer::Operation operation(announcer_);
  if (IsReady()) Delete(desk_.SelectedAccount(), rows_.SelectedSchedule());
}

void SchedulesTab::Delete(const std::shared_ptr<LDGRAccount>& account,
                          const std::shared_ptr<LDGRAccountSchedule>& schedule) {
  Change change(ledger_, "Remove Schedule", account);
  change.Remove(account, schedule.get());
  change.Close();
  refresh_.SchedulesChanged();
}

bool SchedulesTab::Schedule_Duplicate() {
  const Announcer::Operation operation(announcer_);
  if (!IsReady()) return false;
  const auto account = desk_.SelectedAccount();
  const auto original = rows_.SelectedSchedule();
  plist::Dictionary dictionary = original->asDictionary();
  if (static_cast<RepeatInterval>(original->GetRepeatIntervalType()) == RepeatInterval::Once) {
    dictionary.Set("committedDates", plist::Array());
  }
  const auto copy = std::make_shared<LDGRAccountSchedule>(dictionary);
  copy->SetNumber(account->NextAvailableScheduleNumber());
  Change change(ledger_, "Duplicate Schedule", account);
  change.Add(account, copy);
  change.Close();
  refresh_.SchedulesChanged();
  rows_.SelectSchedule(copy.get());
  return true;
}

DueOccurrence SchedulesTab::NextOfSelected() const {
  return IsReady() ? NextOccurrence(rows_.SelectedSchedule()) : DueOccurrence();
}

bool SchedulesTab::Schedule_CommitNext() {
  const Announcer::Operation operation(announcer_);
  return commit_.Commit(NextOfSelected());
}

bool SchedulesTab::Schedule_SkipNext() {
  const Announcer::Operation operation(announcer_);
  return commit_.Skip(NextOfSelected());
}

void SchedulesTab::TableChanged(const TableState& /*table*/, TableState::Change change) {
  announcer_.Changed(Area::Schedules);
  if (change == TableState::Change::SelectedRow) announcer_.Changed(Area::ScheduleButtons);
}

void SchedulesTab::RowsChanged(const TableState& /*table*/, const RowsChange& /*change*/) {
  announcer_.Changed(Area::Schedules);
}

}  // namespace tallyfold
